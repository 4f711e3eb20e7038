#pragma once
// A drawing in memory: its records, the few properties that selection needs held ready,
// everything else read from a record when somebody asks. Every change goes through a setter here, is
// journalled, and changes that property in the record and nothing else.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/geometry.h"
#include "embedded/drawing/names.h"
#include "embedded/drawing/property.h"
#include "embedded/drawing/record.h"
#include "embedded/drawing/shapes.h"
#include "embedded/drawing/signature_table.h"
#include "embedded/drawing/storage.h"
#include "embedded/drawing/table_index.h"
#include "embedded/drawing/undo_journal.h"

namespace cad {

// What a file format found in its one pass over the file.
struct LoadedRecords {
  std::vector<Record> records;  // as they were found; the owner of the entities of model space and the active
                                // paper space is one of the two below
  SignatureTable signatures;
  NamePool names;
  static constexpr RecordId kInModelSpace = 0xFFFFFFFD, kInPaperSpace = 0xFFFFFFFC;
};

class Drawing {
 public:
  Drawing(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded);
  ~Drawing();
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  // --- The file -------------------------------------------------------------------------------
  const DrawingFacts& facts() const { return storage_->facts(); }
  std::wstring_view format() const { return storage_->format(); }  // of the file: three letters
  const std::filesystem::path& path() const { return path_; }      // empty: never saved
  void setPath(std::filesystem::path path) { path_ = std::move(path); }
  // Atomic. An unchanged drawing is written byte for byte as it was read. Clears the modified state and
  // makes `target` the drawing's path; on failure neither changes and no file is left.
  base::Status save(const std::filesystem::path& target);
  bool isModified() const;
  // Grows with every change, undone ones included: what was made of the drawing is stale when it differs.
  std::uint64_t revision() const { return revision_; }

  // --- Records --------------------------------------------------------------------------------
  std::size_t recordCount() const { return records_.size(); }
  const Record& record(RecordId id) const { return records_[id]; }
  std::string_view typeName(RecordId id) const;  // "TEXT"; upper-case ASCII
  std::optional<Handle> handle(RecordId id) const;
  RecordId findHandle(Handle handle) const;  // kNoRecord when absent; the index is built on first use

  // --- Properties: absent when the record holds no value (the property's default then applies) ----
  std::optional<double> real(RecordId id, Property property) const;
  std::optional<std::int64_t> integer(RecordId id, Property property) const;
  std::optional<std::wstring> text(RecordId id, Property property) const;
  // Layer, linetype, style, block or dimension-style name. Entities always have a layer ("0") and a
  // linetype ("ByLayer"), texts always a style ("Standard"); kNoName where the property does not apply.
  NameId name(RecordId id, Property property) const;
  // The record of that name; kNoRecord when the drawing has none.
  RecordId reference(RecordId id, Property property) const;
  Geometry geometry(RecordId entity) const;  // nothing for types that are not drawn

  // Refused: a value outside the property's limits, a property that this type of record or this drawing
  // version cannot hold. Setting the value that is already there changes nothing and is no modification.
  base::Status setReal(RecordId id, Property property, double value);
  base::Status setInteger(RecordId id, Property property, std::int64_t value);
  // A text may also be the name of the record that is referred to; it is refused when there is none.
  base::Status setText(RecordId id, Property property, std::wstring_view value);
  base::Status setReference(RecordId id, Property property, RecordId value);

  // --- Dimension variables: overrides of a dimension or leader, values of a dimension style -------
  // `variable` is its row in the table of dimension variables.
  std::optional<Variable> dimVariable(RecordId id, const DimVariableInfo& variable) const;
  base::Status setDimVariable(RecordId id, const DimVariableInfo& variable, const Variable& value);
  base::Status removeDimOverride(RecordId id, const DimVariableInfo& variable);

  // --- Drawing variables (kept in the drawing's header): name without the dollar sign, upper-case ---
  std::optional<Variable> headerVariable(std::string_view name) const;
  base::Status setHeaderVariable(std::string_view name, const Variable& value);

