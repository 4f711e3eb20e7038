// New records and variables of drawings in memory.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/fold.h"
#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/names.h"
#include "embedded/drawing/stored_text.h"
#include "tests/embedded/memory/memory_storage.h"

namespace cad::memory {
namespace {

using P = Property;

base::Failure failure(std::wstring_view what, const wchar_t* why) { return {std::wstring(what), why}; }

struct ShapeObject {
  Object object;
  void operator()(const LineShape& line) { take("LINE", LineGeometry{line.from, line.to}); }
  void operator()(const CircleShape& circle) { take("CIRCLE", ArcGeometry{circle.centre, circle.radius}); }
  void operator()(const ArcShape& arc) {
    take("ARC", ArcGeometry{arc.centre, arc.radius, arc.start, arc.end});
  }
  void operator()(const SolidShape& solid) {
    take("SOLID", SolidGeometry{{solid.a, solid.b, solid.d, solid.c}});
  }
  void operator()(const PolylineShape& polyline) {
    PolylineGeometry shape;
    for (const auto& vertex : polyline.vertices)
      shape.vertices.push_back({{vertex.x, vertex.y}, vertex.bulge});
    shape.closed = polyline.closed;
    take("LWPOLYLINE", shape);
  }
  void take(const char* type, GeometryShape shape) {
    object.type = type;
    object.geometry.shape = std::move(shape);
  }
};

// A number in the type of its variable, or a text; absent when it does not fit.
std::optional<DimValue> fitted(PropertyType type, const Variable& value) {
  if (const auto* text = std::get_if<std::wstring>(&value))
    return type == PropertyType::kText ? std::optional<DimValue>(*text) : std::nullopt;
  if (type == PropertyType::kText) return std::nullopt;
  const auto* integer = std::get_if<std::int64_t>(&value);
  const double real = integer != nullptr ? static_cast<double>(*integer) : std::get<double>(value);
  if (type == PropertyType::kReal) return std::isfinite(real) ? std::optional<DimValue>(real) : std::nullopt;
  if (std::trunc(real) != real || std::fabs(real) > 32767) return std::nullopt;
  return static_cast<std::int64_t>(real);
}

// `table`: of a name; an arrow without one is the closed filled one.
base::Result<DimValue> kept(const Drawing& drawing, PropertyType type, Table table, const Variable& value,
                            std::wstring_view shown) {
  if (table == Table::kNone) {
    const auto number = fitted(type, value);
    return number ? base::Result<DimValue>(*number) : failure(shown, L"The value does not fit the variable");
  }
  const auto* name = std::get_if<std::wstring>(&value);
  if (name == nullptr) return failure(shown, L"The value does not fit the variable");
  if (name->empty() || *name == L".") return DimValue(Reference{});
  const RecordId record = drawing.find(table, std::wstring_view(*name));
  if (record == kNoRecord) return failure(*name, L"The drawing has no record of this name");
  return DimValue(Reference{record});
}

Variable told(const Drawing& drawing, const DimValue& value) {
  if (const auto* text = std::get_if<std::wstring>(&value)) return *text;
  if (const auto* real = std::get_if<double>(&value)) return *real;
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return *integer;
  const RecordId record = std::get<Reference>(value).record;
  return record == kNoRecord ? std::wstring() : drawing.names().text(drawing.recordName(record));
}

PropertyType valueTypeOf(const DimVariableInfo& variable) {
  if (variable.type == DimType::kReal) return PropertyType::kReal;
  return variable.isInteger() ? PropertyType::kInteger : PropertyType::kText;
}

const HeaderRow* findRow(std::string_view name) {
  const auto rows = headerRows();
  const auto found = std::ranges::find(rows, name, &HeaderRow::name);
  return found == rows.end() ? nullptr : &*found;
}

}  // namespace

std::span<const HeaderRow> headerRows() {
  using T = PropertyType;
  static const std::vector<HeaderRow> rows = [] {
    std::vector<HeaderRow> all = {{"CLAYER", T::kText, Table::kLayer},
                                  {"CELTYPE", T::kText, Table::kLinetype},
                                  {"TEXTSTYLE", T::kText, Table::kTextStyle},
                                  {"DIMSTYLE", T::kText, Table::kDimStyle}};
    for (const char* name : {"CECOLOR", "TILEMODE", "ATTMODE", "MIRRTEXT", "ORTHOMODE", "USERI1", "FILLMODE"})
      all.push_back({name, T::kInteger});
    for (const char* name : {"LTSCALE", "TEXTSIZE", "ELEVATION", "USERR1"}) all.push_back({name, T::kReal});
    for (const DimVariableInfo& each : kDimVariables)
      all.push_back({each.name, valueTypeOf(each), tableOf(each.type), each.versions.first});
    return all;
  }();
  return rows;
}

RecordId MemoryStorage::enter(Drawing& drawing, RecordKind kind, Table table, RecordId owner, Object object,
                              RecordId implied) {
  Record record;
  record.kind = kind;
  record.table = table;
  record.owner = owner;
  record.offset = keep(std::move(object));
  entered_.push_back(drawing.enter(record, implied));
  return entered_.back();
}

void MemoryStorage::takeBack(RecordId record) {
  if (entered_.empty() || entered_.back() != record) std::abort();
  entered_.pop_back();
}

std::unique_ptr<BlockCopy> MemoryStorage::copierFrom(Drawing&, const Drawing&) { return nullptr; }

base::Result<RecordId> MemoryStorage::add(Drawing& drawing, Table table, std::wstring_view name,
                                          RecordId implied) {
  if (table != Table::kAppId && hasForbiddenCharacter(name))
    return failure(name, L"The name holds a character that names cannot have");
  Object object;
  object.type = typeOf(table);
  object.values[P::kName] = encodeStored(name, facts_.codePage);
  return enter(drawing, RecordKind::kTableRecord, table, kNoRecord, std::move(object), implied);
}

base::Result<EditId> MemoryStorage::setDashes(const Drawing&, const Record& linetype,
                                              std::span<const Dash> dashes) {
  const bool symbols = std::ranges::any_of(dashes, [](const Dash& dash) { return dash.symbol.has_value(); });
  if (symbols && !facts_.linetypesHoldSymbols()) return failure({}, kNoSymbolsHere);
  Object next = object(linetype);
  next.dashes.assign(dashes.begin(), dashes.end());
  return changedTo(std::move(next));
}

std::vector<Dash> MemoryStorage::dashes(const Drawing& drawing, RecordId linetype) const {
  return object(drawing.record(linetype)).dashes;
}

base::Result<RecordId> MemoryStorage::defineBlock(Drawing& drawing, std::wstring_view name,
                                                  const BlockHead& head, std::span<const Shape> shapes) {
  if (name.empty()) return failure(name, L"A name must not be empty");
  RecordId block = drawing.find(Table::kBlock, name);
  if (block != kNoRecord && drawing.isLayoutSpace(block))
    return failure(name, L"A layout cannot be redefined");
  Drawing::ChangeScope scope(drawing);
  if (block == kNoRecord) {
    Object object;
    object.type = "BLOCK";
    object.values[P::kName] = encodeStored(name, facts_.codePage);
    block = enter(drawing, RecordKind::kBlockBegin, Table::kBlock, kNoRecord, std::move(object));
  } else {
    const std::vector<RecordId> content = drawing.entitiesOf(block);
    for (const RecordId id : content) static_cast<void>(drawing.setErased(id, true));
  }
  Object begun = object(drawing.record(block));
  begun.geometry.shape = PointGeometry{head.base};
  change(drawing, block, std::move(begun));
  const RecordId byBlock = drawing.find(Table::kLinetype, std::wstring_view(L"ByBlock"));
  for (const Shape& shape : shapes) {
    ShapeObject made;
    std::visit(made, shape);
    made.object.values = {{P::kLinetype, Reference{byBlock}}, {P::kColorIndex, std::int64_t{0}}};
    if (facts_.version >= Version::kR2000) made.object.values[P::kLineWeight] = std::int64_t{-2};
    enter(drawing, RecordKind::kEntity, Table::kNone, block, std::move(made.object));
  }
  return block;
}

Geometry MemoryStorage::readGeometry(const Drawing& drawing, RecordId entity) const {
  const Record& record = drawing.record(entity);
  Geometry geometry = object(record).geometry;
  geometry.invisible = property(record, P::kInvisible) == StoredValue(std::int64_t{1});
  return geometry;
}

Point MemoryStorage::basePoint(const Drawing& drawing, RecordId block) const {
  const auto* base = std::get_if<PointGeometry>(&object(drawing.record(block)).geometry.shape);
  return base == nullptr ? Point{} : base->at;
}

base::Result<RecordId> MemoryStorage::addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                                const Geometry& geometry) {
  const bool drawn = !std::holds_alternative<std::monostate>(geometry.shape);
  if (!drawn || std::holds_alternative<DimensionGeometry>(geometry.shape))
    return refusedType(type, L"Entities of this type are not copied between drawings of these formats");
  Object object;
  object.type = type;
  object.geometry = geometry;
  if (const auto* insert = std::get_if<InsertGeometry>(&geometry.shape))
    object.values[P::kBlockName] = Reference{insert->block};
  if (const auto* text = std::get_if<TextGeometry>(&geometry.shape))
    object.values[P::kTextHeight] = text->height;
  return enter(drawing, RecordKind::kEntity, Table::kNone, block, std::move(object));
}

