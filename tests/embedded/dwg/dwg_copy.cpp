#include "tests/embedded/dwg/dwg_copy.h"

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/fields/object_fields.h"
#include "embedded/dwg/geometry_changes.h"
#include "tests/embedded/dwg/small_files.h"
#include "tests/embedded/dwg/typed_values.h"

namespace cad::dwg {
namespace {

using enum ObjectKind;
using DimensionKind = DimensionGeometry::Kind;

constexpr std::pair<Table, ObjectKind> kControls[] = {
    {Table::kLayer, kLayerControl},       {Table::kLinetype, kLinetypeControl},
    {Table::kTextStyle, kStyleControl},   {Table::kAppId, kAppIdControl},
    {Table::kDimStyle, kDimStyleControl}, {Table::kBlockRecord, kBlockControl}};

constexpr std::string_view kDimensions[] = {"DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"};

const std::map<std::string_view, ObjectKind> kParts = {
    {"ATTRIB", kAttrib}, {"VERTEX", kVertex2d}, {"SEQEND", kSeqend}};

ObjectKind recordKind(Table table) {
  switch (table) {
    case Table::kLayer:
      return kLayer;
    case Table::kLinetype:
      return kLinetype;
    case Table::kTextStyle:
      return kStyle;
    case Table::kDimStyle:
      return kDimStyle;
    default:
      return kAppId;
  }
}

ObjectKind dimensionKind(DimensionKind kind) {
  switch (kind) {
    case DimensionKind::kAligned:
      return kDimensionAligned;
    case DimensionKind::kAngular:
      return kDimensionAngular2Line;
    case DimensionKind::kAngularPoints:
      return kDimensionAngular3Point;
    case DimensionKind::kRadial:
      return kDimensionRadius;
    case DimensionKind::kDiametric:
      return kDimensionDiameter;
    case DimensionKind::kOrdinate:
      return kDimensionOrdinate;
    case DimensionKind::kArcLength:
      return kDimensionArc;
    case DimensionKind::kJogged:
      return kDimensionJogged;
    default:
      return kDimensionLinear;
  }
}

// A file with the container and the classes, but with nothing in it.
DwgStorage emptyFile(Version version, const std::vector<FileClass>& classes) {
  SmallDrawing empty;
  empty.version = version;
  empty.header = headerSection(version, {});
  empty.classes = classSection(version, classes);
  const auto nothing = build(kDictionary, version, 1, {}, classes);
  empty.objects = {{1, nothing.value().data, nothing.value().handleBits}};
  auto file = readBytes(bytesOf(empty));
  if (!file.ok()) throw std::logic_error("the empty file cannot be read");
  return {std::move(file.value()), classes};
}

// As programs have them; types that nobody knows come behind.
std::vector<FileClass> classesFor(const Drawing& drawing) {
  constexpr std::uint16_t kFirst = 500;
  std::set<std::string_view> known = {"LWPOLYLINE", "HATCH"};
  std::vector<FileClass> classes = {{kFirst, "LWPOLYLINE", true}, {kFirst + 1, "HATCH", true}};
  for (std::uint16_t number = 1; number < kFirst; ++number) {
    if (const ObjectType type = typeOf(number, {}); type.kind != kOther) known.insert(type.name);
  }
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    if (drawing.record(id).kind != RecordKind::kEntity || !known.insert(drawing.typeName(id)).second)
      continue;
    const auto number = static_cast<std::uint16_t>(kFirst + classes.size());
    classes.push_back({number, std::string(drawing.typeName(id)), true});
  }
  return classes;
}

class Copy {
 public:
  explicit Copy(const Drawing& source)
      : source_(source),
        version_(source.facts().version < Version::kR13 ? Version::kR2000 : source.facts().version),
        classes_(classesFor(source)),
        empty_(emptyFile(version_, classes_)) {}

  std::string make() {
    giveHandles();
    for (const auto& [table, control] : kControls) makeTable(table);
    for (const RecordId block : source_.tableRecords(Table::kBlock)) makeBlock(block);
    makeControls();
    changes_.header = headerSection(version_, variables());
    std::ranges::sort(changes_.objects, {}, &ChangedObject::handle);
    auto bytes = empty_.file().write(changes_);
    if (!bytes.ok()) throw std::logic_error("the objects cannot be written");
    return withTypedValues(source_, handles_, std::move(bytes.value()));
  }

 private:
  bool since(Version first) const { return version_ >= first; }

  // --- Handles -------------------------------------------------------------------------------------------
  Handle freeHandle() {
    while (!taken_.insert(nextFree_).second) ++nextFree_;
    return nextFree_;
  }

