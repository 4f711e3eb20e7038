#pragma once
// The changes of a drawing: each puts a record into another state, is journalled, and is undone alone or with
// its group. The entities of the spaces are counted by signature, so that a selection knows whom to look for.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "embedded/drawing/drawing_blocks.h"

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
  // What was added since the journal had this size becomes the beginning of one group, which is open now.
  void groupSince(std::size_t size);
  bool groupOpen() const { return open_; }
  bool empty() const { return entries_.empty(); }
  std::size_t size() const { return entries_.size(); }
  const JournalEntry& last() const { return entries_.back(); }
  JournalEntry take();

 private:
  std::vector<JournalEntry> entries_;
  bool open_ = false;
};

class DrawingChanges : public DrawingBlocks {
 public:
  bool isModified() const { return modified_; }
  // Grows with every change, undone ones included: what was made of the drawing is stale when it differs.
  std::uint64_t revision() const { return revision_; }
  // Grows with every change of an entity, and of a record that the storage has marked.
  std::uint64_t entityRevision() const { return entityRevision_; }

  base::Status setErased(RecordId id, bool erased);

  // Calls visit for each entity of model and paper spaces that is not erased and whose signature is
  // marked in `wanted` (indexed by SignatureId), newest first. Touches no entity when nothing is marked.
  void forEachSpaceEntity(const std::vector<bool>& wanted, const std::function<void(RecordId)>& visit) const;

  void beginUndoGroup() { journal_.beginGroup(); }  // groups do not nest: a second begin ends the first
  void endUndoGroup() { journal_.endGroup(); }
  // Takes back the newest group, or the newest change outside a group. False when there is none.
  bool undo();

  // Changes made while it lives are one step of undo (part of the open group when there is one).
  class ChangeScope {
   public:
    explicit ChangeScope(DrawingChanges& drawing);
    ~ChangeScope();
    ChangeScope(const ChangeScope&) = delete;
    ChangeScope& operator=(const ChangeScope&) = delete;
    void rollBack();  // takes back every change since the beginning of the scope

   private:
    DrawingChanges& drawing_;
    std::size_t begin_;
    bool opened_;
  };

 protected:
  DrawingChanges(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded);
  ~DrawingChanges() = default;

  // Journals what the record is, and puts it into another state.
  void change(RecordId id, EditId edits, SignatureId signature, std::uint8_t flags);
  RecordId addNew(const Record& record);
  void addImplied(const Record& made,
                  RecordId id);  // an implied record of the list gets its place in the file
  SignatureId signatureWith(const Record& record, Property property, const StoredValue& value);
  UndoJournal& journal() { return journal_; }
  void noteSaved() { modified_ = false; }

 private:
  void setState(RecordId id, EditId edits, SignatureId signature, std::uint8_t flags);
  void count(const Record& record, int difference);
  void eraseOne(RecordId id, bool erased);
  void undoOne();

  UndoJournal journal_;
  bool modified_ = false;
  std::uint64_t revision_ = 0, entityRevision_ = 0;
  std::vector<std::uint32_t> spaceCounts_;  // by signature: live entities of the layout spaces
  struct SignatureStep {                    // where a change of one property led from a signature
    Property property = Property::kCount;
    std::int64_t value = 0;  // a NameId, or the colour
    SignatureId to = 0;
  };
  std::vector<SignatureStep> lastSteps_;  // by signature: the latest
};

}  // namespace cad
