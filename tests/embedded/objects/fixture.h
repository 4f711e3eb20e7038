#pragma once
// A small office drawing for the tests of the host's objects, written as "code value" lines.

#include <gtest/gtest.h>

#include <cstdio>

#include <memory>
#include <string>
#include <string_view>

#include "dbobjptr.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dxf/loader.h"
#include "embedded/objects/database_access.h"

namespace cad::test {

// "0 TEXT" per line becomes a DXF group; a value may be empty.
inline std::string toDxf(std::string_view lines) {
  std::string dxf;
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n');
    const std::string_view line = lines.substr(0, end);
    lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
    if (line.empty()) continue;
    const std::size_t blank = line.find(' ');
    const std::string_view code = line.substr(0, blank);
    dxf += std::string(code.size() < 3 ? 3 - code.size() : 0, ' ');
    dxf += code;
    dxf += "\r\n";
    if (blank != std::string_view::npos) dxf += line.substr(blank + 1);
    dxf += "\r\n";
  }
  return dxf;
}

inline constexpr std::string_view kTables = R"(0 SECTION
2 TABLES
0 TABLE
2 LTYPE
5 5
100 AcDbSymbolTable
70 2
0 LTYPE
5 14
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 Continuous
70 0
3 Solid line
72 65
73 0
40 0.0
0 LTYPE
5 15
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 DASHED
70 0
3 Dashed __ __
72 65
73 2
40 0.75
49 0.5
74 0
49 -0.25
74 0
0 ENDTAB
0 TABLE
2 LAYER
5 2
100 AcDbSymbolTable
70 4
0 LAYER
5 10
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 0
70 0
62 7
6 Continuous
0 LAYER
5 11
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 Walls
70 0
62 3
6 Continuous
0 LAYER
5 12
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 Locked
70 4
62 -5
6 DASHED
0 LAYER
5 13
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 Furniture
70 0
62 1
6 Continuous
0 ENDTAB
0 TABLE
2 STYLE
5 3
100 AcDbSymbolTable
70 2
0 STYLE
5 16
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 Standard
70 0
40 0.0
41 1.0
50 0.0
71 0
42 0.2
3 txt
4 
0 STYLE
5 17
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 Notes
70 0
40 2.5
41 0.8
50 0.0
71 0
42 0.2
3 romans.shx
4 bigfont.shx
0 ENDTAB
0 TABLE
2 APPID
5 9
100 AcDbSymbolTable
70 1
0 APPID
5 18
100 AcDbSymbolTableRecord
100 AcDbRegAppTableRecord
2 ACAD
70 0
0 ENDTAB
0 TABLE
2 DIMSTYLE
5 A
100 AcDbSymbolTable
70 1
0 DIMSTYLE
105 19
100 AcDbSymbolTableRecord
100 AcDbDimStyleTableRecord
2 Office
70 0
3 <>mm
40 2.0
140 3.5
77 1
176 2
340 17
0 ENDTAB
0 TABLE
2 BLOCK_RECORD
5 1
100 AcDbSymbolTable
70 4
0 BLOCK_RECORD
5 1A
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Model_Space
0 BLOCK_RECORD
5 1B
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Paper_Space
0 BLOCK_RECORD
5 1C
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 DOOR
0 BLOCK_RECORD
5 1D
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *D1
0 BLOCK_RECORD
5 1E
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 _DOT
0 ENDTAB
0 ENDSEC
)";

// A BLOCK ... ENDBLK pair with the given entities; two handles from `handle` on.
inline std::string block(std::string_view name, int handle, std::string_view entities = {}) {
  const auto hex = [](int value) {
    char text[8];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(value));
    return std::string(text);
  };
  std::string lines = "0 BLOCK\n5 " + hex(handle) + "\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 ";
  lines += name;
  lines += "\n70 0\n10 0.0\n20 0.0\n30 0.0\n3 ";
  lines += name;
  lines += "\n1 \n";
  lines += entities;
  lines += "0 ENDBLK\n5 " + hex(handle + 1) + "\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
  return lines;
}

inline std::string entity(std::string_view type, std::string_view handle, std::string_view layer,
                          std::string_view subclass, std::string_view rest) {
  std::string lines = "0 ";
  for (const std::string_view piece :
       {type, std::string_view("\n5 "), handle, std::string_view("\n100 AcDbEntity\n8 "), layer,
        std::string_view("\n100 "), subclass, std::string_view("\n"), rest})
    lines += piece;
  return lines;
}

