#pragma once
// What a file format does for the drawing: it holds what the records consist of and knows where each typed
// property stands in it.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/block_entity.h"
#include "embedded/drawing/drawing_file.h"
#include "embedded/drawing/geometry.h"
#include "embedded/drawing/layout.h"
#include "embedded/drawing/linetype_pattern.h"
#include "embedded/drawing/property.h"

namespace base {
struct DimVariableInfo;
}

namespace cad {

using base::DimVariableInfo;

class BlockCopy;
class Drawing;

// A variable's value by the host's own type.
using Variable = std::variant<std::int64_t, double, std::wstring>;

// What an entity has besides its signature, or a layer's record; the defaults where it says nothing.
struct EntityLooks {
  std::int16_t lineWeight = -1;           // as Property::kLineWeight
  std::int32_t transparency = 0;          // as Property::kTransparency; of an entity
  std::optional<std::int32_t> trueColor;  // 0xRRGGBB beside the colour number
  double linetypeScale = 1;               // of an entity
};

// A dimension variable and what it is.
struct DimValue {
  const DimVariableInfo* variable = nullptr;
  Variable value;
};

// A variable of the header, by its name without the dollar sign, with all its values as one text.
struct HeaderValue {
  std::string name;
  std::wstring text;
};

// Which parts of a record otherData() tells.
struct OtherParts {
  bool handles = true;   // references to other records
  bool geometry = true;  // what stands where a record's geometry stands
};

// A state of a record: the newest of a chain of changes, none of which is altered (Record::edits).
using EditId = std::uint32_t;
inline constexpr EditId kNoEdit = 0;  // the record as it was read or added

// A record that another refers to.
struct Reference {
  RecordId record = kNoRecord;
  bool operator==(const Reference&) const = default;
};

// A property's value in a record; names and texts as encodeStored() makes them. A reference to a record of a
// table is set as such; a storage whose records hold the name instead gives the name. monostate: none.
using StoredValue = std::variant<std::monostate, std::int64_t, double, std::string, Reference>;

// What a new block begins with.
struct BlockHead {
  Point base;
  bool hasAttributes = false;  // it holds attribute definitions
};

// A reference to be made. `attributes`: a value for each of the block's definitions that vary; without any
// the reference has no attributes.
struct NewInsert {
  RecordId block = kNoRecord;
  Point at;
  double scale = 1, rotation = 0;  // degrees
  std::span<const std::wstring> attributes{};
};

class RecordStorage {
 public:
  virtual ~RecordStorage() = default;
  // What people call the format, three letters: it is also the extension of its files.
  virtual std::wstring_view format() const = 0;
  virtual const DrawingFacts& facts() const = 0;

  virtual std::string_view typeName(const Record& record) const = 0;
  virtual std::optional<Handle> handle(const Record& record) const = 0;
  virtual StoredValue property(const Record& record, Property property) const = 0;
  virtual EntityLooks looks(const Record& entity) const = 0;
  // Whether two states of an entity differ in nothing but what every entity has (layer, colour, linetype and
  // so on). False too where that is not to be told at a glance.
  virtual bool differInCommonOnly(const Record&, const Record&) const { return false; }
  // Whether a record of another drawing certainly holds the same, its handle included. False says nothing.
  virtual bool holdsSame(const Record& record, const RecordStorage& other, const Record& others) const {
    return &other == this && others.offset == record.offset && others.edits == record.edits;
  }
  // What the record holds that none of the properties and dimension variables tells, each piece as a text in
  // the format's own terms, alike for values that are.
  virtual std::vector<std::wstring> otherData(const Record&, const OtherParts&) const { return {}; }
  // Whether records of this type have the property and the file's version can hold it.
  virtual bool canHold(const Record& record, Property property) const = 0;
  virtual Geometry readGeometry(const Drawing& drawing, RecordId entity) const = 0;
  // The record's state with the property changed; Record::edits itself when nothing is different. What the
  // property needs elsewhere in the drawing is made.
  virtual base::Result<EditId> setProperty(Drawing& drawing, const Record& record, Property property,
                                           const StoredValue& value) = 0;
  // Names the layer anew, in its record and wherever the file refers to it by name.
  virtual base::Status renameLayer(Drawing& drawing, RecordId layer, std::wstring_view newName) = 0;
  // From the state that `record` gives; its names are interned in the drawing.
  virtual Signature readSignature(Drawing& drawing, const Record& record) const = 0;

  // A failure once what the drawing was read from has been written to by others: nothing is to be made of it.
  virtual base::Status checkUnchanged() const { return {}; }
  // Writes the drawing: `records` without the erased ones. Atomic.
  virtual base::Status save(const std::filesystem::path& target, std::span<const Record> records) const = 0;

  // --- New records and variables (the drawing's methods of the same names describe them) -------------
  // Makes a table's record where the format wants it, with a handle where records have one, and gives it to
  // Drawing::enter(), as it does with everything else that it has to add. Only the text style of a shape file
  // has no name. `implied`: the drawing's list has the record already, without anything in the file.
  virtual base::Result<RecordId> add(Drawing& drawing, Table table, std::wstring_view name,
                                     RecordId implied) = 0;
  // The newest record that entered the drawing is taken back: it has no place and nothing to hold any more.
  virtual void takeBack(RecordId record) = 0;
  // The linetype's state with this pattern in place of its own.
  virtual base::Result<EditId> setDashes(const Drawing& drawing, const Record& linetype,
                                         std::span<const Dash> dashes) = 0;
  virtual std::vector<Dash> dashes(const Drawing& drawing, RecordId linetype) const = 0;
  virtual base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name, const BlockHead& head,
                                             std::span<const Shape> shapes) = 0;
  // What copies blocks from `source` exact in everything; null when it is of another format. The drawing then
  // copies what it knows of them.
  virtual std::unique_ptr<BlockCopy> copierFrom(Drawing& drawing, const Drawing& source) = 0;
  virtual Point basePoint(const Drawing& drawing, RecordId block) const = 0;
  virtual std::vector<Layout> layouts(const Drawing& drawing) const = 0;
  // An entity at the end of a block that is no space, on layer 0, everything else by its layer.
  virtual base::Result<RecordId> addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                           const Geometry& geometry) = 0;
  // Entities at the end of a block that is no space, as programs write those of the blocks that they draw
  // themselves.
  virtual base::Status addEntities(Drawing& drawing, RecordId block,
                                   std::span<const BlockEntity> entities) = 0;
  // The leader's state with its last vertex elsewhere.
  virtual base::Result<EditId> setLastVertex(const Record& leader, const Point& at) = 0;
  // The dimension's state with the middle of its text elsewhere; the same where the record does not have it.
  virtual EditId setTextMiddle(const Record& dimension, const Point& at) = 0;
  virtual base::Result<RecordId> addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) = 0;
  virtual std::optional<Variable> dimVariable(const Drawing& drawing, RecordId id,
                                              const DimVariableInfo& variable) const = 0;
  // Every variable that the record itself has a value of.
  virtual std::vector<DimValue> dimVariables(const Drawing& drawing, const Record& record) const = 0;
  virtual base::Status setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& variable,
                                      const Variable& value) = 0;
  virtual base::Status removeDimOverride(Drawing& drawing, RecordId id, const DimVariableInfo& variable) = 0;
  virtual std::optional<Variable> headerVariable(const Drawing& drawing, std::string_view name) const = 0;
  virtual std::vector<HeaderValue> headerVariables(const Drawing&) const { return {}; }  // in their order
  virtual base::Status setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) = 0;
};

}  // namespace cad
