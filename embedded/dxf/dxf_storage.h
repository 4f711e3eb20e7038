#pragma once
// The records of a DXF file: the mapped bytes, the edits over them and the records that were added.

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "embedded/drawing/storage.h"
#include "embedded/dxf/common_look.h"
#include "embedded/dxf/dialect.h"
#include "embedded/dxf/edit_store.h"
#include "embedded/dxf/file_frame.h"
#include "embedded/dxf/property_places.h"

namespace cad::dxf {

// One change of a record's bytes: `removed` bytes at `offset` give way to `bytes`.
struct Splice {
  std::uint32_t offset = 0;
  std::uint32_t removed = 0;
  std::string_view bytes;
};

// A new record; it will stand directly before the record `before`, after others added there.
struct PlacedRecord {
  RecordKind kind = RecordKind::kOther;
  Table table = Table::kNone;
  RecordId before = kNoRecord;
  RecordId owner = kNoRecord;
  std::string bytes{};
  RecordId implied = kNoRecord;  // see RecordStorage::add()
  SignatureId signature = 0;     // of an entity, where it is known
};

class DxfStorage final : public RecordStorage {
 public:
  DxfStorage(std::shared_ptr<const SourceBytes> source, const Dialect& dialect, DrawingFacts facts,
             const FileFrame& frame);

  // --- Bytes ------------------------------------------------------------------------------------------
  const Dialect& dialect() const { return dialect_; }
  // The record's present bytes, all edits applied. A view of the file, of kept bytes or of `scratch`.
  std::string_view bytes(const Record& record, std::string& scratch) const;
  // The record's state with one more change. Offsets are those of the record's present bytes.
  EditId splice(const Record& record, const Splice& change);
  // Text in the drawing's encoding, characters that the code page lacks as \U+XXXX; and back.
  std::string encode(std::wstring_view text) const;
  std::wstring decode(std::string_view stored) const;

  // --- RecordStorage ------------------------------------------------------------------------------------
  std::wstring_view format() const override { return L"DXF"; }
  const DrawingFacts& facts() const override { return facts_; }
  std::string_view typeName(const Record& record) const override;
  std::optional<Handle> handle(const Record& record) const override;
  StoredValue property(const Record& record, Property property) const override;
  EntityLooks looks(const Record& entity) const override;
  bool differInCommonOnly(const Record& before, const Record& now) const override;
  bool holdsSame(const Record& record, const RecordStorage& other,
                 const Record& others) const override;  // in other_data.cpp, as the next
  std::vector<std::wstring> otherData(const Record& record, const OtherParts& parts) const override;
  bool canHold(const Record& record, Property property) const override;
  Geometry readGeometry(const Drawing& drawing, RecordId entity) const override;  // in geometry_reader.cpp
  base::Result<EditId> setProperty(Drawing& drawing, const Record& record, Property property,
                                   const StoredValue& value) override;
  base::Status renameLayer(Drawing& drawing, RecordId layer,
                           std::wstring_view newName) override;  // in layer_renaming.cpp
  Signature readSignature(Drawing& drawing, const Record& record) const override;
  base::Status checkUnchanged() const override { return source_->checkUnchanged(); }
  base::Status save(const std::filesystem::path& target, std::span<const Record> records) const override;

