// Blocks copied from one DXF file into another, group by group.

#include "embedded/drawing/block_copy.h"
#include "embedded/dxf/block_writer.h"
#include "embedded/dxf/record_translator.h"

namespace cad::dxf {
namespace {

bool isText(std::string_view type) {
  return type == "TEXT" || type == "MTEXT" || type == "ATTDEF" || type == "ATTRIB";
}

bool hasDimStyle(std::string_view type) {
  return type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE";
}

bool namesBlock(std::string_view type) { return type == "INSERT" || type == "DIMENSION"; }

class BlockCopier final : public BlockCopy {
 public:
  BlockCopier(Drawing& target, DxfStorage& to, const Drawing& source, const DxfStorage& from);

 protected:
  base::Status need(RecordId entity) override;
  base::Result<RecordId> copyEntities(const std::vector<RecordId>& entities, std::wstring_view name,
                                      const BlockHead& head) override;

 private:
  base::Status needNames(RecordId record);
  base::Status checkType(RecordId record) const;
  base::Status copyEntity(BlockWriter& writer, RecordId entity);
  void mapHandle(RecordId record);
  std::optional<Handle> newHandle(RecordId record);

  DxfStorage& to_;
  const DxfStorage& from_;
  Replacements replacements_{{}, blockNames_};
  RecordTranslator translator_;
};

BlockCopier::BlockCopier(Drawing& target, DxfStorage& to, const Drawing& source, const DxfStorage& from)
    : BlockCopy(target, source), to_(to), from_(from), translator_(from, to, replacements_) {}

base::Status BlockCopier::checkType(RecordId record) const {
  const std::string_view type = source_.typeName(record);
  const std::optional<Version> first = firstVersionOf(type);
  if (!first) return refusedType(type, L"Entities of this type are not copied between drawings");
  if (*first > to_.facts().version)
    return refusedType(type, L"The drawing's version cannot hold entities of this type");
  return {};
}

base::Status BlockCopier::needNames(RecordId record) {
  const std::string_view type = source_.typeName(record);
  const RecordGroups groups(from_, source_.record(record));
  base::Status status;
  for (const Group& group : groups.all()) {
    if (!status.ok()) return status;
    if (group.code == 8 || group.code == 1003)
      status = symbols_.need(Table::kLayer, from_.decode(group.value));
    else if (group.code == 6)
      status = symbols_.need(Table::kLinetype, from_.decode(group.value));
    else if (group.code == 7 && isText(type))
      status = symbols_.need(Table::kTextStyle, from_.decode(group.value));
    else if (group.code == 3 && hasDimStyle(type))
      status = needStyle(from_.decode(group.value));
    else if (group.code == 1001)
      status = symbols_.need(Table::kAppId, from_.decode(group.value));
    else if (group.code == 2 && namesBlock(type)) {
      const std::wstring name = from_.decode(group.value);
      const bool optional = type == "DIMENSION";
      if (!name.empty() && !(optional && source_.find(Table::kBlock, std::wstring_view(name)) == kNoRecord))
        status = needBlock(name);
    }
  }
  return status;
}

base::Status BlockCopier::need(RecordId entity) {
  base::Status status = checkType(entity);
  if (status.ok()) status = needNames(entity);
  if (status.ok() && hasDimStyle(source_.typeName(entity))) status = needDimVariables(entity);
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    if (status.ok()) status = checkType(sub);
    if (status.ok()) status = needNames(sub);
  }
  return status;
}

void BlockCopier::mapHandle(RecordId record) {
  const std::optional<Handle> old = source_.handle(record);
  if (!old) return;
  if (const std::optional<Handle> fresh = to_.takeHandle(target_)) replacements_.handles[*old] = *fresh;
}

std::optional<Handle> BlockCopier::newHandle(RecordId record) {
  const std::optional<Handle> old = source_.handle(record);
  const auto found = old ? replacements_.handles.find(*old) : replacements_.handles.end();
  return found != replacements_.handles.end() ? found->second : to_.takeHandle(target_);
}

base::Result<RecordId> BlockCopier::copyEntities(const std::vector<RecordId>& entities,
                                                 std::wstring_view name, const BlockHead& head) {
  for (const RecordId entity : entities) {
    mapHandle(entity);
    for (const RecordId sub : source_.subRecordsOf(entity)) mapHandle(sub);
  }
  BlockWriter writer(target_, to_);
  if (const base::Status status = writer.open(name, head); !status.ok()) return status.failure();
  for (const RecordId entity : entities)
    if (const base::Status status = copyEntity(writer, entity); !status.ok()) return status.failure();
  return writer.close();
}

base::Status BlockCopier::copyEntity(BlockWriter& writer, RecordId entity) {
  const std::optional<Handle> handle = newHandle(entity);
  RecordBuilder builder = writer.begin(source_.typeName(entity), handle);
  {
    const RecordGroups groups(from_, source_.record(entity));
    if (const base::Status status = translator_.translate(groups, builder); !status.ok()) return status;
  }
  const RecordId copy = writer.addEntity(builder);
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    RecordBuilder part = writer.beginSub(source_.typeName(sub), newHandle(sub), handle);
    const RecordGroups groups(from_, source_.record(sub));
    if (const base::Status status = translator_.translate(groups, part); !status.ok()) return status;
    writer.addSub(copy, part);
  }
  if (hasDimStyle(source_.typeName(entity))) copyDimVariables(entity, copy);
  return {};
}

}  // namespace

std::unique_ptr<BlockCopy> DxfStorage::copierFrom(Drawing& drawing, const Drawing& source) {
  const auto* from = dynamic_cast<const DxfStorage*>(&source.storage());
  if (from == nullptr) return nullptr;
  return std::make_unique<BlockCopier>(drawing, *this, source, *from);
}

}  // namespace cad::dxf