  // --- Names and tables -------------------------------------------------------------------------
  NamePool& names() { return names_; }
  const NamePool& names() const { return names_; }
  // Ignores case. kNoRecord when absent or erased. Tables hold implied records too: layer "0" and every
  // layer that an entity names, linetypes ByLayer, ByBlock and Continuous, style Standard; such a record
  // enters the file only when it is changed.
  RecordId find(Table table, std::wstring_view name) const;
  RecordId find(Table table, NameId name) const;                  // cached per name
  RecordId findStored(Table table, std::string_view name) const;  // by its bytes in the file; cached as well
  const std::vector<RecordId>& tableRecords(Table table) const;   // in table order, without erased ones
  // What a table's record is called; the blocks of the spaces go by one name, however the file spells it.
  NameId recordName(RecordId id) const;
  base::Result<RecordId> addTableRecord(Table table, std::wstring_view name);
  // The pattern of a linetype record: at most 12 dashes, with texts and shapes from R13 on.
  base::Status setDashes(RecordId linetype, std::span<const Dash> dashes);
  std::vector<Dash> dashes(RecordId linetype) const;
  // The text style record, without a name, that stands for a file of shapes; made when there is none.
  base::Result<RecordId> shapeFile(std::wstring_view file);
  bool isShapeFile(RecordId style) const;
  // What refers to the layer follows it: entities, extended data, the current layer.
  base::Status renameLayer(RecordId layer, std::wstring_view newName);
  bool isLayerLocked(NameId layer) const;  // cached until a layer record changes

  // --- Blocks -------------------------------------------------------------------------------------
  // A block is known by its table record's id (tableRecords(Table::kBlock)). Model space and paper
  // space always exist, under the names "*Model_Space" and "*Paper_Space" whatever the file calls them.
  RecordId modelSpace() const;
  RecordId paperSpace() const;
  bool isLayoutSpace(RecordId block) const;  // model space or any paper space
  // Main entities of a block in drawing order, erased ones included (Record::erased()).
  const std::vector<RecordId>& entitiesOf(RecordId block) const;
  RecordId blockOf(RecordId entity) const;
  // Sub-records of an INSERT with attributes or of an old-style POLYLINE, the sequence end included.
  std::span<const RecordId> subRecordsOf(RecordId entity) const;
  Point basePoint(RecordId block) const;  // of model space: that of a reference to the whole drawing
  base::Result<RecordId> defineBlock(std::wstring_view name, std::span<const Shape> shapes);
  // Copies the model space of `source` as the block `name`, with the layers, linetypes, styles and nested
  // blocks it needs; an existing block of that name gets the new content (references stay). From a drawing
  // of another format: what both know of it (see TypedBlockCopy).
  base::Result<RecordId> defineBlock(std::wstring_view name, const Drawing& source);
  // The block's definitions of attributes that vary from reference to reference, in their order.
  std::vector<RecordId> attributeDefinitionsOf(RecordId block) const;
  base::Result<RecordId> addInsert(RecordId space, const NewInsert& insert);
  base::Status setErased(RecordId id, bool erased);
  RecordId lastEntity() const;  // the newest entity of model or paper space that is not erased

  // --- Selection ------------------------------------------------------------------------------------
  // Entities of equal type, layer, linetype, style and colour share a signature.
  std::size_t signatureCount() const { return signatures_.all().size(); }
  const Signature& signature(SignatureId id) const { return signatures_[id]; }
  // Calls visit for each entity of model and paper spaces that is not erased and whose signature is
  // marked in `wanted` (indexed by SignatureId), newest first. Touches no entity when nothing is marked.
  void forEachSpaceEntity(const std::vector<bool>& wanted, const std::function<void(RecordId)>& visit) const;

  // --- Undo -------------------------------------------------------------------------------------------
  void beginUndoGroup();  // groups do not nest: a second begin ends the first
  void endUndoGroup();
  // Takes back the newest group, or the newest change outside a group. False when there is none.
  bool undo();