  // In new_records.cpp, linetype_groups.cpp, block_copier.cpp, block_entities.cpp, geometry_writer.cpp,
  // insert_writer.cpp, dim_groups.cpp and header_variables.cpp.
  base::Result<RecordId> add(Drawing& drawing, Table table, std::wstring_view name,
                             RecordId implied) override;
  void takeBack(RecordId record) override;
  base::Result<EditId> setDashes(const Drawing& drawing, const Record& linetype,
                                 std::span<const Dash> dashes) override;
  std::vector<Dash> dashes(const Drawing& drawing, RecordId linetype) const override;
  base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name, const BlockHead& head,
                                     std::span<const Shape> shapes) override;
  std::unique_ptr<BlockCopy> copierFrom(Drawing& drawing, const Drawing& source) override;
  Point basePoint(const Drawing& drawing, RecordId block) const override;
  std::vector<Layout> layouts(const Drawing& drawing) const override;  // in layouts.cpp
  base::Result<RecordId> addEntity(Drawing& drawing, RecordId block, std::string_view type,
                                   const Geometry& geometry) override;
  base::Status addEntities(Drawing& drawing, RecordId block, std::span<const BlockEntity> entities) override;
  base::Result<EditId> setLastVertex(const Record& leader, const Point& at) override;
  EditId setTextMiddle(const Record& dimension, const Point& at) override;
  base::Result<RecordId> addInsert(Drawing& drawing, RecordId space, const NewInsert& insert) override;
  std::optional<Variable> dimVariable(const Drawing& drawing, RecordId id,
                                      const DimVariableInfo& variable) const override;
  std::vector<DimValue> dimVariables(const Drawing& drawing, const Record& record) const override;
  base::Status setDimVariable(Drawing& drawing, RecordId id, const DimVariableInfo& variable,
                              const Variable& value) override;
  base::Status removeDimOverride(Drawing& drawing, RecordId id, const DimVariableInfo& variable) override;
  std::optional<Variable> headerVariable(const Drawing& drawing, std::string_view name) const override;
  std::vector<HeaderValue> headerVariables(const Drawing& drawing) const override;
  base::Status setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) override;

  // --- Places of new records (placement.cpp) ------------------------------------------------------------
  RecordId insert(Drawing& drawing, PlacedRecord placed);
  // A free handle; the header's next free handle follows. Files without handles: absent.
  std::optional<Handle> takeHandle(Drawing& drawing);
  // ENDTAB or ENDSEC, which new records are placed before; the table or section is made when the file has
  // none.
  base::Result<RecordId> endOfTable(Drawing& drawing, Table table);
  base::Result<RecordId> endOfSection(Drawing& drawing, Section section);
  RecordId tableHead(Table table) const { return frame_.tableHead[index(table)]; }
  RecordId headerRecord() const { return frame_.sectionBegin[index(Section::kHeader)]; }

  // --- States of records ----------------------------------------------------------------------------------
  // The state with a group's value replaced or, with `at`, a new group's bytes put in.
  EditId withValue(const Record& record, const Group& group, std::string_view value);
  EditId withGroups(const Record& record, std::uint32_t at, std::string_view groups);
  EditId withoutGroup(const Record& record, const Group& group);
  // With another value of the last point whose x has this code; the same state where there is none.
  EditId withLastPoint(const Record& record, int code, const Point& at);
  // The state with other groups instead of those between two places; comments among them are kept.
  EditId withGroupsFor(const Record& record, std::uint32_t begin, std::uint32_t end, std::string groups);

 private:
  std::string_view original(const Record& record) const;
  bool namesLayers(std::string_view bytes) const;  // in extended data
  EditId setGeneric(const Record& record, const PropertyPlace& place, const StoredValue& value);
  EditId splice(const Record& record, std::uint32_t offset, std::uint32_t removed, TextId text);
  EditId setCommon(const Record& record, const PropertyPlace& place, const StoredValue& value);
  EditId changeValue(const Record& record, const PropertyPlace& place, const Located& located,
                     const StoredValue& value);
  EditId withoutProperty(const Record& record, const PropertyPlace& place);
  base::Result<EditId> changed(const Record& record, Property property, const StoredValue& value);
  std::vector<std::wstring> layersInExtendedData(const Record& record) const;  // folded, each once
  EditId renamedInExtendedData(const Record& record, const std::wstring& from, std::string_view to);
  std::vector<RecordId> takeLayerUses(const Drawing& drawing, const std::wstring& folded);
  // The header's state with the next free handle raised to `seed`; and that handle, 0 without one.
  EditId raiseHandleSeed(const Record& header, Handle seed);
  Handle handleSeed(const Record& header) const;
  std::optional<Handle> largestHandle(const Drawing& drawing) const;  // of the file's records
  // A variable that is a point ("INSBASE"); absent when the header does not have it.
  std::optional<Point> headerPoint(const Drawing& drawing, std::string_view name) const;
  // What frames a section (SECTION, ENDSEC) or a table (TABLE, ENDTAB).
  std::string sectionBytes(Section section, bool end) const;
  std::string tableBytes(Table table, std::optional<Handle> handle, bool end) const;

  // Where the property of the place stands in the record's present bytes. Kept until the next call: a value
  // is mostly read before it is changed.
  const Located& look(const Record& record, const PropertyPlace& place) const;
  // The same for what every entity has, of a record in which it has not strayed.
  const CommonLook& commonLook(const Record& record) const;

  std::shared_ptr<const SourceBytes> source_;
  std::string_view file_;  // its bytes
  Dialect dialect_;
  DrawingFacts facts_;
  EditStore edits_;
  FileFrame frame_;
  struct Placement {
    RecordId record, before;
  };
  std::vector<Placement> added_;  // in the order in which they entered the drawing
  // By folded layer name: the records that name it, as the drawing's entities were at a revision.
  std::unordered_map<std::wstring, std::vector<RecordId>> layerUses_;
  std::optional<std::uint64_t> layerUsesAt_;
  Handle nextHandle_ = 0;                          // 0: not yet known
  bool withoutHandles_ = false;                    // an old file that has none
  std::optional<std::pair<EditId, Handle>> seed_;  // the header's next free handle in one of its states
  struct StateSeen {                               // of a record
    std::uint64_t offset = 0;
    EditId edits = kNoEdit;
    std::uint8_t flags = 0;
    bool operator==(const StateSeen&) const = default;
  };
  static StateSeen stateOf(const Record& record) { return {record.offset, record.edits, record.flags}; }
  struct Look {
    const PropertyPlace* place = nullptr;
    StateSeen of;
    std::string scratch;
    Located located;
  };
  mutable Look look_;
  struct Common {
    std::optional<StateSeen> of;
    std::string scratch;
    CommonLook look;
  };
  mutable Common common_;
  struct NewGroup {
    int code = -1;
    StoredValue value;
    TextId bytes = 0;
  };
  NewGroup newest_;                                        // put in by setCommon()
  mutable std::set<std::string, std::less<>> upperTypes_;  // of types that the file has in lower case
};

}  // namespace cad::dxf
