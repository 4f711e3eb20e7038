#include "embedded/dxf/block_writer.h"

#include "embedded/dxf/group_writer.h"

namespace cad::dxf {
namespace {

constexpr std::int64_t kAnonymous = 1, kHasAttributes = 2, kExternal = 4;

}  // namespace

RecordBuilder BlockWriter::begin(std::string_view type, std::optional<Handle> handle) const {
  return beginSub(type, handle, owner_);
}

RecordBuilder BlockWriter::beginSub(std::string_view type, std::optional<Handle> handle,
                                    std::optional<Handle> main) const {
  RecordBuilder builder(storage_);
  builder.stored(0, type);
  if (handle) builder.handle(5, *handle);
  if (main && writesOwners(drawing_, storage_)) builder.handle(330, *main);
  builder.subclass("AcDbEntity");
  return builder;
}

RecordId BlockWriter::addEntity(RecordBuilder& builder, SignatureId signature) {
  return storage_.insert(
      drawing_, {RecordKind::kEntity, Table::kNone, before_, block_, builder.take(), kNoRecord, signature});
}

RecordId BlockWriter::addSub(RecordId main, RecordBuilder& builder) {
  return storage_.insert(drawing_, {RecordKind::kSubEntity, Table::kNone, before_, main, builder.take()});
}

base::Status BlockWriter::open(std::wstring_view name, const BlockHead& head) {
  block_ = drawing_.find(Table::kBlock, name);
  if (block_ == kNoRecord) return openNew(name, head);
  if (drawing_.isLayoutSpace(block_)) return failure(name, L"A layout cannot be redefined");
  return empty(head);
}

base::Status BlockWriter::resume(RecordId block) {
  block_ = block;
  owner_ = ownerHandleOf(drawing_, block);
  before_ = drawing_.endOfBlock(block);
  if (before_ == kNoRecord) return failure(blockName(drawing_, block), L"The block has no end");
  return {};
}

base::Status BlockWriter::openNew(std::wstring_view name, const BlockHead& head) {
  if (name.empty()) return failure(name, L"A name must not be empty");
  isNew_ = true;
  if (storage_.facts().version >= Version::kR13) {
    base::Result<RecordId> entry = drawing_.find(Table::kBlockRecord, name);
    if (entry.value() == kNoRecord) entry = drawing_.addTableRecord(Table::kBlockRecord, name);
    if (!entry.ok()) return entry.failure();
    owner_ = drawing_.handle(entry.value());
  }
  const base::Result<RecordId> end = storage_.endOfSection(drawing_, Section::kBlocks);
  if (!end.ok()) return end.failure();
  before_ = end.value();
  std::optional<Handle> handle;
  if (storage_.facts().version >= Version::kR13) handle = takeHandle();
  RecordBuilder builder = begin("BLOCK", handle);
  const bool anonymous = name.front() == L'*';
  builder.stored(8, "0").subclass("AcDbBlockBegin").text(2, name);
  builder.integer(70, (anonymous ? kAnonymous : 0) | (head.hasAttributes ? kHasAttributes : 0));
  builder.point(10, head.base).text(3, name).stored(1, {});
  block_ =
      storage_.insert(drawing_, {RecordKind::kBlockBegin, Table::kBlock, before_, kNoRecord, builder.take()});
  return {};
}

base::Status BlockWriter::empty(const BlockHead& head) {
  if (const base::Status status = resume(block_); !status.ok()) return status;
  std::int64_t flags = 0;
  {
    const RecordGroups groups(storage_, drawing_.record(block_));
    if (const Group* group = groups.find(70)) flags = integerValue(*group, storage_.dialect()).value_or(0);
  }
  if ((flags & kExternal) != 0)
    return failure(blockName(drawing_, block_), L"The block is an external reference");
  const std::vector<RecordId> content = drawing_.entitiesOf(block_);
  for (const RecordId id : content) {
    if (drawing_.record(id).erased()) continue;
    if (const base::Status status = drawing_.setErased(id, true); !status.ok()) return status;
  }
  setInteger(70, (flags & ~kHasAttributes) | (head.hasAttributes ? kHasAttributes : 0));
  setReal(10, head.base.x);
  setReal(20, head.base.y);
  setReal(30, head.base.z);
  return {};
}

void BlockWriter::setReal(int code, double value) {
  const Record& record = drawing_.record(block_);
  const RecordGroups groups(storage_, record);
  const Group* group = groups.find(code);
  if (group == nullptr || realValue(*group, storage_.dialect()) == value) return;
  drawing_.setEdits(block_, storage_.withValue(record, *group, realBytes(storage_.dialect(), value)));
}

void BlockWriter::setInteger(int code, std::int64_t value) {
  const Record& record = drawing_.record(block_);
  const RecordGroups groups(storage_, record);
  const Group* group = groups.find(code);
  if (group == nullptr || integerValue(*group, storage_.dialect()) == value) return;
  drawing_.setEdits(block_, storage_.withValue(record, *group,
                                               integerBytes(storage_.dialect(), code, value, group->value)));
}

base::Result<RecordId> BlockWriter::close() {
  if (!isNew_) return block_;
  std::optional<Handle> handle;
  if (storage_.facts().version >= Version::kR13) handle = takeHandle();
  RecordBuilder builder = begin("ENDBLK", handle);
  builder.stored(8, "0").subclass("AcDbBlockEnd");
  storage_.insert(drawing_, {RecordKind::kBlockEnd, Table::kNone, before_, block_, builder.take()});
  return block_;
}

Point DxfStorage::basePoint(const Drawing& drawing, RecordId block) const {
  if (block == drawing.modelSpace()) return headerPoint(drawing, "INSBASE").value_or(Point{});
  const RecordGroups groups(*this, drawing.record(block));
  const auto coordinate = [&](int code) {
    const Group* group = groups.find(code);
    return group == nullptr ? 0.0 : realValue(*group, dialect_).value_or(0);
  };
  return {coordinate(10), coordinate(20), coordinate(30)};
}

}  // namespace cad::dxf
