#pragma once
// A record: one object of the drawing as its file holds it.

#include <cstdint>

#include "embedded/drawing/names.h"

namespace cad {

using RecordId = std::uint32_t;  // position in the drawing's record list; stable while the drawing lives
inline constexpr RecordId kNoRecord = 0xFFFFFFFF;
using SignatureId = std::uint32_t;
using Handle = std::uint64_t;

enum class RecordKind : std::uint8_t {
  kOther,  // kept as it came
  kFrame,  // what the file consists of besides its objects: the storage's own
  kTable,  // a table itself, without its records
  kTableRecord,
  kBlockBegin,
  kBlockEnd,
  kEntity,     // a main entity
  kSubEntity,  // VERTEX, ATTRIB, SEQEND
  kObject,     // neither drawn nor in a table
};

enum class Table : std::uint8_t {
  kNone,
  kLayer,
  kLinetype,
  kTextStyle,
  kDimStyle,
  kBlock,
  kAppId,
  kView,
  kUcs,
  kViewport,
  kBlockRecord
};  // kBlock: the definitions; kBlockRecord: their table entries, in files that have both

struct Record {
  std::uint64_t offset = 0;    // where the storage has what was read or added
  std::uint32_t length = 0;    // of it, where it is bytes
  std::uint32_t edits = 0;     // newest edit, 0 = untouched
  SignatureId signature = 0;   // entities
  RecordId owner = kNoRecord;  // entity: its block; sub-entity: its main entity
  RecordKind kind = RecordKind::kOther;
  Table table = Table::kNone;
  std::uint8_t flags = 0;

  static constexpr std::uint8_t kErased = 1, kAdded = 2, kImplied = 4;
  static constexpr std::uint8_t kLayoutSpace = 8;  // block: model space or a paper space
  static constexpr std::uint8_t kMarked = 16;      // by the storage, for its own use
  static constexpr std::uint8_t kStraying = 32;  // what every entity has may stand among its type's own data
  bool erased() const { return (flags & kErased) != 0; }
  bool implied() const { return (flags & (kImplied | kAdded)) == kImplied; }  // has no bytes of its own
};

struct Signature {
  NameId type = kNoName;  // entity type
  NameId layer = kNoName;
  NameId linetype = kNoName;
  NameId style = kNoName;  // kNoName for entities without a text style
  std::int16_t color = 256;
  bool operator==(const Signature&) const = default;
};

}  // namespace cad
