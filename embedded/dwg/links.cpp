#include "embedded/dwg/links.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace cad::dwg {
namespace {

class Links {
 public:
  Links(const DwgStorage& storage, std::span<const Record> records) : storage_(storage), records_(records) {
    for (RecordId id = 0; id < records.size(); ++id) note(id);
  }

  base::Result<std::vector<ChangedObject>> take() {
    if (touched_.empty() && erasedEntries_.empty() && gone_.empty()) return std::vector<ChangedObject>();
    keepNeeded();
    collectContents();
    for (const auto& [block, content] : contents_) linkBlock(block, content);
    for (const auto& [block, inserts] : inserts_) listInserts(block, inserts);
    for (const RecordId entry : erasedEntries_) leaveTable(entry);
    return written();
  }

 private:
  struct Inserts {
    std::vector<Handle> erased, added;
  };

  static bool isAdded(const Record& record) { return (record.flags & Record::kAdded) != 0; }
  bool isLive(RecordId id) const { return !records_[id].erased() && !records_[id].implied(); }
  Handle handleOf(RecordId id) const { return storage_.handle(records_[id]).value_or(0); }

  void note(RecordId id) {
    const Record& record = records_[id];
    if (record.erased() == isAdded(record)) return;  // as it was in the file, or never there
    const bool isEntity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
    if (isEntity && record.erased()) takeExtension(record, handleOf(id), id);
    if (record.kind == RecordKind::kTableRecord && record.erased()) erasedEntries_.push_back(id);
    if (record.kind != RecordKind::kEntity || record.owner == kNoRecord) return;
    touched_.insert(record.owner);
    if (storage_.typeName(record) != "INSERT") return;
    const Handle block = storage_.fields(record).handle("block").value_or(0);
    Inserts& inserts = inserts_[block];
    (record.erased() ? inserts.erased : inserts.added).push_back(handleOf(id));
  }

  // With an object goes its extension dictionary, and what that owns.
  void takeExtension(const Record& record, Handle owner, RecordId root) {
    takeOwned(storage_.commonFields(record).handle("dictionary").value_or(0), owner, root);
  }

  void takeOwned(Handle item, Handle owner, RecordId root) {
    const RecordId id = item == 0 ? kNoRecord : storage_.recordOf(item);
    if (id == kNoRecord || records_[id].kind != RecordKind::kObject) return;
    if (storage_.commonFields(records_[id]).handle("owner") != owner) return;
    if (!gone_.try_emplace(id, root).second) return;
    takeExtension(records_[id], item, root);
    if (storage_.typeOf(records_[id]).kind != ObjectKind::kDictionary) return;
    const Fields fields = storage_.fields(records_[id]);
    for (std::uint32_t i = 0; i < fields.count("item"); ++i)
      takeOwned(fields.handle("item", i).value_or(0), item, root);
  }

  // What something else refers to stays, with all that the erased entity had.
  void keepNeeded() {
    std::unordered_set<RecordId> needed;
    for (RecordId id = 0; id < records_.size() && !gone_.empty(); ++id) {
      if (!isLive(id) || records_[id].kind == RecordKind::kFrame) continue;
      const auto own = gone_.find(id);
      for (const Handle handle : storage_.references(records_[id])) {
        const auto tree = gone_.find(storage_.recordOf(handle));
        if (tree != gone_.end() && (own == gone_.end() || own->second != tree->second))
          needed.insert(tree->second);
      }
    }
    std::erase_if(gone_, [&](const auto& each) { return needed.contains(each.second); });
  }

  void collectContents() {
    for (RecordId id = 0; id < records_.size(); ++id) {
      const Record& record = records_[id];
      const bool wasThere = !isAdded(record) || !record.erased();
      if (record.kind == RecordKind::kEntity && wasThere && touched_.contains(record.owner))
        contents_[record.owner].push_back(id);
    }
  }

  // Entities with an erased or a new neighbour get their references to it anew.
  void linkBlock(RecordId block, const std::vector<RecordId>& content) {
    if (records_[block].erased()) return;
    std::vector<RecordId> live;
    std::vector<bool> moved;  // something between it and the one before is another
    bool gap = false;
    for (const RecordId id : content) {
      if (!isLive(id)) {
        gap = true;
        continue;
      }
      live.push_back(id);
      moved.push_back(gap || isAdded(records_[id]));
      gap = false;
    }
    if (storage_.version() < Version::kR2004) {
      for (std::size_t i = 0; i < live.size(); ++i) {
        const bool behind = i + 1 < live.size() ? moved[i + 1] : gap;
        if (moved[i] || behind) linkEntity(live, i);
      }
    }
    linkEntry(storage_.entryOf(records_[block]), live);
  }