base::Status MemoryStorage::addEntities(Drawing& drawing, RecordId block,
                                        std::span<const BlockEntity> entities) {
  for (const BlockEntity& entity : entities) {
    const auto named = [&](Table table, std::wstring_view name) {
      return Reference{drawing.find(table, name)};
    };
    Object object;
    object.type = entity.type;
    object.geometry = entity.geometry;
    object.trueColor = entity.trueColor;
    object.values[P::kLayer] = named(Table::kLayer, entity.layer);
    if (!entity.linetype.empty()) object.values[P::kLinetype] = named(Table::kLinetype, entity.linetype);
    if (entity.color != 256) object.values[P::kColorIndex] = std::int64_t{entity.color};
    if (entity.lineWeight != -1) object.values[P::kLineWeight] = std::int64_t{entity.lineWeight};
    if (entity.transparency != 0) object.values[P::kTransparency] = std::int64_t{entity.transparency};
    if (const auto* insert = std::get_if<InsertGeometry>(&entity.geometry.shape))
      object.values[P::kBlockName] = Reference{insert->block};
    if (const auto* text = std::get_if<TextGeometry>(&entity.geometry.shape)) {
      object.values[P::kTextHeight] = text->height;
      object.values[P::kTextString] = encodeStored(text->contents, facts_.codePage);
      object.values[P::kRotation] = text->rotation;
      const std::wstring style = entity.textStyle.empty() ? L"Standard" : entity.textStyle;
      object.values[P::kTextStyle] = named(Table::kTextStyle, style);
    }
    enter(drawing, RecordKind::kEntity, Table::kNone, block, std::move(object));
  }
  return {};
}

