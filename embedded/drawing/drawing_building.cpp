// New records and blocks: the file's format knows how they are written.

#include <cmath>

#include "base/fold.h"
#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/drawing.h"

namespace cad {

// --- Records of tables -------------------------------------------------------------------------------------

base::Result<RecordId> Drawing::addTableRecord(Table table, std::wstring_view name) {
  if (name.empty()) return base::Failure{{}, L"A name must not be empty"};
  ChangeScope scope(*this);
  if (const RecordId existing = find(table, name); existing != kNoRecord) {
    if (!records_[existing].implied())
      return base::Failure{std::wstring(name), L"The drawing has a record of this name"};
    if (const base::Status status = materialise(existing); !status) return status.failure();
    return existing;
  }
  base::Result<RecordId> made = storage_->add(*this, table, name, kNoRecord);
  if (!made) scope.rollBack();
  return made;
}

base::Status Drawing::renameLayer(RecordId layer, std::wstring_view newName) {
  const RecordId other = find(Table::kLayer, newName);
  const NameId from = recordName(layer);
  if (newName.empty() || records_[layer].table != Table::kLayer || from == kNoName) {
    return base::Failure{std::wstring(newName), L"This is no name for a layer"};
  }
  if (names_.folded(from) == L"0") return base::Failure{L"0", L"The layer cannot be renamed"};
  if (other != kNoRecord && other != layer) {
    return base::Failure{std::wstring(newName), L"The drawing has a layer of this name"};
  }
  if (names_.text(from) == newName) return {};
  ChangeScope scope(*this);
  base::Status status = materialise(layer);
  if (status) status = storage_->renameLayer(*this, layer, newName);
  if (!status) scope.rollBack();
  return status;
}

// --- Linetypes ---------------------------------------------------------------------------------------------

base::Status Drawing::setDashes(RecordId linetype, std::span<const Dash> dashes) {
  constexpr std::size_t kMostDashes = 12;
  if (dashes.size() > kMostDashes) return base::Failure{{}, L"a linetype has at most 12 dashes"};
  ChangeScope scope(*this);
  base::Status status = materialise(linetype);
  for (const Dash& dash : dashes)
    if (status && dash.symbol) status = materialise(dash.symbol->style);
  if (!status) {
    scope.rollBack();
    return status;
  }
  const base::Result<EditId> edits = storage_->setDashes(*this, records_[linetype], dashes);
  if (!edits.ok()) {
    scope.rollBack();
    return edits.failure();
  }
  setEdits(linetype, edits.value());
  return {};
}

std::vector<Dash> Drawing::dashes(RecordId linetype) const {
  if (records_[linetype].implied()) return {};
  return storage_->dashes(*this, linetype);
}

bool Drawing::isShapeFile(RecordId style) const {
  return (integer(style, Property::kStandardFlags).value_or(0) & TextStyleFlag::kShapeFile) != 0;
}

base::Result<RecordId> Drawing::shapeFile(std::wstring_view file) {
  for (const RecordId style : tableRecords(Table::kTextStyle)) {
    const bool named = base::equalFolded(text(style, Property::kFontFile).value_or(std::wstring()), file);
    if (named && isShapeFile(style)) return style;
  }
  ChangeScope scope(*this);
  const base::Result<RecordId> made = storage_->add(*this, Table::kTextStyle, {}, kNoRecord);
  if (!made.ok()) {
    scope.rollBack();
    return made.failure();
  }
  const RecordId style = made.value();
  base::Status status = setInteger(style, Property::kStandardFlags, TextStyleFlag::kShapeFile);
  if (status) status = setText(style, Property::kFontFile, file);
  if (status) return style;
  scope.rollBack();
  return status.failure();
}

// --- Blocks ------------------------------------------------------------------------------------------------

base::Result<RecordId> Drawing::defineBlock(std::wstring_view name, std::span<const Shape> shapes) {
  return storage_->defineBlock(*this, name, {}, shapes);
}

base::Result<RecordId> Drawing::defineBlock(std::wstring_view name, const Drawing& source) {
  ChangeScope scope(*this);
  std::unique_ptr<BlockCopy> copy = storage_->copierFrom(*this, source);
  if (!copy) copy = std::make_unique<TypedBlockCopy>(*this, source);
  base::Result<RecordId> block = copy->copyModelSpace(name);
  if (const base::Status unchanged = source.storage().checkUnchanged(); block.ok() && !unchanged)
    block = unchanged.failure();
  if (!block.ok()) scope.rollBack();
  return block;
}

Point Drawing::basePoint(RecordId block) const { return storage_->basePoint(*this, block); }

base::Result<RecordId> Drawing::addInsert(RecordId space, const NewInsert& insert) {
  const NameId name = nameForReference(insert.block, Table::kBlock);
  if (name == kNoName) return base::Failure{{}, L"The drawing has no block of this name"};
  if (!std::isfinite(insert.scale) || insert.scale == 0 || !std::isfinite(insert.rotation))
    return base::Failure{names_.text(name), L"The scale must not be 0"};
  return storage_->addInsert(*this, space, insert);
}

base::Status Drawing::redefineContents(RecordId block, std::span<const BlockEntity> entities) {
  if (records_[block].kind != RecordKind::kBlockBegin || isLayoutSpace(block))
    return base::Failure{{}, L"A layout cannot be redefined"};
  if ((integer(block, Property::kStandardFlags).value_or(0) & BlockFlag::kExternal) != 0)
    return base::Failure{names_.text(recordName(block)), L"The block is an external reference"};
  ChangeScope scope(*this);
  base::Status status;
  const std::vector<RecordId> content = entitiesOf(block);
  for (const RecordId id : content)
    if (status && !records_[id].erased()) status = setErased(id, true);
  if (status) status = storage_->addEntities(*this, block, entities);
  if (!status) scope.rollBack();
  return status;
}

bool Drawing::isNamedByDimension(const std::wstring& block) {
  for (; namesTaken_ < records_.size(); ++namesTaken_) {
    const auto id = static_cast<RecordId>(namesTaken_);
    if (records_[id].kind != RecordKind::kEntity || !typeName(id).ends_with("DIMENSION")) continue;
    const NameId named = name(id, Property::kDimBlock);
    if (named != kNoName && find(Table::kBlock, named) == kNoRecord)
      missingBlocks_.insert(names_.folded(named));
  }
  return missingBlocks_.contains(base::upper(block));
}

base::Result<RecordId> Drawing::addDimensionBlock(std::span<const BlockEntity> entities) {
  std::wstring name;
  const auto isTaken = [&](Table table) { return find(table, std::wstring_view(name)) != kNoRecord; };
  do {
    name = L"*D" + std::to_wstring(++lastDimensionBlock_);
  } while (isTaken(Table::kBlock) || isTaken(Table::kBlockRecord) || isNamedByDimension(name));
  ChangeScope scope(*this);
  const base::Result<RecordId> block = storage_->defineBlock(*this, name, {}, {});
  base::Status status = block.ok() ? base::Status() : base::Status(block.failure());
  if (status) status = storage_->addEntities(*this, block.value(), entities);
  if (status) return block;
  scope.rollBack();
  return status.failure();
}

Geometry Drawing::geometry(RecordId entity) const {
  if (records_[entity].implied()) return {};
  return storage_->readGeometry(*this, entity);
}

}  // namespace cad
