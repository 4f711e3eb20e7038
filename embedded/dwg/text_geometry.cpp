// The geometry of texts.

#include <algorithm>
#include <cmath>

#include "embedded/drawing/color_codes.h"
#include "embedded/dwg/application_data.h"
#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

using Side = TextGeometry::Side;
using Level = TextGeometry::Level;
using Fill = TextGeometry::Fill;

constexpr int kMiddleOfAll = 4;  // a horizontal alignment that is a vertical one, too
constexpr int kBackwards = 2, kUpsideDown = 4;

std::wstring textOf(const GeometrySource& from, std::string_view name) {
  const Field* field = from.fields.find(name);
  return field == nullptr ? std::wstring() : from.storage.text(field->value);
}

void readAlignment(const GeometrySource& from, TextGeometry& shape) {
  constexpr Side kSides[] = {Side::kLeft,    Side::kCentre, Side::kRight,
                             Side::kAligned, Side::kCentre, Side::kFit};
  const std::int64_t side = from.fields.integer("horizontal alignment");
  const std::int64_t level = from.fields.integer("vertical alignment");
  if (side >= 0 && side < std::ssize(kSides)) shape.side = kSides[side];
  if (level >= 1 && level <= 3) shape.level = static_cast<Level>(level);
  if (side == kMiddleOfAll) shape.level = Level::kMiddle;
  shape.at = from.raised("insertion point");
  shape.second = from.fields.find("alignment point") == nullptr ? shape.at : from.raised("alignment point");
  const bool between = shape.side == Side::kAligned || shape.side == Side::kFit;
  if (!between && (side != 0 || level != 0)) shape.at = shape.second;
}

Fill fillOf(std::int64_t flags) {
  if ((flags & 2) != 0) return Fill::kBackground;
  return (flags & 1) != 0 ? Fill::kOwnColor : Fill::kNone;
}

// Versions without fields for it keep in extended data what is painted behind a text.
void readOldFill(const GeometrySource& from, TextGeometry& shape) {
  const auto values = readableValues(from.storage, from.drawing.record(from.id), L"ACAD");
  if (!values) return;
  bool inFill = false;
  for (std::size_t i = 0; i + 1 < values->size(); ++i) {
    const ExtendedValue& each = (*values)[i];
    if (each.code == 1000) inFill = isText(from.storage, each, L"ACAD_MTEXT_BBRT");
    if (!inFill || each.code != 1070) continue;
    const ExtendedValue& value = (*values)[++i];
    const std::int64_t number = integerOf(value);
    const ColorCode color = colorCodeOf(number);
    switch (integerOf(each)) {
      case 91:
        shape.fill = fillOf(number);
        break;
      case 46:
        shape.fillFactor = realOf(value, shape.fillFactor);
        break;
      case 64:
        if (color == ColorCode::kNumber) shape.fillColor = static_cast<std::int16_t>(number & 0xFFF);
        if (color == ColorCode::kTrue) shape.fillTrueColor = static_cast<std::int32_t>(number & 0xFFFFFF);
        break;
      default:
        break;
    }
  }
}

void readFill(const GeometrySource& from, TextGeometry& shape) {
  if (from.storage.version() < Version::kR2004) return readOldFill(from, shape);
  shape.fill = fillOf(from.fields.integer("background flags"));
  if (shape.fill == Fill::kNone) return;
  const Color color = from.fields.color("background color");
  shape.fillColor = color.number;
  shape.fillTrueColor = color.rgb;
  shape.fillFactor = from.fields.real("background scale", shape.fillFactor);
}

}  // namespace

Point GeometrySource::raised(std::string_view name) const {
  const Point flat = fields.point(name);
  return {flat.x, flat.y, fields.real("elevation")};
}

Geometry readText(const GeometrySource& from) {
  TextGeometry shape;
  readAlignment(from, shape);
  shape.height = from.fields.real("height", 1);
  shape.rotation = from.degrees("rotation");
  shape.widthFactor = from.fields.real("width factor", 1);
  shape.oblique = from.degrees("oblique angle");
  const std::int64_t generation = from.fields.integer("generation");
  shape.backwards = (generation & kBackwards) != 0;
  shape.upsideDown = (generation & kUpsideDown) != 0;
  shape.contents = textOf(from, "text");
  if (from.kind != ObjectKind::kText) {
    const std::int64_t flags = from.fields.integer("flags");
    shape.hidden = (flags & 1) != 0;
    shape.constant = (flags & AttributeFlag::kConstant) != 0;
    shape.definition = from.kind == ObjectKind::kAttdef;
    if (shape.definition) shape.prompt = textOf(from, "prompt");
    if (shape.definition && !shape.constant) shape.contents = textOf(from, "tag");
  }
  return {std::move(shape), from.normal()};
}

Geometry readMText(const GeometrySource& from) {
  TextGeometry shape;
  shape.multiline = true;
  shape.at = from.fields.point("insertion point");
  shape.height = from.fields.real("height", 1);
  shape.frameWidth = from.fields.real("reference width");
  shape.lineSpacing = from.fields.real("line spacing factor", 1);
  const Point axis = from.fields.point("x axis", {1, 0, 0});
  shape.rotation = std::atan2(axis.y, axis.x) / kRadiansPerDegree;
  shape.contents = textOf(from, "text");
  const std::int64_t attachment = std::clamp<std::int64_t>(from.fields.integer("attachment", 1), 1, 9) - 1;
  constexpr Level kLevels[] = {Level::kTop, Level::kMiddle, Level::kBottom};
  constexpr Side kSides[] = {Side::kLeft, Side::kCentre, Side::kRight};
  shape.level = kLevels[attachment / 3];
  shape.side = kSides[attachment % 3];
  readFill(from, shape);
  // The point is a world point, the rotation is about the normal; only the mirrored plan view differs.
  const Point normal = from.normal();
  return {.shape = std::move(shape), .partial = normal.x != 0 || normal.y != 0 || normal.z <= 0};
}

}  // namespace cad::dwg