  void linkEntity(const std::vector<RecordId>& live, std::size_t at) {
    const Handle own = handleOf(live[at]);
    const Handle before = at > 0 ? handleOf(live[at - 1]) : 0;
    const Handle behind = at + 1 < live.size() ? handleOf(live[at + 1]) : 0;
    const Fields& fields = storage_.commonFields(records_[live[at]]);
    const bool unlinked = fields.integer("no links") != 0;
    const Handle present = unlinked ? own - 1 : fields.handle("previous").value_or(0);
    const Handle next = unlinked ? own + 1 : fields.handle("next").value_or(0);
    if (present == before && next == behind) return;
    FieldChanges& changes = changesOf(live[at]);
    changes.set("no links", false);
    changes.setHandle("previous", before);
    changes.setHandle("next", behind);
  }

  void linkEntry(Handle entry, const std::vector<RecordId>& live) {
    const RecordId id = storage_.recordOf(entry);
    if (id == kNoRecord || records_[id].erased()) return;
    FieldChanges& changes = changesOf(id);
    if (storage_.version() < Version::kR2004) {
      changes.setHandle("first entity", live.empty() ? 0 : handleOf(live.front()));
      changes.setHandle("last entity", live.empty() ? 0 : handleOf(live.back()));
      return;
    }
    changes.set("entity count", Value(static_cast<std::int64_t>(live.size())));
    for (std::uint32_t i = 0; i < live.size(); ++i) changes.setHandle("entity", handleOf(live[i]), i);
  }

  // Since 2000 a block lists the references to it.
  void listInserts(Handle block, const Inserts& inserts) {
    const RecordId id = storage_.recordOf(block);
    if (id == kNoRecord || records_[id].erased() || storage_.version() < Version::kR2000) return;
    const Fields& fields = storage_.fields(records_[id]);
    std::vector<Handle> listed;
    std::vector<std::int64_t> marks;
    const std::uint32_t count = fields.count("insert");
    for (std::uint32_t i = 0; i < count; ++i) {
      const Handle handle = fields.handle("insert", i).value_or(0);
      if (std::ranges::find(inserts.erased, handle) != inserts.erased.end()) continue;
      listed.push_back(handle);
      marks.push_back(fields.integer("insert mark", 1, i));
    }
    for (const Handle handle : inserts.added) {
      listed.push_back(handle);
      marks.push_back(1);
    }
    marks.push_back(0);
    FieldChanges& changes = changesOf(id);
    for (std::uint32_t i = 0; i < marks.size(); ++i) changes.set("insert mark", Value(marks[i]), i);
    for (std::uint32_t i = 0; i < listed.size(); ++i) changes.setHandle("insert", listed[i], i);
  }

  // An entry that is gone leaves its place empty.
  void leaveTable(RecordId entry) {
    const RecordId id = storage_.control(records_[entry].table);
    if (id == kNoRecord) return;
    const Fields& fields = storage_.fields(records_[id]);
    for (std::uint32_t i = 0; i < fields.count("entry"); ++i)
      if (fields.handle("entry", i) == handleOf(entry)) changesOf(id).setHandle("entry", 0, i);
  }

  FieldChanges& changesOf(RecordId id) { return changes_[id]; }

  base::Result<std::vector<ChangedObject>> written() const {
    std::vector<ChangedObject> objects;
    for (const auto& [id, root] : gone_) objects.push_back({handleOf(id), true, {}, 0});
    for (const auto& [id, changes] : changes_) {
      if (gone_.contains(id)) continue;
      if (changes.empty()) continue;
      const base::Result<ObjectFrame> frame = storage_.frame(records_[id]);
      if (!frame.ok()) return frame.failure();
      base::Result<WrittenObject> object = rewrite(frame.value(), changes);
      if (!object.ok()) return object.failure();
      objects.push_back({handleOf(id), false, std::move(object.value().data), object.value().handleBits});
    }
    return objects;
  }

  const DwgStorage& storage_;
  std::span<const Record> records_;
  std::unordered_set<RecordId> touched_;  // blocks
  std::vector<RecordId> erasedEntries_;
  std::map<RecordId, RecordId> gone_;  // objects that go with the erased entity to which they belong
  std::map<RecordId, std::vector<RecordId>> contents_;
  std::map<Handle, Inserts> inserts_;  // by the block's table entry
  std::map<RecordId, FieldChanges> changes_;
};

}  // namespace

base::Result<std::vector<ChangedObject>> linkChanges(const DwgStorage& storage,
                                                     std::span<const Record> records) {
  return Links(storage, records).take();
}

}  // namespace cad::dwg
