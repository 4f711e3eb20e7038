#pragma once
// The simplest storage that there can be: each record is an object in memory, whose references to others are
// their numbers. A state of a record is a copy of its object.

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"

namespace cad::memory {

using DimValue = std::variant<std::int64_t, double, std::wstring, Reference>;

struct Object {
  std::string type;
  Handle handle = 0;
  std::map<Property, StoredValue> values;
  std::map<int, DimValue> dimValues;  // by row
  std::vector<Dash> dashes;
  std::optional<std::int32_t> trueColor;
  Geometry geometry;                                       // of a block: its base point
  std::map<std::string, DimValue, std::less<>> variables;  // of the header
};

class MemoryStorage final : public RecordStorage {
 public:
  explicit MemoryStorage(const DrawingFacts& facts) : facts_(facts), states_(1) {}

  // The number of a record's first state, for Record::offset.
  std::uint32_t keep(Object object);
  void setHeader(RecordId header) { header_ = header; }
  const Object& object(const Record& record) const {
    return states_[record.edits != kNoEdit ? record.edits : record.offset];
  }

  std::wstring_view format() const override { return L"MEM"; }
  const DrawingFacts& facts() const override { return facts_; }
  std::string_view typeName(const Record& record) const override { return object(record).type; }
  std::optional<Handle> handle(const Record& record) const override;
  StoredValue property(const Record& record, Property property) const override;
  EntityLooks looks(const Record& entity) const override;
  bool canHold(const Record& record, Property property) const override;
  Geometry readGeometry(const Drawing& drawing, RecordId entity) const override;
  base::Result<EditId> setProperty(Drawing& drawing, const Record& record, Property property,
                                   const StoredValue& value) override;
  base::Status renameLayer(Drawing& drawing, RecordId layer, std::wstring_view newName) override;
  Signature readSignature(Drawing& drawing, const Record& record) const override;
  base::Status save(const std::filesystem::path& target, std::span<const Record> records) const override;

  base::Result<RecordId> add(Drawing& drawing, Table table, std::wstring_view name,
                             RecordId implied) override;
  // Ends the test program when it is not the newest record that goes.
  void takeBack(RecordId record) override;
  base::Result<EditId> setDashes(const Drawing& drawing, const Record& linetype,
                                 std::span<const Dash> dashes) override;
  std::vector<Dash> dashes(const Drawing& drawing, RecordId linetype) const override;
  base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name, const BlockHead& head,
                                     std::span<const Shape> shapes) override;
  std::unique_ptr<BlockCopy> copierFrom(Drawing& drawing, const Drawing& source) override;
  std::vector<Layout> layouts(const Drawing& drawing) const override {
    return {{L"Model", drawing.modelSpace()}, {L"Layout1", drawing.paperSpace()}};
  }
  Point basePoint(const Drawing& drawing, RecordId block) const override;
  base::Result<RecordId> addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                   const Geometry& geometry) override;
  base::Status addEntities(Drawing& drawing, RecordId block, std::span<const BlockEntity> entities) override;
  base::Result<EditId> setLastVertex(const Record& leader, const Point& at) override;
  EditId setTextMiddle(const Record& dimension, const Point& at) override;
  base::Result<RecordId> addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) override;
  std::optional<Variable> dimVariable(const Drawing& drawing, RecordId id,
                                      const DimVariableInfo& variable) const override;
  std::vector<cad::DimValue> dimVariables(const Drawing& drawing, const Record& record) const override;
  base::Status setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& variable,
                              const Variable& value) override;
  base::Status removeDimOverride(Drawing& drawing, RecordId id, const DimVariableInfo& variable) override;
  std::optional<Variable> headerVariable(const Drawing& drawing, std::string_view name) const override;
  base::Status setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) override;

 private:
  EditId changedTo(Object object);
  void change(Drawing& drawing, RecordId id, Object object) {
    drawing.setEdits(id, changedTo(std::move(object)));
  }
  RecordId enter(Drawing& drawing, RecordKind kind, Table table, RecordId owner, Object object,
                 RecordId implied = kNoRecord);

  DrawingFacts facts_;
  std::deque<Object> states_;
  std::vector<RecordId> entered_;
  Handle nextHandle_ = 1;
  RecordId header_ = kNoRecord;
};

// The variables of drawings besides those of dimensions: name, type and the table that a name is of.
struct HeaderRow {
  std::string_view name;
  PropertyType type;
  Table table = Table::kNone;
  Version first = Version::kR12;
};
std::span<const HeaderRow> headerRows();
std::string_view typeOf(Table table);  // of its records

std::string shown(const Geometry& geometry);  // every number of it

// The signature that an object has, when `nameOf` gives the names of others.
template <class NameOf>
Signature signatureOf(const Object& object, NamePool& names, NameOf nameOf) {
  const auto named = [&](Property property, std::string_view otherwise) {
    const auto found = object.values.find(property);
    const auto* reference = found == object.values.end() ? nullptr : std::get_if<Reference>(&found->second);
    return reference == nullptr ? names.intern(otherwise) : nameOf(reference->record);
  };
  const bool isText =
      object.type == "TEXT" || object.type == "MTEXT" || object.type == "ATTDEF" || object.type == "ATTRIB";
  Signature signature;
  signature.type = names.intern(std::string_view(object.type));
  signature.layer = named(Property::kLayer, "0");
  signature.linetype = named(Property::kLinetype, "ByLayer");
  if (isText) signature.style = named(Property::kTextStyle, "Standard");
  const auto color = object.values.find(Property::kColorIndex);
  if (color != object.values.end())
    signature.color = static_cast<std::int16_t>(std::get<std::int64_t>(color->second));
  return signature;
}

}  // namespace cad::memory
