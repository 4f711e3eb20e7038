#pragma once
// Names of layers, linetypes, styles and blocks. Every distinct spelling in a drawing is held once, so that a
// pattern is matched once per name and not once per entity.

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/codepage.h"

namespace cad {

using NameId = std::uint32_t;
inline constexpr NameId kNoName = 0xFFFFFFFF;

class NamePool {
 public:
  NamePool() = default;
  // byStored_ refers to the texts of entries_: these may move, but not be copied.
  NamePool(const NamePool&) = delete;
  NamePool& operator=(const NamePool&) = delete;
  NamePool(NamePool&&) = default;
  NamePool& operator=(NamePool&&) = default;

  // How stored bytes become text: the drawing's code page, \U+XXXX and \M+nXXXX escapes. Must be set
  // before the first text(), folded() or intern() of decoded text.
  void setCodePage(base::CodePage page) { page_ = page; }

  NameId intern(std::string_view stored);  // bytes as they stand in the drawing
  NameId intern(std::wstring_view text);   // encoded as the drawing needs it

  std::string_view stored(NameId id) const { return entries_[id].stored; }
  const std::wstring& text(NameId id) const;    // decoded on first use
  const std::wstring& folded(NameId id) const;  // upper-cased text: equal names compare equal
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    std::string stored;
    mutable std::wstring text, folded;
    mutable bool decoded = false;
  };
  std::deque<Entry> entries_;
  std::unordered_map<std::string_view, NameId> byStored_;
  base::CodePage page_ = 1252;
};

// Control characters and those that the host keeps for wildcards, paths and lists.
bool hasForbiddenCharacter(std::wstring_view name);

// A name that a person or a program may give: 1 to 255 characters, none forbidden, no blank at either end. A
// vertical bar, as in the names of an external reference's records (NAME|LAYER), stands inside only where
// `withBar` allows one.
bool isRecordName(std::wstring_view name, bool withBar = false);

}  // namespace cad
