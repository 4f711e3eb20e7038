#include "embedded/dwg/links.h"

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
    if (touched_.empty() && erasedEntries_.empty() && gone_.empty() && inserts_.empty())
      return std::vector<ChangedObject>();
    keepNeeded();
    collectContents();
    for (const auto& [block, content] : contents_) linkBlock(block, content);
    for (const auto& [block, inserts] : inserts_) listInserts(block, inserts);
    for (const auto& [table, entries] : erasedEntries_) leaveTable(table, entries);
    return written();
  }

 private:
  struct Inserts {
    std::unordered_set<Handle> gone;
    std::vector<Handle> added;
  };

  static bool isAdded(const Record& record) { return (record.flags & Record::kAdded) != 0; }
  bool isLive(RecordId id) const { return !records_[id].erased() && !records_[id].implied(); }
  Handle handleOf(RecordId id) const { return storage_.handle(records_[id]).value_or(0); }

  void note(RecordId id) {
    const Record& record = records_[id];
    if (record.kind == RecordKind::kEntity) noteInsert(id);
    if (record.erased() == isAdded(record)) return;  // as it was in the file, or never there
    const bool isEntity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
    if (isEntity && record.erased()) takeExtension(id);
    if (record.kind == RecordKind::kTableRecord && record.erased())
      erasedEntries_[record.table].insert(handleOf(id));
    if (record.kind != RecordKind::kEntity || record.owner == kNoRecord) return;
    touched_.insert(record.owner);
  }

  // Which block it is of in the file, and which now.
  void noteInsert(RecordId id) {
    const Record& record = records_[id];
    const bool isNew = isAdded(record), isGone = record.erased();
    if (isNew == isGone && (isNew || record.edits == kNoEdit)) return;
    if (storage_.typeName(record) != "INSERT") return;
    const auto blockOf = [&](const Record& state) {
      return storage_.fields(state).handle("block").value_or(0);
    };
    Record first = record;
    first.edits = kNoEdit;
    if (!isNew && !isGone && storage_.differInCommonOnly(first, record)) return;
    const Handle was = isNew ? 0 : blockOf(first), is = isGone ? 0 : blockOf(record);
    if (was == is) return;
    if (was != 0) inserts_[was].gone.insert(handleOf(id));
    if (is != 0) inserts_[is].added.push_back(handleOf(id));
  }

  // With an object goes its extension dictionary, and what that owns.
  void takeExtension(RecordId root) {
    struct Owned {
      Handle item, owner;
    };
    const auto extensionOf = [&](const Record& of) {
      return storage_.commonFields(of).handle("dictionary").value_or(0);
    };
    std::vector<Owned> left = {{extensionOf(records_[root]), handleOf(root)}};
    while (!left.empty()) {
      const auto [item, owner] = left.back();
      left.pop_back();
      const RecordId id = item == 0 ? kNoRecord : storage_.recordOf(item);
      if (id == kNoRecord || records_[id].kind != RecordKind::kObject) continue;
      if (storage_.commonFields(records_[id]).handle("owner") != owner) continue;
      if (!gone_.try_emplace(id, root).second) continue;
      left.push_back({extensionOf(records_[id]), item});
      if (storage_.typeOf(records_[id]).kind != ObjectKind::kDictionary) continue;
      for (const Handle each : listed(storage_.fields(records_[id]), "item")) left.push_back({each, item});
    }
  }

  static std::vector<Handle> listed(const Fields& fields, std::string_view name) {
    std::vector<Handle> handles;
    for (const Field& field : fields.all()) {
      const auto* reference = std::get_if<HandleReference>(&field.value);
      if (reference != nullptr && field.name == name) handles.push_back(reference->absolute(fields.own()));
    }
    return handles;
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
    if (storage_.version() < Version::kR2004) {
      linkEnds(storage_.entryOf(records_[block]), live);
    } else {
      listContent(storage_.entryOf(records_[block]), content);
    }
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

  void linkEnds(Handle entry, const std::vector<RecordId>& live) {
    const RecordId id = storage_.recordOf(entry);
    if (id == kNoRecord || records_[id].erased()) return;
    FieldChanges& changes = changesOf(id);
    changes.setHandle("first entity", live.empty() ? 0 : handleOf(live.front()));
    changes.setHandle("last entity", live.empty() ? 0 : handleOf(live.back()));
  }

  // The list that is there without the erased ones, and the new ones behind it: what is no record of the
  // block here stays in it, too.
  void listContent(Handle entry, const std::vector<RecordId>& content) {
    const RecordId id = storage_.recordOf(entry);
    if (id == kNoRecord || records_[id].erased()) return;
    std::unordered_set<Handle> gone;
    std::vector<Handle> added;
    for (const RecordId each : content) {
      if (!isLive(each)) gone.insert(handleOf(each));
      if (isLive(each) && isAdded(records_[each])) added.push_back(handleOf(each));
    }
    std::vector<Handle> now = listed(storage_.fields(records_[id]), "entity");
    std::erase_if(now, [&](Handle handle) { return gone.contains(handle); });
    now.insert(now.end(), added.begin(), added.end());
    FieldChanges& changes = changesOf(id);
    changes.set("entity count", Value(static_cast<std::int64_t>(now.size())));
    for (std::uint32_t i = 0; i < now.size(); ++i) changes.setHandle("entity", now[i], i);
  }

  // Since 2000 a block lists the references to it.
  void listInserts(Handle block, const Inserts& inserts) {
    const RecordId id = storage_.recordOf(block);
    if (id == kNoRecord || records_[id].erased() || storage_.version() < Version::kR2000) return;
    const Fields& fields = storage_.fields(records_[id]);
    std::vector<std::int64_t> marksThere, marks;
    for (const Field& field : fields.all())
      if (field.name == "insert mark") marksThere.push_back(std::get<std::int64_t>(field.value));
    std::vector<Handle> now;
    const std::vector<Handle> before = listed(fields, "insert");
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (inserts.gone.contains(before[i])) continue;
      now.push_back(before[i]);
      marks.push_back(i < marksThere.size() ? marksThere[i] : 1);
    }
    now.insert(now.end(), inserts.added.begin(), inserts.added.end());
    marks.resize(now.size(), 1);
    marks.push_back(0);
    FieldChanges& changes = changesOf(id);
    for (std::uint32_t i = 0; i < marks.size(); ++i) changes.set("insert mark", Value(marks[i]), i);
    for (std::uint32_t i = 0; i < now.size(); ++i) changes.setHandle("insert", now[i], i);
  }

  // Entries that are gone leave their places empty.
  void leaveTable(Table table, const std::unordered_set<Handle>& entries) {
    const RecordId id = storage_.control(table);
    if (id == kNoRecord) return;
    const Fields& fields = storage_.fields(records_[id]);
    for (const Field& field : fields.all()) {
      const auto* reference = std::get_if<HandleReference>(&field.value);
      if (reference == nullptr || field.name != "entry") continue;
      if (entries.contains(reference->absolute(fields.own())))
        changesOf(id).setHandle("entry", 0, field.index);
    }
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
  std::map<Table, std::unordered_set<Handle>> erasedEntries_;
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
