#include "embedded/graphics/dimensions/entities.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/fold.h"
#include "embedded/drawing/plain_text.h"
#include "embedded/drawing/transparency.h"

namespace cad {
namespace {

using Role = DimPart::Role;

constexpr std::int16_t kByBlock = 0, kByLayer = 256, kWeightByLayer = -1;

bool isText(const BlockEntity& entity) { return std::holds_alternative<TextGeometry>(entity.geometry.shape); }

// What single-line texts write for the characters of dimensions; stacks become fractions with a slash.
std::wstring asLine(std::wstring_view value) {
  std::wstring line;
  for (const wchar_t c : plainText(value)) {
    if (c == L'\u00B0') {
      line += L"%%d";
    } else if (c == L'\u2205' || c == L'\u00D8') {
      line += L"%%c";
    } else if (c == L'\u00B1') {
      line += L"%%p";
    } else {
      line += c == L'\n' ? L' ' : c;
    }
  }
  return line;
}

// The name as the drawing has it; itself when there is none.
std::wstring spelled(const Drawing& drawing, Table table, std::wstring_view name) {
  const RecordId record = drawing.find(table, name);
  return record == kNoRecord ? std::wstring(name) : drawing.names().text(drawing.recordName(record));
}

class EntityMaker {
 public:
  EntityMaker(const Drawing& drawing, RecordId dimension, const DimSource& source,
              const std::vector<BlockEntity>& kept)
      : drawing_(drawing), source_(source), kept_(kept), axes_(axesOf(source.normal)) {
    const auto nameOf = [&](NameId name) {
      return name == kNoName ? std::wstring() : drawing.names().text(name);
    };
    layer_ = nameOf(drawing.name(dimension, Property::kLayer));
    pointLayer_ = definitionPointLayer(drawing);
    const std::wstring linetype = nameOf(drawing.name(dimension, Property::kLinetype));
    // A linetype of the dimension's own shows only in parts that take theirs from it.
    if (!linetype.empty() && !base::equalFolded(linetype, L"ByLayer"))
      otherLinetype_ = spelled(drawing, Table::kLinetype, L"ByBlock");
    const bool takesTransparency = drawing.facts().version >= Version::kR2004;
    // Not every release of the host writes it; a block stays as its writer had it.
    const auto none = [](const BlockEntity& entity) { return entity.transparency == 0; };
    if (takesTransparency && (kept.empty() || !std::ranges::all_of(kept, none)))
      transparency_ = kTransparencyByBlock;
  }

  BlockEntity make(const DimPart& part) {
    BlockEntity entity;
    entity.geometry.normal = source_.normal;
    entity.layer = part.role == Role::kDefinitionPoint ? pointLayer_ : layer_;
    entity.color = colorOf(part.role);
    entity.transparency = transparency_;
    std::visit([&](const auto& shape) { put(shape, entity); }, part.shape);
    entity.lineWeight = weightOf(part.role, entity);
    entity.linetype = linetypeOf(part.role, entity);
    entity.trueColor = trueColorOf(entity);
    return entity;
  }

 private:
  const DimVariables& variables() const { return source_.variables; }

  Point own(Vec at) const { return {at.x, at.y, source_.elevation}; }
  Point world(Vec at) const { return axes_.world(own(at)); }

  // --- Looks by role ---

  std::int16_t colorOf(Role role) const {
    switch (role) {
      case Role::kDefinitionPoint:
        return kByBlock;
      case Role::kText:
        return number(dimRow("DIMCLRT"));
      case Role::kExtensionLine1:
      case Role::kExtensionLine2:
      case Role::kCentreMark:
        return number(dimRow("DIMCLRE"));
      default:
        return number(dimRow("DIMCLRD"));
    }
  }

  std::int16_t weightOf(Role role, const BlockEntity& entity) const {
    const bool isLine = entity.type == "LINE" || entity.type == "ARC" || entity.type == "INSERT";
    if (!isLine) return kWeightByLayer;
    const bool ofLine = role == Role::kDimensionLine || role == Role::kArrow;
    return number(ofLine ? dimRow("DIMLWD") : dimRow("DIMLWE"));
  }

  std::wstring linetypeOf(Role role, const BlockEntity& entity) const {
    const DimVariableInfo* own = role == Role::kDimensionLine    ? &dimRow("DIMLTYPE")
                                 : role == Role::kExtensionLine1 ? &dimRow("DIMLTEX1")
                                 : role == Role::kExtensionLine2 ? &dimRow("DIMLTEX2")
                                                                 : nullptr;
    const bool isLine = entity.type == "LINE" || entity.type == "ARC";
    if (own == nullptr || !isLine) return otherLinetype_;
    const std::wstring& name = variables().text(*own);
    return name.empty() || base::equalFolded(name, L"ByLayer") ? otherLinetype_ : name;
  }

  std::int16_t number(const DimVariableInfo& variable) const {
    return static_cast<std::int16_t>(variables().integer(variable));
  }

