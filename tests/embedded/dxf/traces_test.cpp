#include "embedded/dxf/traces.h"

#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

// Block A holds a text with objects of its own and a reference to B.
std::string withTraces(std::string_view elsewhere = {}) {
  const auto entry = [](std::string_view name, std::string_view handle, std::string_view references) {
    std::string text = "|0 BLOCK_RECORD|5 ";
    text.append(handle).append("|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 ").append(name);
    return text.append(references).append("|70 0");
  };
  const auto block = [](std::string_view name, std::string_view handle, std::string_view content) {
    std::string text = "|0 BLOCK|5 ";
    text.append(handle).append("|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 ").append(name);
    text.append("|70 0|10 0.0|20 0.0|30 0.0|3 ").append(name).append("|1 ").append(content);
    return text.append("|0 ENDBLK|5 ").append(handle).append("F|100 AcDbEntity|8 0|100 AcDbBlockEnd");
  };
  const std::string head = "2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1";
  std::string tables =
      replaced(modernTables(), head,
               head + entry("A", "20", "") + entry("B", "21", "|102 {BLKREFS|331 32|331 33|102 }"));
  tables += block("A", "30",
                  "|0 TEXT|5 31|102 {ACAD_XDICTIONARY|360 40|102 }|330 20|100 AcDbEntity|8 0|100 AcDbText|10 "
                  "0.0|20 0.0|30 0.0|40 1.0|1 T|100 AcDbText|0 INSERT|5 32|330 20|100 AcDbEntity|8 0|100 "
                  "AcDbBlockReference|2 B|10 0.0|20 0.0|30 0.0") +
            block("B", "34", "");
  const std::string entities =
      "0 INSERT|5 33|100 AcDbEntity|8 0|100 AcDbBlockReference|2 B|10 0.0|20 0.0|30 0.0|0 ENDSEC|0 SECTION|2 "
      "OBJECTS|0 DICTIONARY|5 39|330 0|100 AcDbDictionary|0 DICTIONARY|5 40|330 31|100 AcDbDictionary|3 "
      "X|360 "
      "41|3 Y|350 42|0 XRECORD|5 41|102 {ACAD_REACTORS|330 40|102 }|330 40|100 AcDbXrecord|330 39|0 "
      "XRECORD|5 "
      "42|330 40|100 AcDbXrecord|0 XRECORD|5 43|330 39|100 AcDbXrecord";
  return drawingText("AC1015", entities + std::string(elsewhere), tables);
}

TEST(Traces, OfErasedEntitiesGoAndThoseOfNewOnesCome) {
  for (const bool isNeeded : {false, true}) {
    const std::string original = withTraces(isNeeded ? "|340 42" : "");
    const auto drawing = read(original);
    InsertGeometry shape;
    shape.block = block(*drawing, L"B");
    BlockEntity again;
    again.type = "INSERT";
    again.geometry.shape = shape;
    again.layer = L"0";
    ASSERT_TRUE(drawing->redefineContents(block(*drawing, L"A"), {{again, again}}).ok());
    const std::string now = saved(*drawing);
    EXPECT_NE(now.find(groups("102 {BLKREFS|331 33|331 400|331 401|102 }")), now.npos) << now;
    for (const char* own : {"5 40|330 31", "5 41|102 {ACAD_REACTORS", "5 42|330 40"})
      EXPECT_EQ(now.find(groups(own)) != now.npos, isNeeded) << own;  // all of them, or none
    EXPECT_NE(now.find(groups("5 39")), now.npos);
    EXPECT_NE(now.find(groups("5 43")), now.npos);
    expectUndone(*drawing, original);
  }
}

}  // namespace
}  // namespace cad::dxf
