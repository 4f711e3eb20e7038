#include "embedded/drawing/symbol_copier.h"

namespace cad {
namespace {

constexpr std::int64_t kFrozenOrLocked = 1 | 4;

}  // namespace

void SymbolCopier::copyValue(RecordId from, RecordId to, Property property) {
  base::Status status;
  switch (propertyInfo(property).type) {
    case PropertyType::kInteger:
      if (const auto value = source_.integer(from, property))
        status = target_.setInteger(to, property, *value);
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

base::Status SymbolCopier::copyLayer(RecordId from, RecordId to) {
  if (const auto flags = source_.integer(from, Property::kStandardFlags)) {
    const base::Status status = target_.setInteger(to, Property::kStandardFlags, *flags & kFrozenOrLocked);
    if (!status.ok()) return status;
  }
  const NameId linetype = source_.name(from, Property::kLayerLinetype);
  if (linetype != kNoName) {
    const base::Status status = need(Table::kLinetype, source_.names().text(linetype));
    if (!status.ok()) return status;
  }
  copyValue(from, to, Property::kLayerColor);
  copyValue(from, to, Property::kLayerLinetype);
  copyValue(from, to, Property::kLineWeight);
  copyValue(from, to, Property::kLayerPlottable);
  return {};
}

void SymbolCopier::copyLinetype(RecordId from, RecordId to) {
  copyValue(from, to, Property::kDescription);
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

void SymbolCopier::copyTextStyle(RecordId from, RecordId to) {
  for (const Property property :
       {Property::kFixedHeight, Property::kStyleWidthFactor, Property::kStyleOblique, Property::kFontFile,
        Property::kBigFontFile, Property::kTypeface, Property::kFontFlags})
    copyValue(from, to, property);
}

base::Status SymbolCopier::need(Table table, std::wstring_view name) {
  if (name.empty() || target_.find(table, name) != kNoRecord) return {};
  const RecordId from = source_.find(table, name);
  // The record's own spelling: references may differ from it in case.
  const NameId spelled = from == kNoRecord ? kNoName : source_.name(from, Property::kName);
  const base::Result<RecordId> added = target_.addTableRecord(
      table, spelled == kNoName ? name : std::wstring_view(source_.names().text(spelled)));
  if (!added.ok()) return added.failure();
  if (from == kNoRecord) return {};
  if (table == Table::kLayer) return copyLayer(from, added.value());
  if (table == Table::kLinetype) copyLinetype(from, added.value());
  if (table == Table::kTextStyle) copyTextStyle(from, added.value());
  return {};
}

}  // namespace cad
