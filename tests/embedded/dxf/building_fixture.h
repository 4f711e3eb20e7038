#pragma once
// Drawings of chosen versions for tests of new records and blocks.

#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::dxf {

// Tables with handles, subclass markers and owners as versions from 2000 on have them.
inline std::string modernTables() {
  const auto table = [](std::string_view name, std::string_view handle, std::string_view records) {
    std::string text = "0 TABLE|2 ";
    text.append(name).append("|5 ").append(handle).append("|330 0|100 AcDbSymbolTable|70 1");
    text.append(records).append("|0 ENDTAB|");
    return text;
  };
  return table("LTYPE", "5", "") +
         table("LAYER", "2",
               "|0 LAYER|5 10|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|62 7|6 "
               "Continuous|"
               "370 -3|390 F") +
         table("STYLE", "3",
               "|0 STYLE|5 11|330 3|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 Standard|70 "
               "0|40 0.0|"
               "41 1.0|50 0.0|71 0|42 0.2|3 txt|4 ") +
         table("APPID", "9", "") + table("DIMSTYLE", "A", "") + table("BLOCK_RECORD", "1", "") +
         "0 ENDSEC|0 SECTION|2 BLOCKS";
}

inline std::unique_ptr<Drawing> modern(std::string_view entities, std::string_view version = "AC1015",
                                       std::string_view codePage = "ANSI_932") {
  return read(drawingText(version, entities, modernTables(), codePage));
}

inline std::unique_ptr<Drawing> old(std::string_view entities, std::string_view codePage = "ANSI_932") {
  return read(drawingText("AC1009", entities, {}, codePage));
}

inline RecordId block(const Drawing& drawing, std::wstring_view name) {
  return drawing.find(Table::kBlock, name);
}

// The types of a block's entities that are not erased, one behind the other.
inline std::string typesIn(const Drawing& drawing, RecordId owner) {
  std::string types;
  for (const RecordId id : drawing.entitiesOf(owner)) {
    if (drawing.record(id).erased()) continue;
    if (!types.empty()) types += ' ';
    types += drawing.typeName(id);
  }
  return types;
}

// The last record in `text` that begins with "  0", the line `type`: to its end.
inline std::string lastRecord(const std::string& text, std::string_view type) {
  const std::size_t end = text.rfind("\n  0\n" + std::string(type) + "\n");
  if (end == std::string::npos) return {};
  return text.substr(end + 1, text.find("\n  0\n", end + 1) - end);
}

// Everything that was changed is taken back; the file must then be as it came.
inline void expectUndone(Drawing& drawing, const std::string& original) {
  EXPECT_NE(saved(drawing), original);
  while (drawing.undo()) {
  }
  EXPECT_EQ(saved(drawing), original);
}

}  // namespace cad::dxf
