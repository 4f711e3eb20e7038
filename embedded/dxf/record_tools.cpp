#include "embedded/dxf/record_tools.h"

namespace cad::dxf {

RecordGroups::RecordGroups(const DxfStorage& storage, const Record& record) {
  bytes_ = storage.bytes(record, scratch_);
  GroupCursor cursor(bytes_, storage.dialect());
  while (cursor.next()) groups_.push_back(cursor.group());
  while (plainCount_ < groups_.size() && groups_[plainCount_].code < 1000) ++plainCount_;
}

const Group* RecordGroups::find(int code) const {
  for (const Group& group : groups_)
    if (group.code == code) return &group;
  return nullptr;
}

std::uint32_t RecordGroups::plainEnd() const { return plainCount_ == 0 ? 0 : groups_[plainCount_ - 1].end; }

bool writesOwners(const Drawing& drawing, const DxfStorage& storage) {
  const Version version = storage.facts().version;
  if (version >= Version::kR2000) return true;
  const RecordId head = storage.tableHead(Table::kLayer);
  if (version == Version::kR12 || head == kNoRecord) return false;
  return RecordGroups(storage, drawing.record(head)).find(330) != nullptr;
}

std::wstring blockName(const Drawing& drawing, RecordId block) {
  const NameId name = drawing.name(block, Property::kName);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

std::optional<Handle> ownerHandleOf(const Drawing& drawing, RecordId block) {
  const RecordId entry = drawing.find(Table::kBlockRecord, std::wstring_view(blockName(drawing, block)));
  if (entry == kNoRecord) return std::nullopt;
  return drawing.handle(entry);
}

base::Status requireApplication(Drawing& drawing, std::wstring_view name) {
  if (drawing.find(Table::kAppId, name) != kNoRecord) return {};
  const base::Result<RecordId> added = drawing.addTableRecord(Table::kAppId, name);
  return added.ok() ? base::Status() : base::Status(added.failure());
}

base::Failure failure(std::wstring_view what, std::wstring_view reason) {
  return {std::wstring(what), std::wstring(reason)};
}

}  // namespace cad::dxf
