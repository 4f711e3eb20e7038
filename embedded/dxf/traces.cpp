#include "embedded/dxf/traces.h"

#include "base/fold.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/record_regions.h"

namespace cad::dxf {
namespace {

constexpr std::string_view kExtension = "{ACAD_XDICTIONARY", kReferences = "{BLKREFS";
constexpr int kBracket = 102, kReference = 331, kSoftOwner = 350, kHardOwner = 360, kExtendedHandle = 1005;

bool isHandle(int code) {
  return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481 ||
         code == kExtendedHandle;
}

bool isEntity(RecordKind kind) { return kind == RecordKind::kEntity || kind == RecordKind::kSubEntity; }

}  // namespace

Traces::Traces(const DxfStorage& storage, std::span<const Record> records)
    : storage_(storage), records_(records) {
  for (const Record& record : records)
    if (isEntity(record.kind) && (record.flags & (Record::kErased | Record::kAdded)) != 0) note(record);
  if (!extensions_.empty()) findGoing();
}

void Traces::note(const Record& record) {
  const bool isAdded = (record.flags & Record::kAdded) != 0;
  if (isAdded && record.erased()) return;
  if (storage_.typeName(record) == "INSERT") {
    const std::optional<Handle> handle = storage_.handle(record);
    const StoredValue block = storage_.property(record, Property::kBlockName);
    const auto* name = std::get_if<std::string>(&block);
    if (handle && !isAdded) erased_.insert(*handle);
    if (handle && isAdded && name != nullptr) added_[base::upper(storage_.decode(*name))].push_back(*handle);
  }
  if (isAdded) return;
  std::string scratch;
  const std::string_view bytes = storage_.bytes(record, scratch);
  if (bytes.find(kExtension) == bytes.npos) return;
  bool inside = false;
  for (GroupCursor cursor(bytes, storage_.dialect()); cursor.next();) {
    const Group& group = cursor.group();
    if (group.code == kBracket) inside = trimmed(group.value) == kExtension;
    if (!inside || group.code != kHardOwner) continue;
    if (const auto handle = handleValue(group)) extensions_.push_back(*handle);
  }
}

// --- Objects -----------------------------------------------------------------------------------------------

void Traces::findGoing() {
  for (RecordId id = 0; id < records_.size(); ++id) {
    if (records_[id].kind != RecordKind::kObject || records_[id].erased()) continue;
    if (const auto handle = storage_.handle(records_[id])) objects_.try_emplace(*handle, id);
  }
  Trees trees;
  for (const Handle extension : extensions_)
    if (const auto found = objects_.find(extension); found != objects_.end()) takeTree(found->second, trees);
  const std::unordered_set<RecordId> needed = neededTrees(trees);
  for (const auto& [object, root] : trees)
    if (!needed.contains(root)) going_.insert(object);
}

void Traces::takeTree(RecordId root, Trees& trees) const {
  std::vector<RecordId> open = {root};
  while (!open.empty()) {
    const RecordId object = open.back();
    open.pop_back();
    if (!trees.try_emplace(object, root).second) continue;
    const std::vector<RecordId> owned = ownedBy(records_[object]);
    open.insert(open.end(), owned.begin(), owned.end());
  }
}

std::vector<RecordId> Traces::ownedBy(const Record& object) const {
  const bool isDictionary = storage_.typeName(object) == "DICTIONARY";
  std::vector<RecordId> owned;
  std::string scratch;
  for (GroupCursor cursor(storage_.bytes(object, scratch), storage_.dialect()); cursor.next();) {
    const Group& group = cursor.group();
    if (group.code != kHardOwner && !(isDictionary && group.code == kSoftOwner)) continue;
    const auto handle = handleValue(group);
    const auto found = handle ? objects_.find(*handle) : objects_.end();
    if (found != objects_.end()) owned.push_back(found->second);
  }
  return owned;
}

// Those of which something outside refers to an object: all of such a tree stays.
std::unordered_set<RecordId> Traces::neededTrees(const Trees& trees) const {
  std::unordered_set<RecordId> needed;
  std::string scratch;
  for (RecordId id = 0; id < records_.size() && !trees.empty(); ++id) {
    const Record& record = records_[id];
    if (record.erased() || record.implied() || record.kind == RecordKind::kFrame) continue;
    const auto own = trees.find(id);
    for (GroupCursor cursor(storage_.bytes(record, scratch), storage_.dialect()); cursor.next();) {
      if (!isHandle(cursor.group().code)) continue;
      const auto handle = handleValue(cursor.group());
      const auto object = handle ? objects_.find(*handle) : objects_.end();
      const auto tree = object == objects_.end() ? trees.end() : trees.find(object->second);
      if (tree != trees.end() && (own == trees.end() || own->second != tree->second))
        needed.insert(tree->second);
    }
  }
  return needed;
}

// --- References to blocks ----------------------------------------------------------------------------------

std::optional<std::string> Traces::entryOf(RecordId block) const {
  const Record& record = records_[block];
  if (record.table != Table::kBlockRecord || record.kind != RecordKind::kTableRecord || record.implied())
    return std::nullopt;
  if (erased_.empty() && added_.empty()) return std::nullopt;
  std::string scratch, entry;
  const std::string_view bytes = storage_.bytes(record, scratch);
  if (bytes.find(kReferences) == bytes.npos) return std::nullopt;
  GroupWriter news(storage_.dialect());
  const StoredValue value = storage_.property(record, Property::kName);
  if (const auto* name = std::get_if<std::string>(&value)) {
    const auto found = added_.find(base::upper(storage_.decode(*name)));
    if (found != added_.end())
      for (const Handle handle : found->second) news.handle(kReference, handle);
  }
  std::uint32_t from = 0;
  const auto keepUpTo = [&](std::uint32_t to) { entry += bytes.substr(from, to - from); };
  bool inside = false;
  for (GroupCursor cursor(bytes, storage_.dialect()); cursor.next();) {
    const Group& group = cursor.group();
    if (group.code == kBracket) {
      if (inside) keepUpTo(group.begin), from = group.begin, entry += news.take();
      inside = trimmed(group.value) == kReferences;
    } else if (inside && group.code == kReference) {
      const auto handle = handleValue(group);
      if (handle && erased_.contains(*handle)) keepUpTo(group.begin), from = group.end;
    }
  }
  entry += bytes.substr(from);
  return entry;
}

}  // namespace cad::dxf