  std::optional<std::int32_t> trueColorOf(const BlockEntity& entity) const {
    for (const BlockEntity& old : kept_)
      if (old.trueColor && old.color == entity.color && isText(old) == isText(entity)) return old.trueColor;
    return std::nullopt;
  }

  // --- Shapes ---

  void put(const PlaneLine& line, BlockEntity& entity) const {
    entity.type = "LINE";
    entity.geometry = {.shape = LineGeometry{world(line.from), world(line.to)}};
  }

  void put(const PlaneArc& arc, BlockEntity& entity) const {
    entity.type = "ARC";
    entity.geometry.shape =
        ArcGeometry{own(arc.centre), arc.radius, arc.start / kRadiansPerDegree, arc.end / kRadiansPerDegree};
  }

  void put(const PlaneArea& area, BlockEntity& entity) const {
    entity.type = "SOLID";
    entity.geometry.shape = SolidGeometry{{own(area.left), own(area.right), own(area.tip), own(area.tip)}};
  }

  void put(const PlaneArrow& arrow, BlockEntity& entity) const {
    entity.type = "INSERT";
    InsertGeometry insert;
    insert.block = drawing_.find(Table::kBlock, std::wstring_view(arrow.block));
    insert.at = own(arrow.tip);
    insert.scale = {arrow.size, arrow.size, arrow.size};
    insert.rotation = arrow.rotation / kRadiansPerDegree;
    entity.geometry.shape = insert;
  }

  void put(const PlaneText& part, BlockEntity& entity) const {
    TextGeometry text;
    text.side = TextGeometry::Side::kCentre;
    text.level = TextGeometry::Level::kMiddle;
    text.height = source_.figure.textHeight;
    text.rotation = part.rotation / kRadiansPerDegree;
    entity.textStyle = source_.textStyle;
    if (drawing_.facts().version >= Version::kR13) {
      entity.type = "MTEXT";
      text.multiline = true;
      text.at = world(part.middle);
      text.contents = source_.figure.value;
      fill(text);
    } else {
      entity.type = "TEXT";
      text.at = own(part.middle);
      text.contents = asLine(source_.figure.value);
      takeStyle(text);
    }
    entity.geometry.shape = std::move(text);
  }

  void put(DimPoint which, BlockEntity& entity) const {
    const DimensionGeometry& record = source_.geometry;
    const Point at = which == DimPoint::kLine     ? record.line
                     : which == DimPoint::kFirst  ? record.first
                     : which == DimPoint::kSecond ? record.second
                     : which == DimPoint::kThird  ? record.third
                                                  : axes_.world(record.arc);
    entity.type = "POINT";
    entity.geometry = {.shape = PointGeometry{at}};
  }

  void fill(TextGeometry& text) const {
    using Fill = TextGeometry::Fill;
    constexpr Fill kFills[] = {Fill::kNone, Fill::kBackground, Fill::kOwnColor};
    text.fill = kFills[std::clamp<std::int64_t>(variables().integer(dimRow("DIMTFILL")), 0, 2)];
    if (text.fill == Fill::kBackground) text.fillColor = kByLayer;
    if (text.fill != Fill::kOwnColor) return;
    text.fillColor = number(dimRow("DIMTFILLCLR"));
    // Some versions tell the exact colour in the block only, and no number in the style.
    for (const BlockEntity& old : kept_) {
      const auto* before = std::get_if<TextGeometry>(&old.geometry.shape);
      if (before == nullptr || before->fill != Fill::kOwnColor || !before->fillTrueColor) continue;
      if (text.fillColor != before->fillColor && text.fillColor != kByBlock) continue;
      text.fillColor = before->fillColor;
      text.fillTrueColor = before->fillTrueColor;
    }
  }

  void takeStyle(TextGeometry& text) const {
    const std::wstring_view name =
        source_.textStyle.empty() ? std::wstring_view(L"Standard") : source_.textStyle;
    const RecordId style = drawing_.find(Table::kTextStyle, name);
    if (style == kNoRecord) return;
    text.widthFactor = drawing_.real(style, Property::kStyleWidthFactor).value_or(1);
    text.oblique = drawing_.real(style, Property::kStyleOblique).value_or(0);
  }

  const Drawing& drawing_;
  const DimSource& source_;
  const std::vector<BlockEntity>& kept_;
  Axes axes_;
  std::wstring layer_, pointLayer_, otherLinetype_;
  std::int32_t transparency_ = 0;
};

}  // namespace

std::wstring definitionPointLayer(const Drawing& drawing) {
  const bool isUpper = drawing.facts().version < Version::kR13;
  return spelled(drawing, Table::kLayer, isUpper ? L"DEFPOINTS" : L"Defpoints");
}

std::vector<BlockEntity> pictureEntities(const Drawing& drawing, RecordId dimension, const DimSource& source,
                                         const DimPicture& picture, const std::vector<BlockEntity>& kept) {
  EntityMaker maker(drawing, dimension, source, kept);
  std::vector<BlockEntity> entities;
  entities.reserve(picture.size());
  for (const DimPart& part : picture) entities.push_back(maker.make(part));
  return entities;
}

}  // namespace cad
