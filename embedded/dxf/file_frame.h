#pragma once
// What a DXF file consists of around its objects: sections, tables and the end.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "embedded/drawing/record.h"

namespace cad::dxf {

enum class Section : std::uint8_t { kHeader, kTables, kBlocks, kEntities, kObjects };

constexpr std::size_t index(Table table) { return static_cast<std::size_t>(table); }
constexpr std::size_t index(Section section) { return static_cast<std::size_t>(section); }

// Where the sections and tables of the file stand; kNoRecord for those that it does not have.
struct FileFrame {
  static constexpr std::size_t kSections = index(Section::kObjects) + 1;
  static constexpr std::size_t kTables = index(Table::kBlockRecord) + 1;
  FileFrame() {
    sectionBegin.fill(kNoRecord), sectionEnd.fill(kNoRecord);
    tableHead.fill(kNoRecord), tableEnd.fill(kNoRecord);
  }
  std::array<RecordId, kSections> sectionBegin, sectionEnd;  // SECTION (of the header: all of it), ENDSEC
  std::array<RecordId, kTables> tableHead, tableEnd;         // TABLE, ENDTAB
  RecordId endOfFile = kNoRecord;                            // EOF
  // The largest handle of the file's records, if any has one; unknown when `handlesUnknown`.
  std::optional<Handle> largestHandle;
  bool handlesUnknown = false;
};

// Nothing counts up to larger ones in earnest; behind them the numbers would begin anew.
inline constexpr Handle kLargestHandle = Handle{1} << 62;

}  // namespace cad::dxf
