// What an entity looks like, from the groups of its record.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "embedded/drawing/color_codes.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dxf/geometry_groups.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

constexpr int kThickness = 39;

using Side = TextGeometry::Side;
using Level = TextGeometry::Level;

struct Source {
  const Drawing& drawing;
  const DxfStorage& storage;
  RecordId id;
  const GeometryGroups& groups;
};

// With the blanks at its ends: a single one hides the text of a dimension.
std::wstring contentsOf(const Source& from, Property property) {
  return from.drawing.text(from.id, property).value_or(std::wstring());
}

Geometry readLine(const Source& from) { return {LineGeometry{from.groups.point(10), from.groups.point(11)}}; }
Geometry readPoint(const Source& from) { return {PointGeometry{from.groups.point(10)}}; }

Geometry readCircle(const Source& from) {
  return {ArcGeometry{from.groups.point(10), from.groups.real(40), 0, 360}, from.groups.normal()};
}

Geometry readArc(const Source& from) {
  const GeometryGroups& groups = from.groups;
  const ArcGeometry arc{groups.point(10), groups.real(40), groups.real(50), groups.real(51, 360)};
  return {arc, groups.normal()};
}

Geometry readEllipse(const Source& from) {
  const GeometryGroups& groups = from.groups;
  EllipseGeometry shape;
  shape.centre = groups.point(10);
  shape.majorAxis = groups.point(11);
  shape.ratio = groups.real(40, 1);
  shape.start = groups.real(41, shape.start);
  shape.end = groups.real(42, shape.end);
  return {shape, groups.normal()};
}

Geometry readSolid(const Source& from) {
  const GeometryGroups& groups = from.groups;
  const Point third = groups.point(12);
  return {SolidGeometry{{groups.point(10), groups.point(11), groups.point(13, third), third}},
          groups.normal()};
}

Geometry readSpline(const Source& from) {
  const GeometryGroups& groups = from.groups;
  SplineGeometry shape;
  shape.degree = groups.integer(71, 3);
  shape.closed = (groups.integer(70) & 1) != 0;
  shape.knots = groups.reals(40);
  shape.weights = groups.reals(41);
  shape.control = groups.points(10);
  shape.fit = groups.points(11);
  return {std::move(shape)};
}

// A leader's points are world coordinates, whatever its normal.
Geometry readLeader(const Source& from) {
  std::vector<Point> points = from.groups.points(10);
  if (from.groups.integer(72) != 0) {
    SplineGeometry curve;
    curve.fit = std::move(points);
    return {std::move(curve)};
  }
  PolylineGeometry shape;
  for (const Point& at : points) shape.vertices.push_back({at, 0});
  return {std::move(shape)};
}

void readAlignment(const Source& from, int levelCode, TextGeometry& shape) {
  const GeometryGroups& groups = from.groups;
  const int side = groups.integer(72), level = groups.integer(levelCode);
  switch (side) {
    case 1:
    case 4:
      shape.side = Side::kCentre;
      break;
    case 2:
      shape.side = Side::kRight;
      break;
    case 3:
      shape.side = Side::kAligned;
      break;
    case 5:
      shape.side = Side::kFit;
      break;
    default:
      break;
  }
  if (level >= 1 && level <= 3) shape.level = static_cast<Level>(level);
  if (side == 4) shape.level = Level::kMiddle;
  const bool between = shape.side == Side::kAligned || shape.side == Side::kFit;
  shape.at = groups.point(10);
  shape.second = groups.point(11, shape.at);
  if (!between && (side != 0 || level != 0)) shape.at = shape.second;
}

// Attributes have something else under the code in the class of their own.
int generationOf(const GeometryGroups& groups) {
  constexpr int kMarker = 100, kGeneration = 71;
  for (const Group& group : groups.all()) {
    if (group.code == kMarker && trimmed(group.value).starts_with("AcDbAttribute")) break;
    if (group.code == kGeneration) return groups.whole(group);
  }
  return 0;
}

