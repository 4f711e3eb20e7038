// Which groups of a record are the entity's own: the same codes stand elsewhere too.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::dxf {
namespace {

struct Case {
  const char *version, *before, *after;  // after: colour 4 and layer NEW
};

constexpr Case kCases[] = {
    // application groups before the layer
    {"AC1015", "0 LINE|5 A|102 {X|8 no|62 9|102 }|100 AcDbEntity|8 OLD|100 AcDbLine|10 0.0",
     "0 LINE|5 A|102 {X|8 no|62 9|102 }|100 AcDbEntity|8 NEW|62 4|100 AcDbLine|10 0.0"},
    // a subclass that uses the codes again
    {"AC1015", "0 HATCH|100 AcDbEntity|8 OLD|62 1|100 AcDbHatch|8 no|62 9|6 no",
     "0 HATCH|100 AcDbEntity|8 NEW|62 4|100 AcDbHatch|8 no|62 9|6 no"},
    // extended data in a file without subclasses
    {"AC1009", "0 POINT|8 OLD|10 0.0|1001 APP|1000 x|1003 no|1070 62",
     "0 POINT|8 NEW|62 4|10 0.0|1001 APP|1000 x|1003 no|1070 62"},
    // an embedded object with entity groups of its own
    {"AC1032", "0 MTEXT|100 AcDbEntity|8 OLD|100 AcDbMText|1 t|101 Embedded Object|100 AcDbEntity|8 no|62 9",
     "0 MTEXT|100 AcDbEntity|8 NEW|62 4|100 AcDbMText|1 t|101 Embedded Object|100 AcDbEntity|8 no|62 9"},
    // behind the marker of the entity's own class, where they count as long as AcDbEntity has none
    {"AC1018", "0 LINE|5 A|100 AcDbEntity|100 AcDbLine|8 OLD|62 1|420 255|10 0.0",
     "0 LINE|5 A|100 AcDbEntity|100 AcDbLine|8 NEW|62 4|10 0.0"},
    {"AC1018", "0 LINE|100 AcDbEntity|62 1|430 RAL|100 AcDbLine|8 OLD|62 9",
     "0 LINE|100 AcDbEntity|62 4|100 AcDbLine|8 NEW|62 9"},
    {"AC1018", "0 LINE|100 AcDbEntity|8 OLD|62 1|100 AcDbLine|420 255|10 0.0|430 RAL",
     "0 LINE|100 AcDbEntity|8 NEW|62 4|100 AcDbLine|10 0.0"},
    {"AC1015", "0 LINE|8 no|62 9|100 AcDbLine|62 9|100 AcDbEntity|8 OLD|62 1|10 0.0",
     "0 LINE|8 no|62 9|100 AcDbLine|62 9|100 AcDbEntity|8 NEW|62 4|10 0.0"},
    {"AC1018", "0 LINE|100 AcDbEntity|8 OLD|100 AcDbLine|420 255|10 0.0",
     "0 LINE|100 AcDbEntity|8 NEW|62 4|100 AcDbLine|10 0.0"},
    {"AC1018", "0 LINE|100 AcDbLine|10 0.0|100 AcDbEntity|8 OLD|62 1",
     "0 LINE|100 AcDbLine|10 0.0|100 AcDbEntity|8 NEW|62 4"},
    {"AC1015", "0 LINE|100 acdbentity|8 OLD|100 ACDBLINE|62 1|10 0.0",
     "0 LINE|100 acdbentity|8 NEW|100 ACDBLINE|62 4|10 0.0"},
    {"AC1015", "0 LINE|100 AcDbEntity|100 AcDbLine|8 OLD|10 0.0",
     "0 LINE|100 AcDbEntity|62 4|100 AcDbLine|8 NEW|10 0.0"},
    {"AC1015", "0 ARC|100 AcDbEntity|8 OLD|100 AcDbCircle|40 1.0|100 AcDbArc|62 1|50 0.0",
     "0 ARC|100 AcDbEntity|8 NEW|100 AcDbCircle|40 1.0|100 AcDbArc|62 4|50 0.0"},
    // a class of which nobody here knows what it means by them; no second AcDbEntity
    {"AC1015", "0 LINE|100 AcDbEntity|8 OLD|100 AcDbOther|8 no|62 9|100 AcDbEntity|62 9",
     "0 LINE|100 AcDbEntity|8 NEW|62 4|100 AcDbOther|8 no|62 9|100 AcDbEntity|62 9"},
    {"AC1018", "0 THING|100 AcDbEntity|370 13|100 AcDbThing|8 OLD|62 9",
     "0 THING|100 AcDbEntity|62 4|370 13|100 AcDbThing|8 NEW|62 9"},
    // classes in the words of several programs, and one behind another
    {"AC1018", "0 3DFACE|100 AcDbEntity|100 AcDb3dFace|8 OLD|62 1|420 255",
     "0 3DFACE|100 AcDbEntity|100 AcDb3dFace|8 NEW|62 4"},
    {"AC1024", "0 SURFACE|100 AcDbEntity|100 AcDbModelerGeometry|70 1|100 AcDbSurface|8 OLD|62 1|71 6",
     "0 SURFACE|100 AcDbEntity|100 AcDbModelerGeometry|70 1|100 AcDbSurface|8 NEW|62 4|71 6"},
    // no AcDbEntity
    {"AC1015", "0 LINE|5 A|100 AcDbLine|8 OLD|10 0.0", "0 LINE|5 A|100 AcDbLine|8 NEW|62 4|10 0.0"},
    {"AC1015", "0 ARC|5 A|330 1F|100 AcDbCircle|40 1.0|100 AcDbArc|50 0.0",
     "0 ARC|5 A|330 1F|100 AcDbCircle|8 NEW|62 4|40 1.0|100 AcDbArc|50 0.0"},
    {"AC1015", "0 LINE|8 OLD|100 AcDbLine|62 1|10 0.0", "0 LINE|8 NEW|100 AcDbLine|62 4|10 0.0"},
    {"AC1015", "0 THING|5 A|100 AcDbThing|62 9|70 1", "0 THING|5 A|8 NEW|62 4|100 AcDbThing|62 9|70 1"},
    {"AC1032", "0 LINE|5 A|8 OLD|10 0.0", "0 LINE|5 A|8 NEW|62 4|10 0.0"},
    // no layer group at all
    {"AC1015", "0 LINE|5 A|330 1F|100 AcDbEntity|100 AcDbLine|10 0.0",
     "0 LINE|5 A|330 1F|100 AcDbEntity|8 NEW|62 4|100 AcDbLine|10 0.0"},
    {"AC1009", "0 POINT|5 A|10 0.0", "0 POINT|5 A|8 NEW|62 4|10 0.0"},
    // given twice: readers take the last
    {"AC1009", "0 POINT|8 no|8 OLD|62 1|62 2", "0 POINT|8 no|8 NEW|62 1|62 4"},
};

TEST(EditPlace, GroupsOfOtherPartsAreLeftAlone) {
  constexpr std::string_view kTables = "0 TABLE|2 LAYER|70 1|0 LAYER|2 NEW|70 0|62 7|6 CONTINUOUS|0 ENDTAB";
  for (const Case& row : kCases) {
    const std::string before = drawingText(row.version, row.before, kTables);
    const auto drawing = read(before);
    ASSERT_TRUE(drawing) << row.before;
    const RecordId id = drawing->entitiesOf(drawing->modelSpace()).at(0);
    ASSERT_TRUE(drawing->setText(id, Property::kLayer, L"new").ok()) << row.before;
    ASSERT_TRUE(drawing->setInteger(id, Property::kColorIndex, 4).ok()) << row.before;
    const std::string expected = replaced(before, groups(row.before), groups(row.after));
    const std::string got = saved(*drawing);
    // The name is written as the layer has it; the padding of a new number is the file's own.
    EXPECT_EQ(got, expected) << row.before;
    // What the scan of the file finds is what was written.
    const auto again = read(got);
    const RecordId twin = again->entitiesOf(again->modelSpace()).at(0);
    EXPECT_EQ(again->integer(twin, Property::kColorIndex), 4) << row.before;
    EXPECT_EQ(again->text(twin, Property::kLayer), L"NEW") << row.before;
    ASSERT_TRUE(drawing->undo());
    ASSERT_TRUE(drawing->undo());
    EXPECT_EQ(saved(*drawing), before) << row.before;
  }
}

TEST(EditPlace, AnObjectWithoutTheMarkerOfItsClassKeepsWhatItIsGiven) {
  constexpr struct {
    std::string_view before, after;
    Property property = Property::kTextHeight;
  } kRows[] = {
      {"0 TEXT|100 AcDbEntity|8 A|10 0.0|1 x", "0 TEXT|100 AcDbEntity|8 A|10 0.0|1 x|40 2.5"},
      {"0 TEXT|100 AcDbEntity|8 A|40 1.0|1 x", "0 TEXT|100 AcDbEntity|8 A|40 2.5|1 x"},
      // what is another class's, and what may be
      {"0 TEXT|5 A|100 AcDbOther|40 1.0", "0 TEXT|5 A|40 2.5|100 AcDbOther|40 1.0"},
      {"0 TEXT|100 AcDbEntity|8 A|100 AcDbOther|40 1.0",
       "0 TEXT|100 AcDbEntity|8 A|40 2.5|100 AcDbOther|40 1.0"},
      {"0 TEXT|100 AcDbEntity|40 1.0|100 AcDbText|1 x",
       "0 TEXT|100 AcDbEntity|40 1.0|100 AcDbText|1 x|40 2.5"},
      {"0 TEXT|8 A|40 1.0|1 x", "0 TEXT|8 A|40 2.5|1 x"},
      {"0 MTEXT|100 AcDbEntity|8 A|100 AcDbOther|50 1.0",
       "0 MTEXT|100 AcDbEntity|8 A|50 2.5|100 AcDbOther|50 1.0", Property::kRotation},
      {"0 MTEXT|5 A|100 AcDbEntity|8 A|50 1.0|75 1|50 9.0",
       "0 MTEXT|5 A|100 AcDbEntity|8 A|50 2.5|75 1|50 9.0", Property::kRotation},
  };
  for (const auto& [before, after, property] : kRows) {
    const std::string file = drawingText("AC1015", before);
    const auto drawing = read(file);
    const RecordId id = drawing->entitiesOf(drawing->modelSpace()).at(0);
    ASSERT_TRUE(drawing->setReal(id, property, 2.5).ok()) << before;
    EXPECT_EQ(saved(*drawing), replaced(file, groups(before), groups(after))) << before;
    EXPECT_EQ(drawing->real(id, property), 2.5) << before;
  }
}

TEST(EditPlace, NewGroupsAreWrittenAsTheFileWritesThem) {
  const std::string padded =
      groups("0 SECTION|2 ENTITIES|0 LINE|8 0|0 POINT|62      9|8 0|0 ENDSEC|0 EOF", "\r\n");
  auto drawing = read(padded);
  ASSERT_TRUE(drawing->setInteger(entity(*drawing, "LINE"), Property::kColorIndex, 12).ok());
  EXPECT_EQ(saved(*drawing), replaced(padded, "  8\r\n0\r\n", "  8\r\n0\r\n 62\r\n    12\r\n"));

  const std::string tight = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nPOINT\n62\n9\n0\nENDSEC\n0\nEOF\n";
  drawing = read(tight);
  ASSERT_TRUE(drawing->setInteger(entity(*drawing, "LINE"), Property::kColorIndex, 12).ok());
  EXPECT_EQ(saved(*drawing), replaced(tight, "8\n0\n", "8\n0\n62\n12\n"));
}

TEST(EditPlace, WhatEveryEntityHasIsToldFromTheRest) {
  constexpr struct {
    std::string_view dimension;
    Property property;
    bool common;
  } kRows[] = {
      {"0 DIMENSION|5 1F|100 AcDbEntity|8 0|100 AcDbDimension|1 x", Property::kColorIndex, true},
      {"0 DIMENSION|5 1F|100 AcDbEntity|8 0|100 AcDbDimension|1 x", Property::kDimText, false},
      {"0 DIMENSION|5 1F|100 AcDbEntity|8 0|100 AcDbDimension|62 3", Property::kColorIndex, false},
      {"0 DIMENSION|1 x|100 AcDbEntity|8 0|100 AcDbOther|70 1", Property::kDimText, false},
      {"0 DIMENSION|8 0|1 x", Property::kColorIndex, false},
  };
  for (const auto& [dimension, property, common] : kRows) {
    const auto drawing = read(drawingText("AC1015", dimension));
    const RecordId id = entity(*drawing, "DIMENSION");
    const Record before = drawing->record(id);
    const bool changed = property == Property::kDimText ? drawing->setText(id, property, L"y").ok()
                                                        : drawing->setInteger(id, property, 5).ok();
    ASSERT_TRUE(changed && before.edits != drawing->record(id).edits) << dimension;
    EXPECT_EQ(storageOf(*drawing).differInCommonOnly(before, drawing->record(id)), common) << dimension;
  }
}

TEST(EditPlace, ManyChangesOfOneRecordStayRightAndCanBeTakenBack) {
  const std::string before = drawingText("AC1015", "0 TEXT|100 AcDbEntity|8 A|62 1|100 AcDbText|40 1.0|1 x");
  const auto drawing = read(before);
  const RecordId id = entity(*drawing, "TEXT");
  for (int i = 1; i <= 100; ++i) {
    ASSERT_TRUE(drawing->setInteger(id, Property::kColorIndex, i * 2 % 255 + 1).ok());
    ASSERT_TRUE(
        drawing->setText(id, Property::kTextString, std::wstring(static_cast<std::size_t>(i), L'y')).ok());
  }
  EXPECT_EQ(saved(*drawing), replaced(replaced(before, " 62\n1\n", " 62\n201\n"), "  1\nx\n",
                                      "  1\n" + std::string(100, 'y') + "\n"));
  int steps = 0;
  while (drawing->undo()) ++steps;
  EXPECT_EQ(steps, 200);
  EXPECT_EQ(saved(*drawing), before);
}

// What is known of a record follows its changes: they are those of as many readings.
TEST(EditPlace, ChangesOneAfterAnotherAreThoseOfAFileReadAnewForEach) {
  constexpr std::string_view kTables =
      "0 TABLE|2 LAYER|70 1|0 LAYER|2 ANOTHER LAYER|70 0|62 7|6 CONTINUOUS|0 ENDTAB|"
      "0 TABLE|2 LTYPE|70 1|0 LTYPE|2 DASHED|70 0|3 |72 65|73 0|40 0.0|0 ENDTAB";
  using Change = std::function<base::Status(Drawing&, RecordId)>;
  const Change toLayer = [](Drawing& drawing, RecordId id) {
    return drawing.setText(id, Property::kLayer, L"Another Layer");
  };
  const Change toLinetype = [](Drawing& drawing, RecordId id) {
    return drawing.setText(id, Property::kLinetype, L"Dashed");
  };
  const auto number = [](Property property, std::int64_t value) -> Change {
    return [=](Drawing& drawing, RecordId id) { return drawing.setInteger(id, property, value); };
  };
  const Change changes[] = {number(Property::kColorIndex, 3),
                            toLayer,
                            number(Property::kLineWeight, 25),
                            number(Property::kColorIndex, 252),
                            toLinetype,
                            number(Property::kTransparency, 0x2000010),
                            number(Property::kInvisible, 1),
                            number(Property::kTransparency, 0),
                            number(Property::kColorIndex, 256),
                            number(Property::kLineWeight, 211)};
  for (const std::string_view entity :
       {"0 LINE|5 A|100 AcDbEntity|8 OLD|62 1|420 255|100 AcDbLine|10 0.0", "0 LINE|5 A|8 OLD|999 no|10 0.0",
        "0 TEXT|5 A|102 {X|8 no|102 }|100 AcDbEntity|6 OLD|8 OLD|370 13|100 AcDbText|40 1.0|100 AcDbText",
        "0 LINE|5 A|100 AcDbEntity|100 AcDbLine|8 OLD|62 1|10 0.0"}) {
    std::string file = drawingText("AC1024", entity, kTables);
    const auto drawing = read(file);
    const RecordId id = drawing->entitiesOf(drawing->modelSpace()).at(0);
    for (const Change& change : changes) {
      const auto anew = read(file);
      ASSERT_TRUE(change(*anew, anew->entitiesOf(anew->modelSpace()).at(0)).ok()) << entity;
      ASSERT_TRUE(change(*drawing, id).ok()) << entity;
      file = saved(*anew);
      ASSERT_EQ(saved(*drawing), file) << entity;
    }
  }
}

}  // namespace
}  // namespace cad::dxf