  void giveHandles() {
    handles_.resize(source_.recordCount());
    for (RecordId id = 0; id < source_.recordCount(); ++id) {
      const Handle own = source_.handle(id).value_or(0);
      if (own == 0 || !taken_.insert(own).second) continue;
      handles_[id] = own;
      if (source_.record(id).kind == RecordKind::kTable) control_[source_.record(id).table] = own;
    }
    for (Handle& handle : handles_)
      if (handle == 0) handle = freeHandle();
    for (const auto& [table, control] : kControls)
      if (control_[table] == 0) control_[table] = freeHandle();
    for (const RecordId block : source_.tableRecords(Table::kBlock)) {
      const RecordId entry = source_.find(Table::kBlockRecord, source_.recordName(block));
      entry_[block] = entry == kNoRecord ? freeHandle() : handles_[entry];
    }
    for (const char* name : {"ByBlock", "ByLayer", "Continuous"})
      named_[name] = handleOf(Table::kLinetype, std::wstring(name, name + std::string_view(name).size()));
    layer0_ = handleOf(Table::kLayer, L"0"), standard_ = handleOf(Table::kTextStyle, L"Standard");
    const RecordId dimStyle = source_.find(Table::kDimStyle, std::wstring_view(L"Standard"));
    if (dimStyle != kNoRecord) dimStandard_ = handles_[dimStyle];
  }

  // Of what every drawing has.
  Handle handleOf(Table table, const std::wstring& name) {
    const RecordId id = source_.find(table, std::wstring_view(name));
    if (id != kNoRecord) return handles_[id];
    const Handle handle = freeHandle();
    FieldChanges values;
    values.set("name", text(name));
    addRecord(table, recordKind(table), handle, std::move(values));
    return handle;
  }

  Handle referred(RecordId id, Property property, Handle otherwise) const {
    const RecordId named = source_.reference(id, property);
    return named == kNoRecord ? otherwise : handles_[named];
  }

  // --- Tables --------------------------------------------------------------------------------------------
  Value text(std::wstring_view shown) const {
    return empty_.fieldText(encodeStored(shown, empty_.facts().codePage));
  }
  Value textOf(RecordId id, Property property) const {
    return text(source_.text(id, property).value_or(std::wstring()));
  }

  void add(ObjectKind kind, Handle handle, const FieldChanges& values) {
    add(kind, handle, values, classes_);
  }
  void add(ObjectKind kind, Handle handle, const FieldChanges& values,
           const std::vector<FileClass>& classes) {
    const auto object = build(kind, version_, handle, values, classes);
    if (!object.ok())
      throw std::logic_error("an object cannot be made: " + base::toUtf8(object.failure().text()));
    changes_.objects.push_back({handle, false, object.value().data, object.value().handleBits});
  }

  void addRecord(Table table, ObjectKind kind, Handle handle, FieldChanges values) {
    values.setHandle("owner", control_[table]);
    add(kind, handle, values);
    listed_[table].push_back(handle);
  }

  void makeTable(Table table) {
    if (table == Table::kBlockRecord) return;
    for (const RecordId id : source_.tableRecords(table)) {
      FieldChanges values;
      const std::int64_t flags = source_.integer(id, Property::kStandardFlags).value_or(0);
      values.set("name", textOf(id, Property::kName));
      if (table == Table::kLayer) values.setHandle("linetype", named_["Continuous"]);
      if (table == Table::kLayer) values.setColor("color", numbered(7));
      if (table == Table::kDimStyle) values.setHandle("DIMTXSTY", standard_);
      if (table == Table::kTextStyle)
        values.set("shape file", (flags & TextStyleFlag::kShapeFile) != 0),
            values.set("vertical", (flags & TextStyleFlag::kVertical) != 0);
      if (table == Table::kLinetype && !hasWideTexts(version_))
        values.set("texts", Value(std::string(256, '\0')));
      addRecord(table, recordKind(table), handles_[id], std::move(values));
    }
  }

  static Color numbered(std::int64_t number) {
    Color color;
    color.number = static_cast<std::int16_t>(number);
    return color;
  }

  void makeControls() {
    for (const auto& [table, kind] : kControls) {
      FieldChanges values;
      std::uint32_t count = 0;
      for (const Handle entry : listed_[table]) {
        const bool isApart = entry == entry_[source_.modelSpace()] || entry == entry_[source_.paperSpace()] ||
                             entry == named_["ByBlock"] || entry == named_["ByLayer"];
        if (!isApart) values.setHandle("entry", entry, count++);
      }
      values.set("entry count", count);
      if (kind == kBlockControl)
        values.setHandle("model space", entry_[source_.modelSpace()]),
            values.setHandle("paper space", entry_[source_.paperSpace()]);
      if (kind == kLinetypeControl)
        values.setHandle("by block", named_["ByBlock"]), values.setHandle("by layer", named_["ByLayer"]);
      add(kind, control_[table], values);
    }
  }

