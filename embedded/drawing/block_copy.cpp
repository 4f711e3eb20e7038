#include "embedded/drawing/block_copy.h"

#include <algorithm>
#include <iterator>

#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"

namespace cad {
namespace {

// Each level takes a part of the stack; drawings nest a few.
constexpr std::size_t kDeepestNesting = 200;

base::Failure failure(std::wstring_view what, const wchar_t* reason) { return {std::wstring(what), reason}; }

// The bits that mean the same in every drawing; the others tell of where a record came from.
std::int64_t portableFlags(Table table) {
  switch (table) {
    case Table::kNone:  // an entity
      return ~std::int64_t{0};
    case Table::kLayer:
      return LayerFlag::kFrozen | LayerFlag::kLocked;
    case Table::kTextStyle:
      return TextStyleFlag::kVertical;
    default:
      return 0;
  }
}

}  // namespace

base::Failure refusedType(std::string_view type, const wchar_t* reason) {
  return failure(std::wstring(type.begin(), type.end()), reason);
}

// --- Table records ----------------------------------------------------------------------------------------

base::Status SymbolCopier::need(Table table, std::wstring_view name) {
  if (name.empty() || target_.find(table, name) != kNoRecord) return {};
  const RecordId from = source_.find(table, name);
  // The record's own spelling: references may differ from it in case.
  const NameId spelled = from == kNoRecord ? kNoName : source_.name(from, Property::kName);
  const base::Result<RecordId> added = target_.addTableRecord(
      table, spelled == kNoName ? name : std::wstring_view(source_.names().text(spelled)));
  if (!added.ok()) return added.failure();
  if (from == kNoRecord) return {};
  if (const base::Status status = needNamed(from); !status.ok()) return status;
  copyValues(from, added.value());
  if (table == Table::kLinetype) copyDashes(from, added.value());
  return {};
}

base::Status SymbolCopier::needNamed(RecordId from) {
  base::Status status;
  for (const PropertyInfo& info : allProperties()) {
    if (!status.ok()) break;
    if (info.copied && info.names != Table::kNone)
      status = need(info.names, source_.text(from, info.property).value_or(std::wstring()));
  }
  return status;
}

void SymbolCopier::copyValues(RecordId from, RecordId to) {
  for (const PropertyInfo& info : allProperties())
    if (info.copied) copyValue(from, to, info.property);
}

void SymbolCopier::copyValue(RecordId from, RecordId to, Property property) {
  base::Status status;
  switch (propertyInfo(property).type) {
    case PropertyType::kInteger:
      if (auto value = source_.integer(from, property)) {
        if (property == Property::kStandardFlags) *value &= portableFlags(source_.record(from).table);
        status = target_.setInteger(to, property, *value);
      }
      break;
    case PropertyType::kReal:
      if (const auto value = source_.real(from, property)) status = target_.setReal(to, property, *value);
      break;
    case PropertyType::kText:
    case PropertyType::kName:
      if (const auto value = source_.text(from, property)) status = target_.setText(to, property, *value);
      break;
  }
  static_cast<void>(status);
}

void SymbolCopier::copyDashes(RecordId from, RecordId to) {
  std::vector<Dash> dashes = source_.dashes(from);
  for (Dash& dash : dashes)
    if (dash.symbol && !copySymbol(*dash.symbol)) dash.symbol.reset();
  static_cast<void>(target_.setDashes(to, dashes));
}

bool SymbolCopier::copySymbol(DashSymbol& symbol) {
  if (!target_.facts().linetypesHoldSymbols()) return false;
  if (source_.isShapeFile(symbol.style)) {
    const auto file = target_.shapeFile(source_.text(symbol.style, Property::kFontFile).value_or(L""));
    if (file.ok()) symbol.style = file.value();
    return file.ok();
  }
  const NameId name = source_.name(symbol.style, Property::kName);
  if (name == kNoName) return false;
  const std::wstring& style = source_.names().text(name);
  if (!need(Table::kTextStyle, style).ok()) return false;
  symbol.style = target_.find(Table::kTextStyle, style);
  return symbol.style != kNoRecord;
}

// --- Blocks ------------------------------------------------------------------------------------------------

BlockCopy::BlockCopy(Drawing& target, const Drawing& source)
    : target_(target), source_(source), symbols_(target, source) {}

base::Result<RecordId> BlockCopy::copyModelSpace(std::wstring_view name) {
  name_ = base::upper(name);
  return copyBlock(source_.modelSpace(), name);
}

base::Result<RecordId> BlockCopy::copyBlock(RecordId block, std::wstring_view name) {
  std::vector<RecordId> entities;
  std::ranges::copy_if(source_.entitiesOf(block), std::back_inserter(entities),
                       [&](RecordId id) { return !source_.record(id).erased(); });
  BlockHead head{source_.basePoint(block)};
  // Everything that is named comes first: its records may not stand inside this block.
  for (const RecordId entity : entities) {
    if (const base::Status status = need(entity); !status.ok()) return status.failure();
    if (source_.typeName(entity) == "ATTDEF") head.hasAttributes = true;
  }
  return copyEntities(entities, name, head);
}

base::Status BlockCopy::needBlock(std::wstring_view name) {
  const std::wstring folded = base::upper(name);
  if (blockNames_.contains(folded)) return {};
  if (folded == name_) return failure(name, L"The block would contain itself");
  const RecordId block = source_.find(Table::kBlock, name);
  if (block == kNoRecord) return failure(name, L"A block that is referred to does not exist");
  std::wstring here = source_.text(block, Property::kName).value_or(std::wstring());
  if (name.front() == L'*') {
    here = freeName(name);
  } else if (const RecordId own = target_.find(Table::kBlock, name); own != kNoRecord) {
    if (contains(own, name_)) return failure(name, L"The block would contain itself");
    blockNames_[folded] = here;
    return {};
  }
  if (open_.size() >= kDeepestNesting) return failure(name, L"The blocks are nested too deeply");
  if (!open_.insert(block).second) return failure(name, L"A block contains itself");
  const base::Result<RecordId> copied = copyBlock(block, here);
  open_.erase(block);
  if (!copied.ok()) return copied.failure();
  blockNames_[folded] = here;
  return {};
}

bool BlockCopy::contains(RecordId block, std::wstring_view name) const {
  std::set<RecordId> seen = {block};
  std::vector<RecordId> open = {block};
  while (!open.empty()) {
    const RecordId next = open.back();
    open.pop_back();
    for (const RecordId id : target_.entitiesOf(next)) {
      if (target_.record(id).erased() || target_.typeName(id) != "INSERT") continue;
      const NameId used = target_.name(id, Property::kBlockName);
      if (used == kNoName) continue;
      if (target_.names().folded(used) == name) return true;
      const RecordId inner = target_.find(Table::kBlock, used);
      if (inner != kNoRecord && seen.insert(inner).second) open.push_back(inner);
    }
  }
  return false;
}

std::wstring BlockCopy::freeName(std::wstring_view anonymous) {
  std::wstring prefix(anonymous.substr(0, 2));
  int& number = freeNumbers_[prefix];
  std::wstring name;
  do {
    name = prefix + std::to_wstring(++number);
  } while (target_.find(Table::kBlock, std::wstring_view(name)) != kNoRecord);
  return name;
}

base::Status BlockCopy::needStyle(std::wstring_view name) {
  if (target_.find(Table::kDimStyle, name) != kNoRecord) return {};
  if (const base::Status status = symbols_.need(Table::kDimStyle, name); !status.ok()) return status;
  const RecordId from = source_.find(Table::kDimStyle, name);
  const RecordId to = target_.find(Table::kDimStyle, name);
  if (from == kNoRecord || to == kNoRecord) return {};
  if (const base::Status status = needDimVariables(from); !status.ok()) return status;
  copyDimVariables(from, to);
  return {};
}

base::Status BlockCopy::needDimVariables(RecordId record) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (!info.isName()) continue;
    const std::optional<Variable> value = source_.dimVariable(record, info);
    const auto* name = value ? std::get_if<std::wstring>(&*value) : nullptr;
    if (name == nullptr || name->empty()) continue;
    const Table table = tableOf(info.type);
    if (table == Table::kBlock && source_.find(table, std::wstring_view(*name)) == kNoRecord) continue;
    const base::Status status = table == Table::kBlock ? needBlock(*name) : symbols_.need(table, *name);
    if (!status.ok()) return status;
  }
  return {};
}

