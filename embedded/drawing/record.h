#pragma once
// A record: one object of the drawing as its storage holds it.

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
  kSubEntity,  // a part of one: a vertex, an attribute, the end of their sequence
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

// The blocks of the spaces in which people draw.
inline constexpr wchar_t kModelSpaceName[] = L"*Model_Space", kPaperSpaceName[] = L"*Paper_Space";

struct Record {
  std::uint64_t offset = 0;    // the storage's own: where it has what was read or added
  std::uint32_t length = 0;    // and how much, where that has a length
  std::uint32_t edits = 0;     // the newest change, 0 = untouched
  SignatureId signature = 0;   // entities
  RecordId owner = kNoRecord;  // entity: its block; sub-entity: its main entity
  RecordKind kind = RecordKind::kOther;
  Table table = Table::kNone;
  std::uint8_t flags = 0;

  static constexpr std::uint8_t kErased = 1, kAdded = 2, kImplied = 4;
  static constexpr std::uint8_t kLayoutSpace = 8;  // block: model space or a paper space
  // The storage's own. A change of a marked record counts as one of an entity (Drawing::entityRevision()).
  static constexpr std::uint8_t kMarked = 16, kOfStorage = 32;
  bool erased() const { return (flags & kErased) != 0; }
  bool hasTableName() const { return kind == RecordKind::kTableRecord || kind == RecordKind::kBlockBegin; }
  bool implied() const { return (flags & (kImplied | kAdded)) == kImplied; }  // is nowhere in the file
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