  FieldChanges variables() {
    FieldChanges variables;
    constexpr Handle kLeastSeed = 0x400;
    variables.setHandle("HANDSEED", std::max(*taken_.rbegin() + 1, kLeastSeed));
    variables.setHandle("CLAYER", layer0_), variables.setHandle("TEXTSTYLE", standard_);
    variables.setHandle("CELTYPE", named_["ByLayer"]), variables.setHandle("DIMSTYLE", dimStandard_);
    variables.setHandle("DIMTXSTY", standard_), variables.set("TILEMODE", true);
    constexpr std::pair<const char*, Table> kListed[] = {
        {"LAYER CONTROL", Table::kLayer},       {"STYLE CONTROL", Table::kTextStyle},
        {"LTYPE CONTROL", Table::kLinetype},    {"APPID CONTROL", Table::kAppId},
        {"BLOCK CONTROL", Table::kBlockRecord}, {"DIMSTYLE CONTROL", Table::kDimStyle}};
    for (const auto& [name, table] : kListed) variables.setHandle(name, control_[table]);
    variables.setHandle("MODEL SPACE", entry_[source_.modelSpace()]);
    variables.setHandle("PAPER SPACE", entry_[source_.paperSpace()]);
    return variables;
  }

  // --- Blocks --------------------------------------------------------------------------------------------
  // Adds the entities one behind the other; `names` are the fields by which their owner knows them.
  struct OwnerFields {
    const char *count, *each, *first, *last;
  };

  void addChain(const std::vector<RecordId>& entities, const OwnerFields& names, Handle owner,
                FieldChanges& of) {
    for (std::size_t i = 0; i < entities.size(); ++i) {
      FieldChanges values;
      const Handle own = handles_[entities[i]], previous = i == 0 ? 0 : handles_[entities[i - 1]],
                   next = i + 1 == entities.size() ? 0 : handles_[entities[i + 1]];
      const bool areImplied = previous + 1 == own && next == own + 1;
      if (!since(Version::kR2004) && !areImplied) {
        values.set("no links", false);
        values.setHandle("previous", previous), values.setHandle("next", next);
      }
      addEntity(entities[i], owner, std::move(values));
    }
    if (since(Version::kR2004)) {
      of.set(names.count, entities.size());
      for (std::uint32_t i = 0; i < entities.size(); ++i) of.setHandle(names.each, handles_[entities[i]], i);
    } else if (!entities.empty()) {
      of.setHandle(names.first, handles_[entities.front()]),
          of.setHandle(names.last, handles_[entities.back()]);
    }
  }

  void makeBlock(RecordId block) {
    const std::wstring name = source_.text(block, Property::kName).value_or(std::wstring());
    const std::int64_t flags = source_.integer(block, Property::kStandardFlags).value_or(0);
    const bool isAnonymous = name.starts_with(L'*') && !source_.isLayoutSpace(block);
    FieldChanges values, begin, end;
    values.set("name", text(isAnonymous ? std::wstring_view(name).substr(0, 2) : name));
    values.set("anonymous", isAnonymous), values.set("has attributes", (flags & 2) != 0);
    values.set("base point", Value(source_.record(block).implied() ? Point{} : source_.basePoint(block)));
    const bool isExternal = (flags & BlockFlag::kExternal) != 0;
    values.set("external", isExternal);
    if (!isExternal)
      addChain(source_.entitiesOf(block), {"entity count", "entity", "first entity", "last entity"},
               entry_[block], values);
    const RecordId last = source_.endOfBlock(block);
    const Handle lastHandle = last == kNoRecord ? freeHandle() : handles_[last];
    values.setHandle("block", handles_[block]), values.setHandle("end of block", lastHandle);
    addRecord(Table::kBlockRecord, kBlockHeader, entry_[block], std::move(values));
    begin.set("name", text(name));
    addCommon(block, entry_[block], begin), addCommon(block, entry_[block], end);
    add(kBlock, handles_[block], begin), add(kEndblk, lastHandle, end);
  }