base::Result<EditId> MemoryStorage::setLastVertex(const Record& leader, const Point& at) {
  Object next = object(leader);
  if (auto* path = std::get_if<PolylineGeometry>(&next.geometry.shape)) path->vertices.back().at = at;
  if (auto* curve = std::get_if<SplineGeometry>(&next.geometry.shape)) curve->fit.back() = at;
  return changedTo(std::move(next));
}

EditId MemoryStorage::setTextMiddle(const Record& dimension, const Point& at) {
  Object next = object(dimension);
  std::get<DimensionGeometry>(next.geometry.shape).text = at;
  return changedTo(std::move(next));
}

base::Result<RecordId> MemoryStorage::addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) {
  Drawing::ChangeScope scope(drawing);
  const auto& variables = object(drawing.record(header_)).variables;
  const auto current = variables.find("CLAYER");
  const auto* layer = current == variables.end() ? nullptr : std::get_if<Reference>(&current->second);
  Object object;
  object.type = "INSERT";
  if (layer != nullptr) object.values[P::kLayer] = *layer;
  object.values[P::kBlockName] = Reference{insert.block};
  object.values[P::kRotation] = insert.rotation;
  const Point scale{insert.scale, insert.scale, insert.scale};
  object.geometry.shape = InsertGeometry{insert.block, insert.at, scale, insert.rotation};
  const RecordId made = enter(drawing, RecordKind::kEntity, Table::kNone, space, std::move(object));
  if (insert.attributes.empty()) return made;
  std::size_t next = 0;
  for (const RecordId definition : drawing.attributeDefinitionsOf(insert.block)) {
    Object attribute = this->object(drawing.record(definition));
    attribute.type = "ATTRIB";
    attribute.handle = 0;
    if (next < insert.attributes.size())
      attribute.values[P::kTextString] = encodeStored(insert.attributes[next], facts_.codePage);
    ++next;
    enter(drawing, RecordKind::kSubEntity, Table::kNone, made, std::move(attribute));
  }
  Object end;
  end.type = "SEQEND";
  enter(drawing, RecordKind::kSubEntity, Table::kNone, made, std::move(end));
  return made;
}

