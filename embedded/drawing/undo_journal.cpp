#include "embedded/drawing/undo_journal.h"

namespace cad {

void UndoJournal::beginGroup() {
  endGroup();
  entries_.push_back({.kind = JournalEntry::Kind::kGroupBegin});
  open_ = true;
}

void UndoJournal::endGroup() {
  if (!open_) return;
  open_ = false;
  if (entries_.back().kind == JournalEntry::Kind::kGroupBegin) {
    entries_.pop_back();
  } else {
    entries_.push_back({.kind = JournalEntry::Kind::kGroupEnd});
  }
}

JournalEntry UndoJournal::take() {
  const JournalEntry entry = entries_.back();
  entries_.pop_back();
  return entry;
}

}  // namespace cad
