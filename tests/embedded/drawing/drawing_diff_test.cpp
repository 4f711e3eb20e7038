#include "embedded/drawing/drawing_diff.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/codepage.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/memory/tested_storage.h"

namespace cad {
namespace {

using dxf::drawingText;

std::unique_ptr<Drawing> read(const std::string& entities, const std::string& tables) {
  return tested(dxf::read(drawingText("AC1015", entities, tables)));
}

constexpr char kTables[] =
    "0 TABLE|2 LAYER|70 3|0 LAYER|5 20|2 0|70 0|62 7|6 CONTINUOUS|0 LAYER|5 21|2 Wall|70 0|62 3|6 CONTINUOUS|"
    "0 LAYER|5 22|2 Door|70 0|62 3|6 CONTINUOUS|0 ENDTAB|0 TABLE|2 STYLE|70 3|0 STYLE|5 30|2 ROMANS|70 0|"
    "3 romans.shx|0 STYLE|5 31|2 |70 1|3 ltypeshp.shx|0 STYLE|5 32|2 |70 1|3 bold.shx|0 ENDTAB";
constexpr char kEntities[] =
    "0 LINE|5 40|100 AcDbEntity|8 Wall|100 AcDbLine|10 0.0|20 0.0|11 1.0|21 1.0|"
    "0 TEXT|5 41|100 AcDbEntity|8 Door|62 3|100 AcDbText|10 0.0|20 0.0|40 2.5|1 AB|7 ROMANS|"
    "0 TEXT|5 42|100 AcDbEntity|8 Door|100 AcDbText|10 0.0|20 0.0|40 2.5|1 AB|7 ROMANS";

std::string without(std::string text, std::string_view part) {
  const std::size_t at = text.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  return text.erase(at, part.size());
}
std::string with(std::string text, std::string_view part, std::string_view other) {
  const std::size_t at = text.find(part);
  EXPECT_NE(at, std::string::npos) << part;
  return text.replace(at, part.size(), other);
}
std::string withoutHandles(std::string text) {
  for (std::size_t at = 0; (at = text.find("|5 ")) != std::string::npos;) text.erase(at, 5);
  return text;
}

// "21 LAYER Wall: name Wall -> WALL", one a line; what a record holds besides is a matter of its format.
std::string told(const std::vector<RecordDifference>& differences) {
  std::wstring all;
  for (const RecordDifference& difference : differences) {
    const std::wstring record =
        difference.handle + L" " + base::fromUtf8(difference.type) + L" " + difference.name;
    if (difference.fate == RecordFate::kAdded) all += record + L": added\n";
    if (difference.fate == RecordFate::kRemoved) all += record + L": removed\n";
    for (const ValueChange& change : difference.changes)
      if (change.name != "other data")
        all += record + L": " + base::fromUtf8(change.name) + L" " + change.before + L" -> " + change.after +
               L"\n";
  }
  return base::toUtf8(all);
}

DrawingDifferences between(const Drawing& before, const std::string& entities, const std::string& tables) {
  const auto after = read(entities, tables);
  const DrawingDifferences back = compareDrawings(*after, before);
  DrawingDifferences there = compareDrawings(before, *after);
  EXPECT_EQ(there.entities.size(), back.entities.size());
  EXPECT_EQ(there.records.size(), back.records.size());
  return there;
}

TEST(DrawingDiff, ADrawingDoesNotDifferFromItself) {
  for (const bool hasHandles : {true, false}) {
    const std::string entities = hasHandles ? kEntities : withoutHandles(kEntities);
    const std::string tables = hasHandles ? kTables : withoutHandles(kTables);
    const auto drawing = read(entities, tables);
    const DrawingDifferences differences = between(*drawing, entities, tables);
    EXPECT_TRUE(differences.empty()) << told(differences.entities) << told(differences.records);
    EXPECT_EQ(differences.pairedByOrder, !hasHandles && testsDxf());
  }
}

TEST(DrawingDiff, TellsEachValueOfEachRecord) {
  const auto drawing = read(kEntities, kTables);
  const std::string entities =
      with(with(with(kEntities, "62 3", "62 5"), "11 1.0", "11 9.0"), "8 Wall", "8 WALL");
  EXPECT_EQ(told(between(*drawing, entities, kTables).entities),
            "40 LINE : geometry to (1, 1) -> to (9, 1)\n41 TEXT : colour 3 -> 5\n")
      << "layers are the same in any case";
  EXPECT_EQ(told(between(*drawing,
                         without(kEntities,
                                 "0 LINE|5 40|100 AcDbEntity|8 Wall|100 AcDbLine|10 0.0|"
                                 "20 0.0|11 1.0|21 1.0|"),
                         kTables)
                     .entities),
            "40 LINE : removed\n");
}

TEST(DrawingDiff, RecordsOfTablesArePairedByNameThenByHandle) {
  const auto drawing = read(kEntities, kTables);
  EXPECT_EQ(told(between(*drawing, kEntities, with(kTables, "2 Wall", "2 WALL")).records),
            "21 LAYER Wall: name Wall -> WALL\n");
  EXPECT_EQ(told(between(*drawing, with(kEntities, "8 Wall", "8 A-Wall"), with(kTables, "2 Wall", "2 A-Wall"))
                     .records),
            "21 LAYER Wall: name Wall -> A-Wall\n");
  EXPECT_EQ(told(between(*drawing, kEntities, with(kTables, "bold.shx", "thin.shx")).records),
            "32 STYLE : font file bold.shx -> thin.shx\n");
}

TEST(DrawingDiff, WithoutHandlesTheOrderWithinABlockDecides) {
  if (!testsDxf()) GTEST_SKIP() << "everything has a handle but in DXF drawings";
  const std::string entities = withoutHandles(kEntities);
  const std::string tables = withoutHandles(kTables);
  const auto drawing = read(entities, tables);
  const DrawingDifferences differences = between(*drawing, with(entities, "62 3|", "62 5|"), tables);
  EXPECT_EQ(told(differences.entities), " TEXT : colour 3 -> 5\n");
  EXPECT_TRUE(differences.records.empty()) << told(differences.records);
}

TEST(DrawingDiff, TextsOfDimensionsDifferInTheirCase) {
  const std::string dimension =
      "0 DIMENSION|5 50|100 AcDbEntity|8 0|100 AcDbDimension|10 0.0|20 0.0|70 32|3 STANDARD|"
      "100 AcDbAlignedDimension|13 0.0|23 0.0|14 1.0|24 0.0|1001 ACAD|1000 DSTYLE|1002 {|1070 3|1000 <>mm|"
      "1002 }";
  const auto drawing = read(dimension, kTables);
  EXPECT_EQ(told(between(*drawing, with(dimension, "<>mm", "<>MM"), kTables).entities),
            "50 DIMENSION : DIMPOST <>mm -> <>MM\n");
}

TEST(DrawingDiff, BlocksOfTheSameContentDoNotDifferInHandles) {
  const auto blocks = [](std::string_view first, std::string_view second) {
    std::string text = "0 SECTION|2 BLOCKS";
    for (const std::string_view name : {"A", "B"})
      text += "|0 BLOCK|8 0|2 " + std::string(name) + "|70 0|10 0.0|20 0.0|3 " + std::string(name) +
              "|0 LINE|5 " + std::string(name == "A" ? first : second) +
              "|100 AcDbEntity|8 0|100 AcDbLine|10 0.0|20 0.0|11 " + (name == "A" ? "1.0" : "2.0") +
              "|21 1.0|0 ENDBLK|8 0";
    text += "|0 ENDSEC|0 SECTION|2 ENTITIES";
    return tested(dxf::read(dxf::replaced(drawingText("AC1015", kEntities, kTables),
                                          dxf::groups("0 SECTION|2 ENTITIES"), dxf::groups(text))));
  };
  const auto before = blocks("60", "61"), after = blocks("61", "60");
  EXPECT_EQ(told(compareDrawings(*before, *after).entities), "");
}

TEST(DrawingDiff, WhatAVersionCannotHoldIsAsUsual) {
  const auto ofVersion = [](const char* version, const std::string& entities) {
    return tested(dxf::read(drawingText(version, entities, kTables)));
  };
  const auto before = ofVersion("AC1015", kEntities);
  EXPECT_EQ(told(compareDrawings(*before, *ofVersion("AC1032", kEntities)).entities), "");
  EXPECT_EQ(
      told(compareDrawings(*before, *ofVersion("AC1032", with(kEntities, "8 Wall", "8 Wall|440 33554559")))
               .entities),
      "40 LINE : transparency  -> 50 %\n");
}

TEST(DrawingDiff, WhatStandsInSectionsOfItsOwnIsCompared) {
  if (!testsDxf()) GTEST_SKIP() << "about the sections of a DXF file";
  const auto withSection = [](std::string_view records) {
    return dxf::read(dxf::replaced(
        drawingText("AC1027", kEntities, kTables), dxf::groups("0 EOF"),
        dxf::groups("0 SECTION|2 ACDSDATA|70 2|71 6|" + std::string(records) + "0 ENDSEC|0 EOF")));
  };
  const auto before = withSection("0 ACDSRECORD|90 1|310 00FF|0 ACDSRECORD|90 2|310 AB|");
  const auto bodies = [&](std::string_view records) {
    const auto after = withSection(records);
    std::string all;
    for (const RecordDifference& difference : compareDrawings(*before, *after).objects) {
      all += difference.type;
      for (const ValueChange& change : difference.changes)
        all += " " + base::toUtf8(change.before + L" -> " + change.after);
      all += difference.fate == RecordFate::kRemoved ? " removed\n" : "\n";
    }
    return all;
  };
  EXPECT_EQ(bodies("0 ACDSRECORD|90 1|310 00FF|0 ACDSRECORD|90 2|310 AB|"), "");
  EXPECT_EQ(bodies("0 ACDSRECORD|90 1|310 00FE|0 ACDSRECORD|90 2|310 AB|"),
            "ACDSRECORD 310: 00FF -> 310: 00FE\n");
  EXPECT_EQ(bodies("0 ACDSRECORD|90 2|310 AB|"), "ACDSRECORD removed\n");
}

}  // namespace
}  // namespace cad