inline std::string officeEntities() {
  const std::string point = "10 1.0\n20 2.0\n30 0.0\n";
  std::string lines =
      entity("TEXT", "50", "Walls", "AcDbText", point + "40 2.5\n1 ROOM 12\n50 30.0\n41 0.9\n");
  lines += entity(
      "MTEXT", "51", "Walls", "AcDbMText",
      point + "40 3.0\n41 100.0\n71 1\n1 {\\fArial|b1;First}\\Psecond\n7 Notes\n11 0.0\n21 1.0\n31 0.0\n");
  lines += entity("ATTDEF", "52", "0", "AcDbText",
                  point + "40 2.0\n1 default\n100 AcDbAttributeDefinition\n3 Prompt\n2 NUMBER\n70 0\n");
  lines += entity("DIMENSION", "53", "Walls", "AcDbDimension",
                  "2 *D1\n" + point +
                      "11 5.0\n21 5.0\n31 0.0\n70 0\n3 Office\n"
                      "100 AcDbAlignedDimension\n13 0.0\n23 0.0\n33 0.0\n14 5.0\n24 0.0\n34 0.0\n");
  lines += entity("LEADER", "54", "0", "AcDbLeader", "3 Office\n71 1\n72 0\n76 1\n" + point);
  lines +=
      entity("HATCH", "55", "Walls", "AcDbHatch", point + "2 SOLID\n70 1\n71 0\n91 0\n75 0\n76 1\n98 0\n");
  lines += entity("INSERT", "56", "Walls", "AcDbBlockReference", "66 1\n2 DOOR\n" + point);
  lines += entity("ATTRIB", "57", "Walls", "AcDbText",
                  point + "40 2.0\n1 A1\n100 AcDbAttribute\n2 NUMBER\n70 0\n");
  lines += "0 SEQEND\n5 58\n100 AcDbEntity\n8 Walls\n";
  lines += entity("POLYLINE", "59", "Walls", "AcDb2dPolyline", "66 1\n10 0.0\n20 0.0\n30 0.0\n70 0\n");
  lines += entity("VERTEX", "5A", "Walls", "AcDbVertex", "100 AcDb2dVertex\n" + point);
  lines += entity("VERTEX", "5B", "Walls", "AcDbVertex", "100 AcDb2dVertex\n" + point);
  lines += "0 SEQEND\n5 5C\n100 AcDbEntity\n8 Walls\n";
  lines += entity("LINE", "5D", "Locked", "AcDbLine", point + "11 3.0\n21 4.0\n31 0.0\n");
  lines += entity("SPECIAL_THING", "5E", "0", "AcDbSpecialThing", "290 1\n");
  lines += entity("ACAD_TABLE", "5F", "0", "AcDbBlockReference", "2 DOOR\n" + point + "100 AcDbTable\n");
  return lines;
}

inline std::string officeDrawing(std::string_view version = "AC1024") {
  std::string lines = "0 SECTION\n2 HEADER\n9 $ACADVER\n1 ";
  lines += version;
  lines += "\n9 $DWGCODEPAGE\n3 ANSI_932\n9 $CLAYER\n8 Walls\n9 $HANDSEED\n5 200\n0 ENDSEC\n";
  lines += kTables;
  lines += "0 SECTION\n2 BLOCKS\n";
  lines += block("*Model_Space", 0x20) + block("*Paper_Space", 0x22);
  lines +=
      block("DOOR", 0x24, entity("LINE", "26", "Furniture", "AcDbLine", "10 0.0\n20 0.0\n11 1.0\n21 0.0\n"));
  lines += block("*D1", 0x28) + block("_DOT", 0x2A);
  lines += "0 ENDSEC\n0 SECTION\n2 ENTITIES\n" + officeEntities() + "0 ENDSEC\n0 EOF\n";
  return toDxf(lines);
}

class ObjectTest : public ::testing::Test {
 protected:
  void SetUp() override { load(officeDrawing()); }
  void load(std::string dxf) {
    database_.reset();
    auto loaded = dxf::loadBytes(std::move(dxf));
    if (!loaded) FAIL() << "the test drawing is refused";
    drawing_ = std::move(loaded.value());
    database_ = makeDatabase(*drawing_);
  }
  AcDbObjectId id(Handle handle) const {
    AcDbObjectId found;
    database_->getAcDbObjectId(found, false, AcDbHandle(handle));
    return found;
  }
  AcDbObjectId layerId(const wchar_t* name) const { return recordId<AcDbLayerTable>(name); }
  template <class TableClass>
  AcDbObjectId recordId(const wchar_t* name) const {
    AcDbObjectId found;
    AcDbSymbolTablePointer<TableClass>(database_.get())->getAt(name, found);
    return found;
  }
  std::wstring layerOf(Handle handle) const {
    AcString name;
    AcDbEntityPointer(id(handle))->layer(name);
    return name.kACharPtr();
  }

  std::unique_ptr<Drawing> drawing_;
  std::unique_ptr<AcDbDatabase> database_;
};

template <class ObjectClass>
using Writing = AcDbObjectPointer<ObjectClass>;

}  // namespace cad::test
