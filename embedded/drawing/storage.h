#pragma once
// What a file format does for the drawing: it holds the records' bytes and knows where each typed
// property stands in them.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/codepage.h"
#include "base/result.h"
#include "embedded/drawing/geometry.h"
#include "embedded/drawing/linetype_pattern.h"
#include "embedded/drawing/property.h"
#include "embedded/drawing/record.h"
#include "embedded/drawing/shapes.h"

namespace cad {

class Drawing;

enum class Version : std::uint8_t {
  kR12,
  kR13,
  kR14,
  kR2000,
  kR2004,
  kR2007,
  kR2010,
  kR2013,
  kR2018,
  kUnknown
};

struct DrawingFacts {
  Version version = Version::kR12;
  std::string versionCode;  // "AC1009"
  base::CodePage codePage = 1252;
  std::string codePageName;   // as declared, "ANSI_932"; empty: none declared
  bool codePageKnown = true;  // false: the declared name is not one that we know; 1252 is used
  bool binary = false;
  std::wstring warning;  // what is wrong with the file although it could be read; mostly empty

  // Texts and shapes stand in the patterns of linetypes.
  bool linetypesHoldSymbols() const { return version >= Version::kR13; }
};

// A variable's value by the host's own type.
using Variable = std::variant<std::int64_t, double, std::wstring>;

// A state of a record's bytes: the newest of a chain of immutable edits (Record::edits).
using EditId = std::uint32_t;
inline constexpr EditId kNoEdit = 0;  // the record as it was read or added

// A property's value in a record; names and texts as their stored bytes. monostate: the record has none.
using StoredValue = std::variant<std::monostate, std::int64_t, double, std::string>;

// A record to be added; it will stand directly before the record `before`, after others added there.
struct NewRecord {
  RecordKind kind = RecordKind::kOther;
  Table table = Table::kNone;
  RecordId before = kNoRecord;
  RecordId owner = kNoRecord;  // entity: its block; sub-entity: its main entity
  std::string bytes;           // in the format of the drawing's file
};

struct Placement {
  RecordId record = kNoRecord;
  RecordId before = kNoRecord;
};

enum class Section : std::uint8_t { kHeader, kTables, kBlocks, kEntities, kObjects };

class RecordStorage {
 public:
  virtual ~RecordStorage() = default;
  virtual const DrawingFacts& facts() const = 0;

  virtual std::string_view typeName(const Record& record) const = 0;
  virtual std::optional<Handle> handle(const Record& record) const = 0;
  virtual StoredValue property(const Record& record, Property property) const = 0;
  // Whether records of this type have the property and the file's version can hold it.
  virtual bool canHold(const Record& record, Property property) const = 0;
  virtual Geometry readGeometry(const Drawing& drawing, RecordId entity) const = 0;
  // The record's state with the property changed; Record::edits itself when nothing is different.
  virtual base::Result<EditId> setProperty(const Record& record, Property property,
                                           const StoredValue& value) = 0;
  // The record's state with every reference by name to the layer replaced in its extended data.
  virtual EditId renameLayerInExtendedData(const Record& record, const NamePool& names, NameId from,
                                           std::string_view to) = 0;
  // The layers that the record's extended data names, folded, each once.
  virtual std::vector<std::wstring> layersInExtendedData(const Record& record) const = 0;
  // Sets the signature's fields from the record's present state.
  virtual Signature readSignature(const Record& record, NamePool& names) const = 0;

  // Keeps the bytes of an added record: fills in offset and length, clears edits, marks it kAdded.
  virtual void keep(Record& record, std::string bytes) = 0;
  // Bytes of the records that frame a section (SECTION, ENDSEC) or a table (TABLE, ENDTAB).
  virtual std::string sectionBytes(Section section, bool end) const = 0;
  virtual std::string tableBytes(Table table, std::optional<Handle> handle, bool end) const = 0;
  // The header record's state with the next free handle raised to `seed`.
  virtual EditId raiseHandleSeed(const Record& header, Handle seed) = 0;
  virtual Handle handleSeed(const Record& header) const = 0;  // 0 when the header has none

  // Writes the drawing: `records` in file order (erased ones left out, those added at the end of the list
  // where `added` places them, in that order). Atomic.
  virtual base::Status save(const std::filesystem::path& target, std::span<const Record> records,
                            std::span<const Placement> added) const = 0;

  // --- New records and variables (the drawing's methods of the same names describe them) -------------
  // The bytes and the place of a new table record. Makes the table when the file has none. Only the text
  // style of a shape file has an empty name.
  virtual base::Result<NewRecord> buildTableRecord(Drawing& drawing, Table table, std::wstring_view name) = 0;
  // The linetype's state with this pattern in place of its own.
  virtual base::Result<EditId> setDashes(const Drawing& drawing, const Record& linetype,
                                         std::span<const Dash> dashes) = 0;
  virtual base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name,
                                             std::span<const Shape> shapes) = 0;
  virtual base::Result<RecordId> defineBlock(Drawing& drawing, std::wstring_view name,
                                             const Drawing& source) = 0;
  virtual base::Result<RecordId> addInsert(Drawing& drawing, RecordId space, std::wstring_view blockName,
                                           Point at, double scale, double rotationDegrees,
                                           std::span<const std::wstring> attributes) = 0;
  virtual std::optional<Variable> dimVariable(const Drawing& drawing, RecordId id, int code) const = 0;
  virtual base::Status setDimVariable(Drawing& drawing, RecordId id, int code, const Variable& value) = 0;
  virtual base::Status removeDimOverride(Drawing& drawing, RecordId id, int code) = 0;
  virtual std::optional<Variable> headerVariable(const Drawing& drawing, std::string_view name) const = 0;
  virtual base::Status setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) = 0;
};

}  // namespace cad