  // --- Entities ------------------------------------------------------------------------------------------
  void addCommon(RecordId id, Handle owner, FieldChanges& values) {
    const bool inModel = owner == entry_[source_.modelSpace()],
               inPaper = owner == entry_[source_.paperSpace()];
    values.set("entity mode", inModel ? 2 : inPaper ? 1 : 0);
    if (!inModel && !inPaper) values.setHandle("owner", owner);
    values.setHandle("layer", referred(id, Property::kLayer, layer0_));
  }

  void addEntity(RecordId id, Handle owner, FieldChanges values) {
    addCommon(id, owner, values);
    Color color = numbered(source_.integer(id, Property::kColorIndex).value_or(256));
    if (since(Version::kR2004)) color.rgb = source_.looks(id).trueColor;
    values.setColor("color", color);
    const std::string type(source_.typeName(id));
    if (const std::optional<ObjectKind> kind = addOwn(id, type, source_.geometry(id), values))
      return add(*kind, handles_[id], values);
    // It gets the class's number, but is described as what has little of its own.
    std::vector<FileClass> classes = classes_;
    const auto own = std::ranges::find(classes, type, &FileClass::dxfName);
    if (own == classes.end()) throw std::logic_error("no class for an entity of the type " + type);
    own->dxfName = "ACAD_TABLE";
    add(kTable, handles_[id], values, classes);
  }

  std::optional<ObjectKind> addOwn(RecordId id, const std::string& type, const Geometry& geometry,
                                   FieldChanges& values) {
    if (type == "INSERT" || type == "POLYLINE") addParts(id, type, values);
    if (const auto found = kParts.find(type); found != kParts.end()) {
      if (const auto vertex = vertices_.find(id); vertex != vertices_.end()) {
        const PolylineGeometry::Vertex& at = vertex->second;
        values.set("point", Value(at.at)), values.set("bulge", at.bulge);
        values.set("start width", at.startWidth), values.set("end width", at.endWidth);
      }
      if (found->second != kAttrib) return found->second;
      addGeometry(empty_, "TEXT", geometry, values);
      values.set("tag", textOf(id, Property::kName)), values.setHandle("style", standard_);
      values.set("flags", std::get<TextGeometry>(geometry.shape).hidden ? 1 : 0);
      return kAttrib;
    }
    if (type == "TEXT" || type == "MTEXT" || type == "ATTDEF") values.setHandle("style", standard_);
    if (const auto* insert = std::get_if<InsertGeometry>(&geometry.shape))
      values.setHandle("block", insert->block == kNoRecord ? 0 : entry_[insert->block]);
    if (std::ranges::find(kDimensions, type) != std::end(kDimensions))
      return addDimension(id, std::get<DimensionGeometry>(geometry.shape), geometry.normal, values);
    if (type == "ACAD_TABLE") return kTable;
    if (type == "POLYLINE") return addPolyline(geometry, values);
    if (type == "LEADER") return addLeader(id, geometry, values);
    if (type == "HATCH") return addHatch(geometry, values);
    if (type == "VIEWPORT") return kViewport;
    if (type == "INSERT") {
      auto known = geometry;
      if (auto* insert = std::get_if<InsertGeometry>(&known.shape)) insert->block = 0;
      return addGeometry(empty_, type, known, values);
    }
    return addGeometry(empty_, type, geometry, values);
  }

  void addParts(RecordId id, const std::string& type, FieldChanges& values) {
    std::vector<RecordId> parts;
    RecordId end = kNoRecord;
    for (const RecordId part : source_.subRecordsOf(id)) {
      if (source_.typeName(part) == "SEQEND")
        end = part;
      else
        parts.push_back(part);
    }
    const Geometry geometry = source_.geometry(id);
    if (const auto* polyline = std::get_if<PolylineGeometry>(&geometry.shape);
        polyline != nullptr && polyline->vertices.size() == parts.size())
      for (std::size_t i = 0; i < parts.size(); ++i) vertices_[parts[i]] = polyline->vertices[i];
    const bool isInsert = type == "INSERT";
    if (parts.empty() && isInsert) return;
    if (isInsert) values.set("has attributes", true);
    const OwnerFields attributes{"attribute count", "attribute", "first attribute", "last attribute"};
    const OwnerFields vertices{"vertex count", "vertex", "first vertex", "last vertex"};
    addChain(parts, isInsert ? attributes : vertices, handles_[id], values);
    if (end != kNoRecord) addEntity(end, handles_[id], {});
    values.setHandle("sequence end", end == kNoRecord ? 0 : handles_[end]);
  }

