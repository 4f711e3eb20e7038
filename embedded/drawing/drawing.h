#pragma once
// A drawing in memory: its records, the few properties that selection needs held ready,
// everything else read from a record when somebody asks. Every change goes through a setter, is
// journalled, and changes that property in the record and nothing else.
//
// What a drawing is told by its layers: drawing_records.h (what a record holds), drawing_tables.h (records by
// name), drawing_blocks.h (what a block consists of), drawing_changes.h (erasing, selection, undo). Here are
// the setters, what is made anew, and saving.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/drawing_changes.h"

namespace cad {

class Drawing final : public DrawingChanges {
 public:
  Drawing(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded);
  ~Drawing();

  const std::filesystem::path& path() const { return path_; }  // empty: never saved
  void setPath(std::filesystem::path path) { path_ = std::move(path); }
  // Atomic. An unchanged drawing is written byte for byte as it was read. Clears the modified state and
  // makes `target` the drawing's path; on failure neither changes and no file is left.
  base::Status save(const std::filesystem::path& target);

  // --- Properties ---------------------------------------------------------------------------------
  // Refused: a value outside the property's limits, a property that this type of record or this drawing
  // version cannot hold. Setting the value that is already there changes nothing and is no modification.
  base::Status setReal(RecordId id, Property property, double value);
  base::Status setInteger(RecordId id, Property property, std::int64_t value);
  // A text may also be the name of the record that is referred to; it is refused when there is none.
  base::Status setText(RecordId id, Property property, std::wstring_view value);
  base::Status setReference(RecordId id, Property property, RecordId value);
  Geometry geometry(RecordId entity) const;  // nothing for types that are not drawn
  base::Status setLastVertex(RecordId leader, const Point& at);
  // DimensionGeometry::text; a record that does not have it stays as it is.
  void setTextMiddle(RecordId dimension, const Point& at);

  // --- Dimension variables: overrides of a dimension or leader, values of a dimension style -------
  // `variable` is its row in the table of dimension variables.
  std::optional<Variable> dimVariable(RecordId id, const DimVariableInfo& variable) const;
  base::Status setDimVariable(RecordId id, const DimVariableInfo& variable, const Variable& value);
  base::Status removeDimOverride(RecordId id, const DimVariableInfo& variable);
  std::vector<DimValue> dimVariables(const Record& record) const;  // those that the record itself has

  // --- Drawing variables (kept in the drawing's header): name without the dollar sign, upper-case ---
  std::optional<Variable> headerVariable(std::string_view name) const;
  base::Status setHeaderVariable(std::string_view name, const Variable& value);

  // --- Records of tables ----------------------------------------------------------------------------
  base::Result<RecordId> addTableRecord(Table table, std::wstring_view name);
  // What refers to the layer follows it: entities, extended data, the current layer.
  base::Status renameLayer(RecordId layer, std::wstring_view newName);
  // The pattern of a linetype record: at most 12 dashes, with texts and shapes from R13 on.
  base::Status setDashes(RecordId linetype, std::span<const Dash> dashes);
  std::vector<Dash> dashes(RecordId linetype) const;
  // The text style record, without a name, that stands for a file of shapes; made when there is none.
  base::Result<RecordId> shapeFile(std::wstring_view file);
  bool isShapeFile(RecordId style) const;

  // --- Blocks -----------------------------------------------------------------------------------------
  // Model space first, then the paper spaces in the order in which people see them; always one of each.
  std::vector<Layout> layouts() const { return storage().layouts(*this); }
  Point basePoint(RecordId block) const;  // of model space: that of a reference to the whole drawing
  base::Result<RecordId> defineBlock(std::wstring_view name, std::span<const Shape> shapes);
  // Copies the model space of `source` as the block `name`, with the layers, linetypes, styles and nested
  // blocks it needs; an existing block of that name gets the new content (references stay). From a drawing
  // of another format: what both know of it (see TypedBlockCopy). Refused as well: a source whose file has
  // been written to since it was read.
  base::Result<RecordId> defineBlock(std::wstring_view name, const Drawing& source);
  base::Result<RecordId> addInsert(RecordId space, const NewInsert& insert);
  // The block holds these entities in place of what it held; its name, its handle and what refers to it
  // stay. Refused: a space, an external reference, an entity of a type that the drawing's version does not
  // have.
  base::Status redefineContents(RecordId block, std::span<const BlockEntity> entities);
  // A new block of dimensions' kind ("*D12", a free number) with this content.
  base::Result<RecordId> addDimensionBlock(std::span<const BlockEntity> entities);

  // --- For the storage, and for setters that change several records -------------------------------------
  // Puts the record into another state; journalled, and everything derived from the record follows.
  void setEdits(RecordId id, EditId edits);
  // The same for a change of nothing that a selection can ask for.
  void setUnselectedEdits(RecordId id, EditId edits);
  // A property's value as it is, without the checks of the setters above.
  base::Status setStored(RecordId id, Property property, const StoredValue& value);
  // Where entities hold no names: what is known of those of the layer `from` is brought to its new name.
  void layerRenamed(NameId from, NameId to);
  // A record that the storage has made: a new one, or what the implied record `implied` of the list gets.
  // Journalled. An entity's signature is read unless it has one.
  RecordId enter(Record record, RecordId implied = kNoRecord);
  // Gives an implied record its own place in the file; journalled. Others are left as they are.
  base::Status materialise(RecordId id);

 private:
  base::Status checkValue(Property property, double value) const;
  // Whether a dimension gives this name to its block, which the drawing does not have: a new block of the
  // name would show that dimension, too.
  bool isNamedByDimension(const std::wstring& block);

  std::filesystem::path path_;
  std::unordered_set<std::wstring> missingBlocks_;  // folded names of what dimensions show
  std::size_t namesTaken_ = 0;                      // from the records up to here
  std::uint32_t lastDimensionBlock_ = 0;            // given last; no number is given twice
};

}  // namespace cad