  // --- For the storage and for setters that change several records --------------------------------
  RecordStorage& storage() { return *storage_; }
  const RecordStorage& storage() const { return *storage_; }
  // False when this type of record or this drawing's version cannot hold the property.
  bool canHold(RecordId id, Property property) const;
  // Puts the record into another state; journalled, and everything derived from the record follows.
  void setEdits(RecordId id, EditId edits);
  // A property's value as it is, without the checks of the setters above.
  base::Status setStored(RecordId id, Property property, const StoredValue& value);
  // Where entities hold no names: what is known of those of the layer `from` is brought to its new name.
  void layerRenamed(NameId from, NameId to);
  // Grows with every change of an entity, and of a record that the storage has marked.
  std::uint64_t entityRevision() const { return entityRevision_; }
  // A record that the storage has made, its offset and length set: a new one, or what the implied record
  // `implied` of the list gets. Journalled.
  RecordId enter(Record record, RecordId implied = kNoRecord);
  // Gives an implied record its own place in the file; journalled. Others are left as they are.
  base::Status materialise(RecordId id);
  RecordId endOfBlock(RecordId block) const;  // of the kind kBlockEnd; kNoRecord when the file has none

  // Changes made while it lives are one step of undo (part of the open group when there is one).
  class ChangeScope {
   public:
    explicit ChangeScope(Drawing& drawing);
    ~ChangeScope();
    ChangeScope(const ChangeScope&) = delete;
    ChangeScope& operator=(const ChangeScope&) = delete;
    void rollBack();  // takes back every change since the beginning of the scope

   private:
    Drawing& drawing_;
    std::size_t begin_;
    bool opened_;
  };

 private:
  static constexpr std::size_t kTables = static_cast<std::size_t>(Table::kBlockRecord) + 1;
  using BlockLists = std::unordered_map<RecordId, std::vector<RecordId>>;

  const TableIndex& table(Table table) const;  // brought up to date
  void buildTables();
  void addImpliedRecords();
  void addImplied(Table table, std::wstring_view name);
  RecordId addImpliedBlock(std::wstring_view name);
  RecordId append(Record record);
  RecordId enterNew(Record record);
  RecordId enterImplied(const Record& made, RecordId id);
  base::Status checkValue(RecordId id, Property property, double value) const;
  NameId nameInFile(RecordId id) const;
  NameId nameOf(const StoredValue& value) const;  // of a name or a reference
  SignatureId signatureWith(const Record& record, Property property, const StoredValue& value);
  void setState(RecordId id, EditId edits, SignatureId signature, std::uint8_t flags);
  void count(const Record& record, int difference);
  void memberChanged(RecordId id, NameId before, bool wasErased);
  void eraseOne(RecordId id, bool erased);
  void undoOne();

  std::unique_ptr<RecordStorage> storage_;
  std::filesystem::path path_;
  std::vector<Record> records_;
  SignatureTable signatures_;
  struct SignatureStep {  // where a change of one property led from a signature
    Property property = Property::kCount;
    std::int64_t value = 0;  // a NameId, or the colour
    SignatureId to = 0;
  };
  std::vector<SignatureStep> lastSteps_;  // by signature: the latest
  mutable NamePool names_;
  RecordId modelSpace_ = kNoRecord, paperSpace_ = kNoRecord;
  UndoJournal journal_;
  bool modified_ = false;
  std::uint64_t revision_ = 0, entityRevision_ = 0;
  std::unordered_map<RecordId, NameId> impliedNames_;
  std::vector<std::uint32_t> spaceCounts_;  // by signature: live entities of the layout spaces
  mutable std::array<TableIndex, kTables> tables_;
  mutable std::unordered_map<RecordId, NameId> recordNames_;  // as far as they have been asked for
  mutable std::vector<signed char> locked_;                   // by layer name; -1: not asked
  mutable std::unique_ptr<BlockLists> blockLists_;
  mutable std::unique_ptr<std::vector<RecordId>> subRecords_;
  mutable std::unique_ptr<std::unordered_map<Handle, RecordId>> handles_;
};

}  // namespace cad
