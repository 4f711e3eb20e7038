#pragma once
// The undo journal: what each change replaced, newest last.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "embedded/drawing/record.h"

namespace cad {

struct JournalEntry {
  enum class Kind : std::uint8_t { kState, kAdded, kMaterialised, kGroupBegin, kGroupEnd };
  RecordId record = kNoRecord;
  std::uint32_t edits = 0;  // the record's state before the change
  SignatureId signature = 0;
  Kind kind = Kind::kState;
  std::uint8_t flags = 0;
};
static_assert(sizeof(JournalEntry) <= 16);

class UndoJournal {
 public:
  void add(const JournalEntry& entry) { entries_.push_back(entry); }
  void beginGroup();
  void endGroup();  // a group without changes leaves no trace
  bool groupOpen() const { return open_; }
  bool empty() const { return entries_.empty(); }
  std::size_t size() const { return entries_.size(); }
  const JournalEntry& last() const { return entries_.back(); }
  JournalEntry take();

 private:
  std::vector<JournalEntry> entries_;
  bool open_ = false;
};

}  // namespace cad
