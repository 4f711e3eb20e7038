#pragma once
// Immutable edits of records, chained from the newest to the oldest, and the bytes that they put in.
// A state of a record is one edit; going back to an older state is going back to an older edit.

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/storage.h"

namespace cad::dxf {

using TextId = std::uint32_t;

class EditStore {
 public:
  EditStore();
  EditStore(const EditStore&) = delete;  // shared_ refers to the texts
  EditStore& operator=(const EditStore&) = delete;

  TextId keepText(std::string_view bytes);                       // equal bytes are kept once
  TextId keepRecord(std::string bytes);                          // not shared
  std::string_view text(TextId id) const { return texts_[id]; }  // stays there

  // Replaces `removed` bytes at `offset` of the state `previous`.
  EditId add(EditId previous, std::uint32_t offset, std::uint32_t removed, TextId replacement) {
    edits_.push_back({offset, removed, replacement, previous});
    return static_cast<EditId>(edits_.size() - 1);
  }
  // A long chain is to be cut short by an edit that holds the whole record.
  bool isLong(EditId edit) const;
  EditId addWhole(EditId previous, std::string bytes);
  // Appends to `out` the bytes of the state `edit` of a record that began as `original`.
  void apply(EditId edit, std::string_view original, std::string& out) const;

 private:
  struct Edit {
    std::uint32_t offset = 0;
    std::uint32_t removed = 0;  // kWhole: `text` is the whole record
    TextId text = 0;
    EditId previous = kNoEdit;
  };
  static constexpr std::uint32_t kWhole = 0xFFFFFFFF;
  static constexpr int kLongestChain = 16;

  std::vector<Edit> edits_;
  std::deque<std::string> texts_;
  std::unordered_map<std::string_view, TextId> shared_;
  // The latest of those that look alike: most changes put in one of few texts.
  TextId& latestLike(std::string_view bytes);
  std::array<TextId, 64> latest_{};
};

}  // namespace cad::dxf
