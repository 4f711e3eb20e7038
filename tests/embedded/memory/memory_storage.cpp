#include "tests/embedded/memory/memory_storage.h"

#include <algorithm>

#include "base/files.h"
#include "embedded/drawing/stored_text.h"

namespace cad::memory {
namespace {

struct Holds {
  Property property;
  std::string_view types;  // separated by blanks; empty: every entity
  Version since = Version::kR12;
};

using P = Property;
constexpr std::string_view kTexts = " TEXT MTEXT ATTDEF ATTRIB ",
                           kDimensions = " DIMENSION ARC_DIMENSION LARGE_RADIAL_DIMENSION ";
constexpr std::string_view kTables = " LAYER LTYPE STYLE DIMSTYLE APPID BLOCK BLOCK_RECORD ";

constexpr Holds kHolds[] = {
    {P::kLayer, ""},
    {P::kLinetype, ""},
    {P::kColorIndex, ""},
    {P::kLineWeight, "", Version::kR2000},
    {P::kTransparency, "", Version::kR2010},
    {P::kLinetypeScale, "", Version::kR13},
    {P::kInvisible, "", Version::kR13},
    {P::kTextStyle, kTexts},
    {P::kTextHeight, kTexts},
    {P::kRotation, " TEXT MTEXT ATTDEF ATTRIB INSERT "},
    {P::kWidthFactor, " TEXT ATTDEF ATTRIB "},
    {P::kTextString, kTexts},
    {P::kDimStyle, " DIMENSION ARC_DIMENSION LARGE_RADIAL_DIMENSION LEADER TOLERANCE "},
    {P::kTextRotation, kDimensions},
    {P::kDimText, kDimensions},
    {P::kDimBlock, kDimensions},
    {P::kBlockName, " INSERT "},
    {P::kName, " ATTDEF ATTRIB "},
    {P::kStandardFlags, " ATTDEF "},
    {P::kName, kTables},
    {P::kStandardFlags, kTables},
    {P::kLayerColor, " LAYER "},
    {P::kLayerLinetype, " LAYER "},
    {P::kLayerPlottable, " LAYER ", Version::kR2000},
    {P::kLineWeight, " LAYER ", Version::kR2000},
    {P::kTransparency, " LAYER ", Version::kR2010},
    {P::kFontFile, " STYLE "},
    {P::kBigFontFile, " STYLE "},
    {P::kTypeface, " STYLE ", Version::kR2000},
    {P::kFontFlags, " STYLE ", Version::kR2000},
    {P::kFixedHeight, " STYLE "},
    {P::kStyleWidthFactor, " STYLE "},
    {P::kStyleOblique, " STYLE "},
    {P::kDescription, " LTYPE "},
    {P::kDescription, " BLOCK ", Version::kR2000},
};

bool isEntity(const Record& record) {
  return record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
}

const Holds* holding(const Record& record, std::string_view type, Property property) {
  const std::string word = " " + std::string(type) + " ";
  const auto found = std::ranges::find_if(kHolds, [&](const Holds& row) {
    if (row.property != property) return false;
    return row.types.empty() ? isEntity(record) : row.types.find(word) != row.types.npos;
  });
  return found == std::end(kHolds) ? nullptr : found;
}

std::string shown(const StoredValue& value) {
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
  if (const auto* real = std::get_if<double>(&value)) return std::to_string(*real);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  const auto* reference = std::get_if<Reference>(&value);
  return reference == nullptr ? "" : "#" + std::to_string(reference->record);
}

std::string shown(const DimValue& value) {
  if (const auto* text = std::get_if<std::wstring>(&value)) return base::toUtf8(*text);
  if (const auto* reference = std::get_if<Reference>(&value)) return shown(StoredValue(*reference));
  if (const auto* real = std::get_if<double>(&value)) return std::to_string(*real);
  return std::to_string(std::get<std::int64_t>(value));
}

struct ShapeText {
  std::string out;
  template <class... Numbers>
  void add(const Numbers&... numbers) {
    ((out += ' ' + std::to_string(numbers)), ...);
  }
  void add(const Point& at) { add(at.x, at.y, at.z); }
  template <class List>
  void addAll(const List& list) {
    for (const auto& each : list) add(each);
    out += ';';
  }
  void operator()(const LineGeometry& line) { add(line.from), add(line.to); }
  void operator()(const PointGeometry& point) { add(point.at); }
  void operator()(const ArcGeometry& arc) { add(arc.centre), add(arc.radius, arc.start, arc.end); }
  void operator()(const EllipseGeometry& ellipse) {
    add(ellipse.centre), add(ellipse.majorAxis), add(ellipse.ratio, ellipse.start, ellipse.end);
  }
  void operator()(const PolylineGeometry& polyline) {
    for (const auto& vertex : polyline.vertices) add(vertex.at), add(vertex.bulge);
    add(polyline.closed);
  }
  void operator()(const SolidGeometry& solid) { addAll(solid.corners); }
  void operator()(const SplineGeometry& spline) {
    add(spline.degree, spline.closed);
    addAll(spline.knots), addAll(spline.weights), addAll(spline.control), addAll(spline.fit);
  }
  void operator()(const TextGeometry& text) {
    add(text.at), add(text.second);
    add(text.height, text.rotation, text.widthFactor, text.oblique, text.frameWidth, text.lineSpacing);
    add(static_cast<int>(text.side), static_cast<int>(text.level), text.backwards, text.upsideDown);
    out += base::toUtf8(text.prompt);
  }
  void operator()(const InsertGeometry& insert) {
    add(insert.at), add(insert.scale), add(insert.rotation);
    add(insert.columns, insert.rows, insert.columnSpacing, insert.rowSpacing);
  }
  template <class Other>
  void operator()(const Other&) {}
};

}  // namespace

std::string shown(const Geometry& geometry) {
  ShapeText text;
  std::visit(text, geometry.shape);
  text.add(geometry.normal);
  return text.out;
}

std::string_view typeOf(Table table) {
  constexpr std::string_view kTypes[] = {"",      "LAYER", "LTYPE", "STYLE", "DIMSTYLE",    "BLOCK",
                                         "APPID", "VIEW",  "UCS",   "VPORT", "BLOCK_RECORD"};
  return kTypes[static_cast<std::size_t>(table)];
}

std::uint32_t MemoryStorage::keep(Object object) {
  nextHandle_ = std::max(nextHandle_, object.handle + 1);
  if (object.handle == 0) object.handle = nextHandle_++;
  return changedTo(std::move(object));
}

EditId MemoryStorage::changedTo(Object object) {
  states_.push_back(std::move(object));
  return static_cast<EditId>(states_.size() - 1);
}

std::optional<Handle> MemoryStorage::handle(const Record& record) const {
  const Handle own = object(record).handle;
  return own == 0 || record.kind == RecordKind::kOther ? std::nullopt : std::optional(own);
}

StoredValue MemoryStorage::property(const Record& record, Property property) const {
  const Object& holder = object(record);
  const auto found = holder.values.find(property);
  return found == holder.values.end() ? StoredValue() : found->second;
}

EntityLooks MemoryStorage::looks(const Record& entity) const {
  const auto whole = [&](Property property, std::int64_t otherwise) {
    const StoredValue value = this->property(entity, property);
    const auto* number = std::get_if<std::int64_t>(&value);
    return number == nullptr ? otherwise : *number;
  };
  return {static_cast<std::int16_t>(whole(P::kLineWeight, -1)),
          static_cast<std::int32_t>(whole(P::kTransparency, 0)), object(entity).trueColor};
}

bool MemoryStorage::canHold(const Record& record, Property property) const {
  const Holds* row = holding(record, object(record).type, property);
  return row != nullptr && facts_.version >= row->since;
}

base::Result<EditId> MemoryStorage::setProperty(Drawing& drawing, const Record& record, Property property,
                                                const StoredValue& value) {
  Object next = object(record);
  const auto present = next.values.find(property);
  if (present != next.values.end() && present->second == value) return record.edits;
  const PropertyInfo& info = propertyInfo(property);
  const bool layerWeight = property == P::kLineWeight && record.table == Table::kLayer;
  const double preset = layerWeight ? -3 : info.defaultValue;
  const auto* integer = std::get_if<std::int64_t>(&value);
  const auto* real = std::get_if<double>(&value);
  const auto* text = std::get_if<std::string>(&value);
  const bool isPreset = (integer != nullptr && static_cast<double>(*integer) == preset) ||
                        (real != nullptr && *real == preset) || (text != nullptr && text->empty());
  if (holding(record, next.type, property) == nullptr) return base::Failure{{}, L"No such property"};
  if (present == next.values.end() && isPreset && property != P::kTextHeight) return record.edits;
  if (!canHold(record, property)) return base::Failure{{}, L"Not in this version"};
  if (const auto* reference = std::get_if<Reference>(&value)) {
    if (const base::Status status = drawing.materialise(reference->record); !status) return status.failure();
  }
  next.values[property] = value;
  return changedTo(std::move(next));
}

base::Status MemoryStorage::renameLayer(Drawing& drawing, RecordId layer, std::wstring_view newName) {
  const NameId from = drawing.recordName(layer);
  base::Status status = drawing.setStored(layer, P::kName, encodeStored(newName, facts_.codePage));
  if (status) drawing.layerRenamed(from, drawing.recordName(layer));
  return status;
}

Signature MemoryStorage::readSignature(Drawing& drawing, const Record& record) const {
  return signatureOf(object(record), drawing.names(), [&](RecordId id) { return drawing.recordName(id); });
}

// A line for each record.
base::Status MemoryStorage::save(const std::filesystem::path& target, std::span<const Record> records) const {
  std::string out = "Drawing in memory\n";
  for (const Record& record : records) {
    if (record.erased() || record.implied()) continue;
    const Object& holder = object(record);
    if (record.kind == RecordKind::kOther && holder.variables.empty()) continue;
    out += holder.type + ' ' + std::to_string(holder.handle) + " in " + std::to_string(record.owner);
    for (const auto& [property, value] : holder.values)
      out.append(", ").append(propertyInfo(property).name).append(" = ").append(shown(value));
    for (const auto& [row, value] : holder.dimValues)
      out.append(", ")
          .append(kDimVariables[static_cast<std::size_t>(row)].name)
          .append(" = ")
          .append(shown(value));
    for (const auto& [name, value] : holder.variables)
      out.append(", ").append(name).append(" = ").append(shown(value));
    for (const Dash& dash : holder.dashes) {
      out += ", dash " + std::to_string(dash.length);
      if (dash.symbol) out += base::toUtf8(dash.symbol->text) + " #" + std::to_string(dash.symbol->style);
    }
    out += shown(holder.geometry);
    out += '\n';
  }
  return base::writeFileAtomically(target, out);
}

}  // namespace cad::memory