std::optional<Variable> MemoryStorage::dimVariable(const Drawing& drawing, RecordId id,
                                                   const DimVariableInfo& variable) const {
  const auto& values = object(drawing.record(id)).dimValues;
  const auto found = values.find(variable.row);
  return found == values.end() ? std::nullopt : std::optional(told(drawing, found->second));
}

std::vector<cad::DimValue> MemoryStorage::dimVariables(const Drawing& drawing, const Record& record) const {
  std::vector<cad::DimValue> values;
  for (const auto& [row, value] : object(record).dimValues)
    values.push_back({&kDimVariables[static_cast<std::size_t>(row)], told(drawing, value)});
  return values;
}

base::Status MemoryStorage::setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& variable,
                                           const Variable& value) {
  const std::wstring shown(variable.name.begin(), variable.name.end());
  if (!variable.existsIn(facts_.version))
    return failure(shown, L"The drawing's version does not have this variable");
  const std::string_view type = typeName(drawing.record(id));
  if (type != "DIMSTYLE" && !type.ends_with("DIMENSION") && type != "LEADER" && type != "TOLERANCE")
    return failure(shown, L"This object has no dimension variables");
  const auto wanted = kept(drawing, valueTypeOf(variable), tableOf(variable.type), value, shown);
  if (!wanted) return wanted.failure();
  Object next = object(drawing.record(id));
  const auto [present, isNew] = next.dimValues.try_emplace(variable.row, wanted.value());
  if (!isNew && present->second == wanted.value()) return {};
  present->second = wanted.value();
  change(drawing, id, std::move(next));
  return {};
}

base::Status MemoryStorage::removeDimOverride(Drawing& drawing, RecordId id,
                                              const DimVariableInfo& variable) {
  if (drawing.record(id).table == Table::kDimStyle) return failure({}, L"This is no override");
  Object next = object(drawing.record(id));
  if (next.dimValues.erase(variable.row) != 0) change(drawing, id, std::move(next));
  return {};
}

std::optional<Variable> MemoryStorage::headerVariable(const Drawing& drawing, std::string_view name) const {
  const auto& variables = object(drawing.record(header_)).variables;
  const auto found = variables.find(name);
  return found == variables.end() ? std::nullopt : std::optional(told(drawing, found->second));
}

base::Status MemoryStorage::setHeaderVariable(Drawing& drawing, std::string_view name,
                                              const Variable& value) {
  const HeaderRow* row = findRow(name);
  const std::wstring shown(name.begin(), name.end());
  if (row == nullptr || facts_.version < row->first)
    return failure(shown, L"The drawing's version does not have this variable");
  const auto wanted = kept(drawing, row->type, row->table, value, shown);
  if (!wanted) return wanted.failure();
  Object next = object(drawing.record(header_));
  const auto present = next.variables.find(name);
  if (present != next.variables.end() && present->second == wanted.value()) return {};
  next.variables.insert_or_assign(std::string(name), wanted.value());
  change(drawing, header_, std::move(next));
  return {};
}

}  // namespace cad::memory