Geometry readText(const Source& from) {
  const GeometryGroups& groups = from.groups;
  const std::string_view type = from.drawing.typeName(from.id);
  TextGeometry shape;
  readAlignment(from, type == "TEXT" ? 73 : 74, shape);
  shape.height = groups.real(40, 1);
  shape.rotation = groups.real(50);
  shape.widthFactor = groups.real(41, 1);
  shape.oblique = groups.real(51);
  const int generation = generationOf(groups);
  shape.backwards = (generation & 2) != 0;
  shape.upsideDown = (generation & 4) != 0;
  shape.contents = contentsOf(from, Property::kTextString);
  if (type != "TEXT") {
    const int flags = groups.integer(70);
    shape.hidden = (flags & 1) != 0;
    shape.constant = (flags & 2) != 0;
    shape.definition = type == "ATTDEF";
    if (shape.definition) shape.prompt = groups.text(3);
    if (shape.definition && !shape.constant) shape.contents = groups.text(2);
  }
  return {std::move(shape), groups.normal()};
}

TextGeometry::Fill fillOf(int number) {
  if ((number & 2) != 0) return TextGeometry::Fill::kBackground;
  return (number & 1) != 0 ? TextGeometry::Fill::kOwnColor : TextGeometry::Fill::kNone;
}

// Versions without groups for it keep in extended data what is painted behind a text.
void readOldFill(const Source& from, TextGeometry& shape) {
  constexpr std::string_view kMark = "ACAD_MTEXT_BBRT";
  std::string scratch;
  if (from.storage.bytes(from.drawing.record(from.id), scratch).find(kMark) == std::string_view::npos) return;
  const RecordGroups groups(from.storage, from.drawing.record(from.id));
  const Dialect& dialect = from.storage.dialect();
  bool inFill = false;
  for (std::size_t i = groups.plainCount(); i + 1 < groups.all().size(); ++i) {
    const Group& group = groups.all()[i];
    if (group.code == 1000 && inFill) inFill = trimmed(group.value).empty();
    if (group.code == 1000 && trimmed(group.value) == kMark) inFill = true;
    if (!inFill || group.code != 1070) continue;
    const Group& next = groups.all()[++i];
    const std::int64_t value = integerValue(next, dialect).value_or(0);
    switch (integerValue(group, dialect).value_or(0)) {
      case 91:
        shape.fill = fillOf(static_cast<int>(value));
        break;
      case 46:
        shape.fillFactor = realValue(next, dialect).value_or(shape.fillFactor);
        break;
      case 64:
        if (colorCodeOf(value) == ColorCode::kNumber)
          shape.fillColor = static_cast<std::int16_t>(value & 0xFFF);
        if (colorCodeOf(value) == ColorCode::kTrue)
          shape.fillTrueColor = static_cast<std::int32_t>(value & 0xFFFFFF);
        break;
      default:
        break;
    }
  }
}

void readFill(const Source& from, TextGeometry& shape) {
  const GeometryGroups& groups = from.groups;
  if (from.storage.facts().version < Version::kR2004) return readOldFill(from, shape);
  shape.fill = fillOf(groups.integer(90));
  if (shape.fill == TextGeometry::Fill::kNone) return;
  shape.fillColor = static_cast<std::int16_t>(groups.integer(63));
  if (groups.has(421)) shape.fillTrueColor = groups.integer(421);
  shape.fillFactor = groups.real(45, shape.fillFactor);
}

Geometry readMText(const Source& from) {
  const GeometryGroups& groups = from.groups;
  TextGeometry shape;
  shape.multiline = true;
  shape.at = groups.point(10);
  shape.height = groups.real(40, 1);
  shape.frameWidth = groups.real(41);
  shape.lineSpacing = groups.real(44, 1);
  shape.rotation = from.drawing.real(from.id, Property::kRotation).value_or(0);
  shape.contents = contentsOf(from, Property::kTextString);
  const int attachment = std::clamp(groups.integer(71, 1), 1, 9) - 1;
  constexpr Level kLevels[] = {Level::kTop, Level::kMiddle, Level::kBottom};
  constexpr Side kSides[] = {Side::kLeft, Side::kCentre, Side::kRight};
  shape.level = kLevels[attachment / 3];
  shape.side = kSides[attachment % 3];
  readFill(from, shape);
  // The point is a world point, the rotation is about the normal; only the mirrored plan view differs.
  const Point normal = groups.normal();
  return {.shape = std::move(shape), .partial = normal.x != 0 || normal.y != 0 || normal.z <= 0};
}

RecordId blockOf(const Source& from) {
  return from.drawing.find(Table::kBlock, std::wstring_view(from.groups.text(2)));
}

