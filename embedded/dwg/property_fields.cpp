#include "embedded/dwg/property_fields.h"

namespace cad::dwg {
namespace {

using P = Property;
using V = Version;
using F = FieldForm;

constexpr PropertyField kCommon[] = {
    {P::kLayer, "layer", F::kReference},
    {P::kLinetype, "linetype", F::kSpecial},
    {P::kColorIndex, "color", F::kSpecial},
    {P::kLineWeight, "lineweight", F::kSpecial, V::kR2000},
    {P::kTransparency, "color", F::kSpecial, V::kR2010},
    {P::kLinetypeScale, "linetype scale", F::kReal},
    {P::kInvisible, "invisible", F::kInteger},
};

struct TypedField {
  std::string_view types;  // separated by blanks
  PropertyField field;
};

constexpr std::string_view kTexts = "TEXT ATTDEF ATTRIB", kAllTexts = "TEXT ATTDEF ATTRIB MTEXT";
constexpr std::string_view kDimensions = "DIMENSION ARC_DIMENSION LARGE_RADIAL_DIMENSION";

constexpr TypedField kEntities[] = {
    {kAllTexts, {P::kTextStyle, "style", F::kReference}},
    {kAllTexts, {P::kTextHeight, "height", F::kReal}},
    {kTexts, {P::kRotation, "rotation", F::kAngle}},
    {"MTEXT", {P::kRotation, "x axis", F::kSpecial}},
    {kTexts, {P::kWidthFactor, "width factor", F::kReal}},
    {kAllTexts, {P::kTextString, "text", F::kText}},
    {kDimensions, {P::kDimStyle, "dimension style", F::kReference}},
    {kDimensions, {P::kTextRotation, "text rotation", F::kAngle}},
    {kDimensions, {P::kDimText, "text", F::kText}},
    {kDimensions, {P::kDimBlock, "block", F::kBlock}},
    {"LEADER TOLERANCE", {P::kDimStyle, "dimension style", F::kReference}},
    {"ATTDEF ATTRIB", {P::kName, "tag", F::kText}},
    {"ATTDEF", {P::kStandardFlags, "flags", F::kInteger}},
    {"INSERT ACAD_TABLE", {P::kBlockName, "block", F::kBlock}},
    {"INSERT", {P::kRotation, "rotation", F::kAngle}},
};

constexpr TypedField kRecords[] = {
    {"LAYER LTYPE STYLE DIMSTYLE APPID", {P::kName, "name", F::kText}},
    {"BLOCK BLOCK_RECORD VIEW UCS VPORT", {P::kName, "name", F::kSpecial}},
    {"LAYER LTYPE STYLE DIMSTYLE APPID VIEW UCS VPORT", {P::kStandardFlags, "", F::kSpecial}},
    {"BLOCK", {P::kStandardFlags, "", F::kEntry}},
    {"LAYER", {P::kLayerColor, "color", F::kSpecial}},
    {"LAYER", {P::kLayerLinetype, "linetype", F::kReference}},
    {"LAYER", {P::kLayerPlottable, "flags", F::kSpecial, V::kR2000}},
    {"LAYER", {P::kLineWeight, "flags", F::kSpecial, V::kR2000}},
    {"LAYER", {P::kTransparency, "", F::kSpecial, V::kR2010}},
    {"STYLE", {P::kFontFile, "font", F::kText}},
    {"STYLE", {P::kBigFontFile, "big font", F::kText}},
    {"STYLE", {P::kTypeface, "", F::kSpecial}},
    {"STYLE", {P::kFontFlags, "", F::kSpecial}},
    {"STYLE", {P::kFixedHeight, "height", F::kReal}},
    {"STYLE", {P::kStyleWidthFactor, "width factor", F::kReal}},
    {"STYLE", {P::kStyleOblique, "oblique angle", F::kAngle}},
    {"LTYPE", {P::kDescription, "description", F::kText}},
    {"BLOCK", {P::kDescription, "description", F::kEntry, V::kR2000}},
};

bool inList(std::string_view list, std::string_view word) {
  while (!list.empty()) {
    const std::size_t end = list.find(' ');
    if (list.substr(0, end) == word) return true;
    if (end == std::string_view::npos) return false;
    list.remove_prefix(end + 1);
  }
  return false;
}

template <std::size_t N>
const PropertyField* findTyped(const TypedField (&rows)[N], std::string_view type, Property property) {
  for (const TypedField& row : rows)
    if (row.field.property == property && inList(row.types, type)) return &row.field;
  return nullptr;
}

const PropertyField* findCommon(RecordKind kind, Property property) {
  const bool block = kind == RecordKind::kBlockBegin || kind == RecordKind::kBlockEnd;
  const bool entity = kind == RecordKind::kEntity || kind == RecordKind::kSubEntity;
  if (!entity && !(block && property == P::kLayer)) return nullptr;
  for (const PropertyField& field : kCommon)
    if (field.property == property) return &field;
  return nullptr;
}

}  // namespace

const PropertyField* findField(RecordKind kind, std::string_view type, Property property) {
  if (const PropertyField* common = findCommon(kind, property)) return common;
  switch (kind) {
    case RecordKind::kEntity:
    case RecordKind::kSubEntity:
      return findTyped(kEntities, type, property);
    case RecordKind::kBlockBegin:
    case RecordKind::kTableRecord:
      return findTyped(kRecords, type, property);
    default:
      return nullptr;
  }
}

}  // namespace cad::dwg