  std::optional<ObjectKind> addPolyline(const Geometry& geometry, FieldChanges& values) {
    const auto* polyline = std::get_if<PolylineGeometry>(&geometry.shape);
    if (polyline == nullptr) throw std::logic_error("a mesh is not copied");
    values.set("flags", polyline->closed ? 1 : 0), values.set("extrusion", Value(geometry.normal));
    if (!polyline->vertices.empty()) values.set("elevation", polyline->vertices.front().at.z);
    return kPolyline2d;
  }

  ObjectKind addDimension(RecordId id, const DimensionGeometry& dimension, const Point& normal,
                          FieldChanges& values) {
    const ObjectKind kind = dimensionKind(dimension.kind);
    const auto isOf = [kind](std::initializer_list<ObjectKind> kinds) {
      return std::ranges::find(kinds, kind) != kinds.end();
    };
    const bool isStraight = isOf({kDimensionLinear, kDimensionAligned});
    values.set("extrusion", Value(normal));
    values.set("text midpoint", Value(Point{dimension.text.x, dimension.text.y, 0}));
    values.set("elevation", dimension.text.z);
    values.set("flags 1", dimension.userText ? 0 : 1);
    values.set("horizontal direction", dimension.horizontal * kRadiansPerDegree);
    values.set("point 10", Value(dimension.line));
    if (!isOf({kDimensionRadius, kDimensionDiameter}))
      values.set("point 13", Value(dimension.first)), values.set("point 14", Value(dimension.second));
    if (!isStraight && kind != kDimensionOrdinate) values.set("point 15", Value(dimension.third));
    if (isOf({kDimensionAngular2Line, kDimensionArc})) values.set("point 16", Value(dimension.arc));
    if (kind == kDimensionOrdinate) values.set("flags 2", dimension.alongX ? 1 : 0);
    if (isStraight) values.set("oblique angle", dimension.oblique * kRadiansPerDegree);
    if (kind == kDimensionLinear) values.set("rotation", dimension.rotation * kRadiansPerDegree);
    values.setHandle("dimension style", referred(id, Property::kDimStyle, dimStandard_));
    values.setHandle("block", dimension.block == kNoRecord ? 0 : entry_[dimension.block]);
    return kind;
  }

  ObjectKind addLeader(RecordId id, const Geometry& geometry, FieldChanges& values) {
    std::vector<Point> points;
    if (const auto* lines = std::get_if<PolylineGeometry>(&geometry.shape))
      for (const auto& vertex : lines->vertices) points.push_back(vertex.at);
    if (const auto* curve = std::get_if<SplineGeometry>(&geometry.shape)) points = curve->fit;
    values.set("path type", std::holds_alternative<SplineGeometry>(geometry.shape) ? 1 : 0);
    values.set("vertex count", points.size());
    for (std::uint32_t i = 0; i < points.size(); ++i) values.set("vertex", Value(points[i]), i);
    values.setHandle("dimension style", referred(id, Property::kDimStyle, dimStandard_));
    return kLeader;
  }

  ObjectKind addHatch(const Geometry& geometry, FieldChanges& values) {
    const auto& hatch = std::get<HatchGeometry>(geometry.shape);
    values.set("name", text(hatch.solid ? L"SOLID" : L"USER")), values.set("solid", hatch.solid);
    values.set("path count", hatch.paths.size()), values.set("pattern type", 1);
    std::uint32_t points = 0;
    for (std::uint32_t i = 0; i < hatch.paths.size(); ++i) {
      const auto* path = std::get_if<PolylineGeometry>(&hatch.paths[i].edges.front());
      if (path == nullptr) throw std::logic_error("a hatch has a path that is not copied");
      constexpr int kOuterPolyline = 3;
      values.set("path flags", kOuterPolyline, i), values.set("closed", path->closed, i);
      values.set("point count", path->vertices.size(), i);
      for (const auto& vertex : path->vertices) values.set("point", Value(vertex.at), points++);
    }
    return kHatch;
  }

  const Drawing& source_;
  Version version_;
  std::vector<FileClass> classes_;
  DwgStorage empty_;
  std::vector<Handle> handles_;  // of the records
  std::set<Handle> taken_;
  Handle nextFree_ = 1;
  std::map<Table, Handle> control_;
  std::map<Table, std::vector<Handle>> listed_;
  std::map<RecordId, Handle> entry_;  // of the blocks
  std::map<RecordId, PolylineGeometry::Vertex> vertices_;
  std::map<std::string_view, Handle> named_;
  Handle layer0_ = 0, standard_ = 0, dimStandard_ = 0;
  FileChanges changes_;
};

}  // namespace

std::string dwgOf(const Drawing& drawing) { return Copy(drawing).make(); }

}  // namespace cad::dwg