Geometry readInsert(const Source& from) {
  const GeometryGroups& groups = from.groups;
  InsertGeometry shape;
  shape.block = blockOf(from);
  shape.at = groups.point(10);
  shape.scale = {groups.real(41, 1), groups.real(42, 1), groups.real(43, 1)};
  shape.rotation = groups.real(50);
  shape.columns = std::max(1, groups.integer(70, 1));
  shape.rows = std::max(1, groups.integer(71, 1));
  shape.columnSpacing = groups.real(44);
  shape.rowSpacing = groups.real(45);
  return {shape, groups.normal()};
}

// A table is shown by a block; its other groups are not those of a reference.
Geometry readTable(const Source& from) {
  InsertGeometry shape;
  shape.block = blockOf(from);
  shape.at = from.groups.point(10);
  const Point direction = from.groups.point(11, {1, 0, 0});
  shape.rotation = std::atan2(direction.y, direction.x) * 180 / std::numbers::pi;
  return {shape};
}

DimensionGeometry::Kind dimensionKind(int flags) {
  using Kind = DimensionGeometry::Kind;
  constexpr Kind kKinds[] = {Kind::kRotated, Kind::kAligned,       Kind::kAngular,  Kind::kDiametric,
                             Kind::kRadial,  Kind::kAngularPoints, Kind::kOrdinate, Kind::kUnknown};
  return kKinds[flags & 7];
}

Geometry readDimension(const Source& from) {
  constexpr int kAlongX = 64, kUserText = 128;
  const GeometryGroups& groups = from.groups;
  const int flags = groups.integer(70);
  DimensionGeometry shape;
  shape.block = blockOf(from);
  shape.kind = dimensionKind(flags);
  shape.line = groups.point(10);
  shape.text = groups.point(11);
  shape.first = groups.point(13);
  shape.second = groups.point(14);
  shape.third = groups.point(15);
  shape.arc = groups.point(16);
  shape.rotation = groups.real(50);
  shape.oblique = groups.real(52);
  shape.textRotation = groups.real(53);
  shape.horizontal = groups.real(51);
  shape.userText = (flags & kUserText) != 0;
  shape.alongX = (flags & kAlongX) != 0;
  shape.contents = contentsOf(from, Property::kDimText);
  return {shape, groups.normal()};
}

// What the type's number says of these is something else.
template <DimensionGeometry::Kind kKind>
Geometry readSpecialDimension(const Source& from) {
  Geometry geometry = readDimension(from);
  std::get<DimensionGeometry>(geometry.shape).kind = kKind;
  return geometry;
}

struct TypeReader {
  std::string_view type;
  Geometry (*read)(const Source&);
};

constexpr TypeReader kReaders[] = {
    {"LINE", readLine},
    {"LWPOLYLINE", [](const Source& from) { return readLightPolyline(from.groups); }},
    {"TEXT", readText},
    {"INSERT", readInsert},
    {"ARC", readArc},
    {"CIRCLE", readCircle},
    {"POLYLINE", [](const Source& from) { return readPolyline(from.drawing, from.storage, from.id); }},
    {"POINT", readPoint},
    {"BLOCK", readPoint},
    {"MTEXT", readMText},
    {"DIMENSION", readDimension},
    {"ARC_DIMENSION", readSpecialDimension<DimensionGeometry::Kind::kArcLength>},
    {"LARGE_RADIAL_DIMENSION", readSpecialDimension<DimensionGeometry::Kind::kJogged>},
    {"HATCH", [](const Source& from) { return readHatch(from.groups); }},
    {"ATTRIB", readText},
    {"ATTDEF", readText},
    {"SOLID", readSolid},
    {"TRACE", readSolid},
    {"ELLIPSE", readEllipse},
    {"SPLINE", readSpline},
    {"LEADER", readLeader},
    {"3DFACE", [](const Source& from) { return readFace(from.groups); }},
    {"ACAD_TABLE", readTable},
    {"VIEWPORT", [](const Source& from) { return readViewport(from.drawing, from.storage, from.id); }},
};

}  // namespace

Geometry DxfStorage::readGeometry(const Drawing& drawing, RecordId entity) const {
  const std::string_view type = typeName(drawing.record(entity));
  const auto* reader = std::ranges::find(kReaders, type, &TypeReader::type);
  if (reader == std::end(kReaders)) return {};
  const GeometryGroups groups(*this, drawing.record(entity));
  Geometry geometry = reader->read({drawing, *this, entity, groups});
  geometry.invisible = groups.invisible();
  geometry.partial = geometry.partial || groups.real(kThickness) != 0;
  return geometry;
}

}  // namespace cad::dxf
