#include "siblings/KivDll/picked_values.h"

#include <cmath>
#include <optional>

#include "base/fold.h"
#include "base/paths.h"
#include "base/shape_fonts.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "siblings/KivDll/value_texts.h"
#include "siblings/common/dimension_variables.h"
#include "siblings/common/host_releases.h"
#include "siblings/common/insert_class.h"

namespace kiv {
namespace {

using Value = std::optional<std::wstring>;

Value nameOf(AcDbObjectId id) {
  const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
  AcString name;
  if (record.openStatus() != Acad::eOk || record->getName(name) != Acad::eOk) return std::nullopt;
  return std::wstring(name.kwszPtr());
}

AcDbObjectId textStyleOf(const AcDbEntity& entity) {
  if (const auto* text = AcDbText::cast(&entity)) return text->textStyle();
  if (const auto* text = AcDbMText::cast(&entity)) return text->textStyle();
  if (const auto* dimension = AcDbDimension::cast(&entity)) return dimension->dimtxsty();
  return {};
}

// A file without an extension is one of shapes. Big fonts go with shape fonts only.
std::vector<std::wstring> fontsOf(const AcDbTextStyleTableRecord& style) {
  const AcString typeface = typefaceOf(style);
  if (!typeface.isEmpty()) return {typeface.kwszPtr()};
  AcString file, bigFont;
  if (style.fileName(file) != Acad::eOk || file.isEmpty()) return {};
  std::wstring font = file.kwszPtr();
  if (base::splitPath(font).extension.empty()) font += L".shx";
  const bool hasBigFont = base::isShapeFont(font) && style.bigFontFileName(bigFont) == Acad::eOk;
  if (!hasBigFont || bigFont.isEmpty()) return {font};
  return {font, bigFont.kwszPtr()};
}

std::vector<std::wstring> textStyleValues(const AcDbEntity& entity) {
  const AcDbObjectId id = textStyleOf(entity);
  const Value name = nameOf(id);
  const AcDbTextStyleTableRecordPointer style(id, AcDb::kForRead);
  if (!name || style.openStatus() != Acad::eOk) return {};
  std::vector<std::wstring> values = fontsOf(*style.object());
  values.insert(values.begin(), *name);
  return values;
}

Value textHeight(const AcDbEntity& entity) {
  if (const auto* text = AcDbText::cast(&entity)) return numberText(text->height());
  if (const auto* text = AcDbMText::cast(&entity)) return numberText(text->textHeight());
  if (const auto* dimension = AcDbDimension::cast(&entity)) return numberText(dimension->dimtxt());
  return std::nullopt;
}

Value textAngle(const AcDbEntity& entity) {
  if (const auto* text = AcDbText::cast(&entity)) return degreesText(text->rotation());
  if (const auto* text = AcDbMText::cast(&entity)) return degreesText(text->rotation());
  if (const auto* dimension = AcDbDimension::cast(&entity)) return degreesText(dimension->textRotation());
  return std::nullopt;
}

Value widthFactorOfStyle(AcDbObjectId id) {
  const AcDbTextStyleTableRecordPointer style(id, AcDb::kForRead);
  if (style.openStatus() != Acad::eOk) return std::nullopt;
  return numberText(style->xScale());
}

Value widthFactor(const AcDbEntity& entity) {
  if (const auto* text = AcDbText::cast(&entity)) return numberText(text->widthFactor());
  if (const auto* text = AcDbMText::cast(&entity)) return widthFactorOfStyle(text->textStyle());
  return std::nullopt;
}

Value block(const AcDbEntity& entity) {
  if (!isInsertClass(*entity.isA())) return std::nullopt;
  Value name = nameOf(static_cast<const AcDbBlockReference&>(entity).blockTableRecord());
  // A name of the host's own making means nothing in another drawing.
  if (!name || name->starts_with(L'*')) return std::nullopt;
  return name;
}

Value dimStyle(const AcDbEntity& entity) {
  if (const auto* dimension = AcDbDimension::cast(&entity)) return nameOf(dimension->dimensionStyle());
  if (const auto* leader = AcDbLeader::cast(&entity)) return nameOf(leader->dimensionStyle());
  return std::nullopt;
}

Value dimensionVariable(const AcDbEntity& entity, std::wstring_view variable) {
  if (variable.empty()) return dimStyle(entity);
  const std::wstring name = base::upper(variable);
  const base::DimVariableInfo* info = base::findDimVariable(std::string(name.begin(), name.end()));
  if (info == nullptr) return std::nullopt;
  const DimensionReader& reader = kDimensionReaders[info->row];
  const auto read = entity.isKindOf(AcDbLeader::desc())      ? reader.ofLeader
                    : entity.isKindOf(AcDbDimension::desc()) ? reader.ofDimension
                                                             : nullptr;
  if (read == nullptr) return std::nullopt;
  const DimensionReading reading = read(entity);
  if (const auto* number = std::get_if<double>(&reading))
    return numberText(info->offer == base::DimOffer::kAsInteger ? std::trunc(*number) : *number);
  if (const auto* text = std::get_if<std::wstring>(&reading)) return *text;
  const AcDbObjectId id = std::get<AcDbObjectId>(reading);
  return id.isNull() ? std::wstring(L".") : nameOf(id);
}

Value linetype(const AcDbEntity& entity) {
  AcString name;
  if (entity.linetype(name) != Acad::eOk) return std::nullopt;
  return std::wstring(name.kwszPtr());
}

struct LayerState {
  bool display, lock, freeze, plot;
};

LayerState stateOf(const AcDbLayerTableRecord& layer) {
  return {!layer.isOff(), layer.isLocked(), layer.isFrozen(), layer.isPlottable()};
}

Value layerState(const AcDbEntity& entity, PickItem item) {
  const AcDbLayerTableRecordPointer layer(entity.layerId(), AcDb::kForRead);
  if (layer.openStatus() != Acad::eOk) return std::nullopt;
  const LayerState state = stateOf(*layer.object());
  switch (item) {
    case PickItem::kDisplay:
      return onOffText(state.display);
    case PickItem::kLock:
      return onOffText(state.lock);
    case PickItem::kFreeze:
      return onOffText(state.freeze);
    default:
      return onOffText(state.plot);
  }
}

std::vector<std::wstring> layerValues(const AcDbEntity& entity) {
  const AcDbLayerTableRecordPointer layer(entity.layerId(), AcDb::kForRead);
  const Value name = nameOf(entity.layerId());
  if (layer.openStatus() != Acad::eOk || !name) return {};
  const LayerState state = stateOf(*layer.object());
  const auto labelled = [](const wchar_t* label, const std::wstring& value) {
    return std::wstring(label) + L" " + value;
  };
  return {*name,
          colorText(layer->color().colorIndex()),
          nameOf(layer->linetypeObjectId()).value_or(L"Continuous"),
          labelled(L"表示", onOffText(state.display)),
          labelled(L"ロック", onOffText(state.lock)),
          labelled(L"フリーズ", onOffText(state.freeze)),
          labelled(L"印刷", onOffText(state.plot)),
          labelled(L"線幅値", lineWeightText(layer->lineWeight()).value_or(L"Default")),
          labelled(L"透過性", transparencyText(layer->transparency()))};
}

Value valueOf(const AcDbEntity& entity, PickItem item, std::wstring_view variable) {
  switch (item) {
    case PickItem::kLinetype:
      return linetype(entity);
    case PickItem::kColor:
      return colorText(entity.colorIndex());
    case PickItem::kTextHeight:
      return textHeight(entity);
    case PickItem::kTextAngle:
      return textAngle(entity);
    case PickItem::kWidthFactor:
      return widthFactor(entity);
    case PickItem::kBlock:
      return block(entity);
    case PickItem::kDimension:
      return dimensionVariable(entity, variable);
    case PickItem::kLineWeight:
      return lineWeightText(entity.lineWeight());
    case PickItem::kTransparency:
      return transparencyText(entity.transparency());
    case PickItem::kLinetypeScale:
      return numberText(entity.linetypeScale());
    case PickItem::kDisplay:
    case PickItem::kLock:
    case PickItem::kFreeze:
    case PickItem::kPlot:
      return layerState(entity, item);
    case PickItem::kLayer:
    case PickItem::kTextStyle:
    case PickItem::kEnd:
      break;  // more values than one, or none
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::wstring> pickedValues(const AcDbEntity& entity, PickItem item, std::wstring_view variable) {
  if (item == PickItem::kLayer) return layerValues(entity);
  if (item == PickItem::kTextStyle) return textStyleValues(entity);
  const Value value = valueOf(entity, item, variable);
  return value ? std::vector<std::wstring>{*value} : std::vector<std::wstring>{};
}

}  // namespace kiv