void BlockCopy::copyDimVariables(RecordId from, RecordId to) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (!info.existsIn(target_.facts().version)) continue;
    // A variable whose name has no counterpart here keeps its default.
    if (const std::optional<Variable> value = source_.dimVariable(from, info))
      static_cast<void>(target_.setDimVariable(to, info, *value));
  }
}

base::Status TypedBlockCopy::need(RecordId entity) {
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    if (source_.typeName(sub) == "ATTRIB")
      return refusedType("ATTRIB", L"Entities of this type are not copied between drawings of these formats");
  }
  base::Status status = symbols_.needNamed(entity);
  if (status.ok() && source_.typeName(entity) == "INSERT")
    status = needBlock(source_.text(entity, Property::kBlockName).value_or(std::wstring()));
  return status;
}

base::Result<RecordId> TypedBlockCopy::copyEntities(const std::vector<RecordId>& entities,
                                                    std::wstring_view name, const BlockHead& head) {
  base::Result<RecordId> block = target_.storage().defineBlock(target_, name, head, {});
  for (const RecordId entity : entities) {
    if (!block.ok()) break;
    if (const base::Status status = copyEntity(block.value(), entity); !status.ok()) return status.failure();
  }
  return block;
}

base::Status TypedBlockCopy::copyEntity(RecordId block, RecordId entity) {
  Geometry geometry = source_.geometry(entity);
  if (geometry.partial)
    return refusedType(source_.typeName(entity),
                       L"Its width or thickness is not copied between these formats");
  if (auto* insert = std::get_if<InsertGeometry>(&geometry.shape)) {
    const std::wstring name = base::upper(source_.text(entity, Property::kBlockName).value_or(L""));
    insert->block = target_.find(Table::kBlock, std::wstring_view(blockNames_[name]));
  }
  const auto made = target_.storage().addEntity(target_, block, source_.typeName(entity), geometry);
  if (!made.ok()) return made.failure();
  symbols_.copyValues(entity, made.value());
  return {};
}

}  // namespace cad
