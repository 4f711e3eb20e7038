#pragma once
// The records of a DXF file: the mapped bytes, the edits over them and the records that were added.

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "embedded/drawing/storage.h"
#include "embedded/dxf/dialect.h"
#include "embedded/dxf/edit_store.h"
#include "embedded/dxf/property_places.h"
#include "embedded/dxf/source_bytes.h"

namespace cad::dxf {

// One change of a record's bytes: `removed` bytes at `offset` give way to `bytes`.
struct Splice {
  std::uint32_t offset = 0;
  std::uint32_t removed = 0;
  std::string_view bytes;
};

class DxfStorage final : public RecordStorage {
 public:
  DxfStorage(std::unique_ptr<SourceBytes> source, const Dialect& dialect, DrawingFacts facts);

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
  const DrawingFacts& facts() const override { return facts_; }
  std::string_view typeName(const Record& record) const override;
  std::optional<Handle> handle(const Record& record) const override;
  StoredValue property(const Record& record, Property property) const override;
  bool canHold(const Record& record, Property property) const override;
  Geometry readGeometry(const Drawing& drawing, RecordId entity) const override;  // in geometry_reader.cpp
  base::Result<EditId> setProperty(const Record& record, Property property,
                                   const StoredValue& value) override;
  EditId renameLayerInExtendedData(const Record& record, const NamePool& names, NameId from,
                                   std::string_view to) override;
  std::vector<std::wstring> layersInExtendedData(const Record& record) const override;
  Signature readSignature(const Record& record, NamePool& names) const override;
  void keep(Record& record, std::string bytes) override;
  std::string sectionBytes(Section section, bool end) const override;
  std::string tableBytes(Table table, std::optional<Handle> handle, bool end) const override;
  EditId raiseHandleSeed(const Record& header, Handle seed) override;
  Handle handleSeed(const Record& header) const override;
  base::Status save(const std::filesystem::path& target, std::span<const Record> records,
                    std::span<const Placement> added) const override;

  // In new_records.cpp, linetype_groups.cpp, block_building.cpp, dim_groups.cpp and header_groups.cpp.
  base::Result<NewRecord> buildTableRecord(Drawing& drawing, Table table, std::wstring_view name) override;
  base::Result<EditId> setDashes(const Drawing& drawing, const Record& linetype,
                                 std::span<const Dash> dashes) override;
  base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name,
                                     std::span<const Shape> shapes) override;
  base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name,
                                     const Drawing& source) override;
  base::Result<RecordId> addInsert(Drawing& drawing, RecordId space, std::wstring_view blockName, Point at,
                                   double scale, double rotationDegrees,
                                   std::span<const std::wstring> attributes) override;
  std::optional<Variable> dimVariable(const Drawing& drawing, RecordId id, int code) const override;
  base::Status setDimVariable(Drawing& drawing, RecordId id, int code, const Variable& value) override;
  base::Status removeDimOverride(Drawing& drawing, RecordId id, int code) override;
  std::optional<Variable> headerVariable(const Drawing& drawing, std::string_view name) const override;
  base::Status setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) override;

  // The state with a group's value replaced or, with `at`, a new group's bytes put in. For storages' own use.
  EditId withValue(const Record& record, const Group& group, std::string_view value);
  EditId withGroups(const Record& record, std::uint32_t at, std::string_view groups);
  EditId withoutGroup(const Record& record, const Group& group);
  // The state with other groups instead of those between two places; comments among them are kept.
  EditId withGroupsFor(const Record& record, std::uint32_t begin, std::uint32_t end, std::string groups);

 private:
  std::string_view original(const Record& record) const;
  EditId setGeneric(const Record& record, const PropertyPlace& place, const StoredValue& value);
  EditId changeValue(const Record& record, const PropertyPlace& place, const Located& located,
                     const StoredValue& value);
  EditId withoutProperty(const Record& record, const PropertyPlace& place);

  std::unique_ptr<SourceBytes> source_;
  std::string_view file_;  // its bytes
  Dialect dialect_;
  DrawingFacts facts_;
  EditStore edits_;
  mutable std::set<std::string, std::less<>> upperTypes_;  // of types that the file has in lower case
};

}  // namespace cad::dxf
