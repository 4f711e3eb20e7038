// Block references, the definitions that they lead to, and what the block scope takes of them, beside what
// the cases block-scope-* show; and objects on locked layers.

#include <algorithm>

#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;
using cad::Property;

constexpr std::uint64_t kInnerText = 0xB1, kInnerLine = 0xB2, kOuterLine = 0xB3, kSelfCircle = 0xB4,
                        kUnusedLine = 0xB5, kOuterInsert = 0xC1, kSecondInsert = 0xC2, kSelfInsert = 0xC3,
                        kPaperInsert = 0xC4, kSpaceText = 0xC5, kTable = 0xC6, kPaperTable = 0xC7,
                        kNestedInsert = 0xD1, kTableText = 0xB6;

std::string block(const char* name, const char* handle, const std::string& content) {
  return std::string("0 BLOCK\n5 ") + handle + "0\n100 AcDbEntity\n8 0\n100 AcDbBlockBegin\n2 " + name +
         "\n70 0\n10 0.0\n20 0.0\n" + content + "0 ENDBLK\n5 " + handle +
         "1\n100 AcDbEntity\n8 0\n100 AcDbBlockEnd\n";
}

std::string entity(const char* type, const char* handle, const char* layer, const char* own) {
  return std::string("0 ") + type + "\n5 " + handle + "\n100 AcDbEntity\n8 " + layer + "\n" + own;
}

// OUTER holds INNER and INNER a text; SELF holds itself; UNUSED is referred to from paper space only. Two
// tables are drawn by the block *T1.
std::string nestedDrawing() {
  const char* text = "100 AcDbText\n10 0.0\n20 0.0\n40 3.0\n1 X\n100 AcDbText\n";
  const char* line = "100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n";
  const auto insert = [](const char* handle, const char* name, const char* common = "") {
    return std::string("0 INSERT\n5 ") + handle + "\n100 AcDbEntity\n" + common +
           "8 ALL\n100 AcDbBlockReference\n2 " + name + "\n10 0.0\n20 0.0\n";
  };
  std::string blocks =
      block("INNER", "7", entity("TEXT", "B1", "ALL", text) + entity("LINE", "B2", "ALL", line));
  blocks +=
      block("OUTER", "8", insert("D1", "INNER") + insert("D2", "INNER") + entity("LINE", "B3", "ALL", line));
  blocks +=
      block("SELF", "9",
            insert("D3", "SELF") + entity("CIRCLE", "B4", "ALL", "100 AcDbCircle\n10 0.0\n20 0.0\n40 1.0\n"));
  blocks += block("UNUSED", "E", entity("LINE", "B5", "ALL", line));
  blocks += block("*T1", "F", entity("TEXT", "B6", "ALL", text));
  const char* table = "100 AcDbBlockReference\n2 *T1\n10 0.0\n20 0.0\n100 AcDbTable\n";
  return drawing(insert("C1", "OUTER") + insert("C2", "INNER") + insert("C3", "SELF") +
                     insert("C4", "UNUSED", "67 1\n") + entity("TEXT", "C5", "ALL", text) +
                     entity("ACAD_TABLE", "C6", "ALL", table) +
                     entity("ACAD_TABLE", "C7", "ALL\n67 1", table),
                 blocks);
}

std::string attributedDrawing() {
  const std::string reference =
      "0 INSERT\n5 C6\n100 AcDbEntity\n8 ALL\n62 1\n100 AcDbBlockReference\n66 1\n2 DOOR\n10 0.0\n20 0.0\n";
  const char* own = "62 1\n100 AcDbText\n10 0.0\n20 0.0\n40 3.0\n1 X\n100 AcDbAttribute\n2 TAG\n70 0\n";
  const char* end = "0 SEQEND\n5 C8\n100 AcDbEntity\n8 ALL\n";
  return drawing(reference + entity("ATTRIB", "C7", "ALL", own) + end, block("DOOR", "7", ""));
}

class BlockScope : public RunTest {
 protected:
  // The entities that a setting of the "other" section reaches.
  std::vector<std::uint64_t> reached(int scope) {
    open(nestedDrawing());
    set(L"KivBlock", scope);
    run({{L"その他の図形", L"[画層] = ALL\n{\n[色] = 42\n}"}});
    std::vector<std::uint64_t> found;
    for (const std::uint64_t handle :
         {kInnerText, kInnerLine, kOuterLine, kSelfCircle, kUnusedLine, kOuterInsert, kSecondInsert,
          kSelfInsert, kPaperInsert, kSpaceText, kNestedInsert, kTable, kPaperTable, kTableText}) {
      if (drawing().integer(RunTest::entity(handle), Property::kColorIndex).value_or(256) == 42) {
        found.push_back(handle);
      }
    }
    return found;
  }
};

using Handles = std::vector<std::uint64_t>;

TEST_F(BlockScope, DefinitionsAtAnyDepthOfAnyType) {
  EXPECT_EQ(reached(1), (Handles{kInnerText, kInnerLine, kOuterLine, kSelfCircle, kTable, kPaperTable}));
}

TEST_F(BlockScope, ScopesOutOfRangeAreClamped) {
  EXPECT_EQ(reached(7).size(), 9U);
  EXPECT_TRUE(cad::Host::instance().closeDocument().ok());
  EXPECT_EQ(reached(-1).size(), 5U);
}

// What a setting writes to an entity of a definition is what the next one tests.
TEST_F(BlockScope, RecordsFollowWhatWasWritten) {
  open(nestedDrawing());
  set(L"KivBlock", 1);
  run({{L"その他の図形",
        L"[画層] = ALL\n{\n[画層] = NEW\n}\n[画層] = ALL\n{\n[色] = 1\n}\n[画層] = NEW\n{\n[色] = 7\n}"}});
  EXPECT_EQ(color(kInnerLine), 7);
}

// A table comes in by its pass alone, in whatever scope: no other pass takes it as a reference.
TEST_F(BlockScope, ATableIsConvertedOnceAsATable) {
  for (const int scope : {0, 1, 2}) {
    open(nestedDrawing());
    set(L"KivBlock", scope);
    sink_.notes.clear();
    run({{L"文字", L"[***]\n{\n[色] = 42\n}"}, {L"その他の図形", L"[画層] = ALL\n{\n[線種] = NONE\n}"}});
    EXPECT_EQ(drawing().integer(RunTest::entity(kTable), Property::kColorIndex).value_or(256), 256) << scope;
    // In model space, but for the tables, and in the definitions that its references lead to.
    constexpr int kTables = 2, kReferences = 3, kInside = 4;
    const int walked[] = {kReferences, kInside, kReferences + kInside};
    ASSERT_EQ(sink_.notes.size(), 1U);
    EXPECT_EQ(sink_.notes[0].count, kTables + walked[scope]) << scope;
    EXPECT_TRUE(cad::Host::instance().closeDocument().ok());
  }
}

TEST_F(BlockScope, ConditionsDecideForRecordsThatNoFilterHasSeen) {
  open(nestedDrawing());
  set(L"KivBlock", 2);
  run({{L"文字", L"[文字高さ] = 3\n{\n[色] = 42\n}"}});
  EXPECT_EQ(color(kInnerText), 42);
  EXPECT_EQ(drawing().integer(RunTest::entity(kInnerLine), Property::kColorIndex).value_or(256), 256);
}

// What is selected must meet every line; references and the inside of definitions take either value.
TEST_F(BlockScope, ValuesOfOneKeyAreAlternativesForWhatNoFilterHasSeen) {
  open(nestedDrawing());
  set(L"KivBlock", 2);
  const double untouched = real(kSpaceText, Property::kLinetypeScale);
  int scale = 1;
  for (const wchar_t* section : {L"文字", L"寸法", L"ﾊｯﾁﾝｸﾞ", L"その他の図形"}) {
    ++scale;
    run({{section, L"[画層] = NEW\n[画層] = ALL\n{\n[線種尺度] = " + std::to_wstring(scale) + L"\n}"}});
    for (const std::uint64_t handle : {kInnerText, kInnerLine, kSecondInsert}) {
      EXPECT_DOUBLE_EQ(real(handle, Property::kLinetypeScale), scale) << handle;
    }
    EXPECT_DOUBLE_EQ(real(kSpaceText, Property::kLinetypeScale), untouched);
  }
}

TEST_F(BlockScope, AttributesAreNotConverted) {
  for (const int scope : {0, 1, 2}) {
    open(attributedDrawing());
    set(L"KivBlock", scope);
    runOnAll(L"[***]\n{\n[色] = 42\n[画層] = NEW\n[文字高さ] = 5\n}");
    EXPECT_EQ(color(0xC6), scope == 1 ? 1 : 42);
    EXPECT_EQ(color(0xC7), 1);
    EXPECT_EQ(drawing().reference(RunTest::entity(0xC7), Property::kLayer), layer(L"ALL"));
    EXPECT_DOUBLE_EQ(real(0xC7, Property::kTextHeight), 3);
    EXPECT_TRUE(cad::Host::instance().closeDocument().ok());
  }
}

// --- Locked layers

// Two lines and an insert on a locked layer, a line beside them.
std::string lockedDrawing() {
  const auto line = [](const char* handle, const char* layer) {
    return std::string("0 LINE\n5 ") + handle + "\n100 AcDbEntity\n8 " + layer +
           "\n62 1\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n";
  };
  return drawing(line("A1", "LOCKED") + line("A2", "LOCKED") + line("A3", "ALL") +
                 "0 INSERT\n5 A4\n100 AcDbEntity\n8 LOCKED\n62 1\n100 AcDbBlockReference\n2 DOOR\n10 0.0\n"
                 "20 0.0\n");
}

class LockedLayers : public RunTest {
 protected:
  void convert(const std::wstring& setting) {
    open(lockedDrawing());
    before_ = savedBytes();
    run({{L"その他の図形", setting}});
  }
  bool isLocked(const wchar_t* layerName) {
    return (drawing().integer(layer(layerName), Property::kStandardFlags).value_or(0) & 4) != 0;
  }
  std::string before_;
};

TEST_F(LockedLayers, ObjectsAreLeftAloneAndCountedForEachSetting) {
  convert(L"[***]\n{\n[色] = 5\n}\n[色] = 1\n{\n[色] = 6\n}");
  EXPECT_EQ(color(0xA1), 1);
  EXPECT_EQ(color(0xA3), 5);
  EXPECT_EQ(color(0xA4), 1);
  // The reference counts once a setting, though it is in the selection too.
  EXPECT_EQ(
      sink_.problems,
      (std::vector<std::wstring>{L"その他の図形 ロックされた画層上にあるため 6件変換できませんでした"}));
}

TEST_F(LockedLayers, IgnoredLocksAreBackAfterTheRun) {
  set(L"MorluxIgnoreLocks", 1);
  convert(L"[画層] = LOCKED\n{\n[色] = 5\n}");
  EXPECT_EQ(color(0xA1), 5);
  EXPECT_EQ(color(0xA4), 5);
  EXPECT_TRUE(sink_.problems.empty());
  EXPECT_TRUE(isLocked(L"LOCKED"));
  EXPECT_FALSE(isLocked(L"ALL"));
  undo();
  EXPECT_EQ(savedBytes(), before_);
}

TEST_F(LockedLayers, UnlockingAndLockingAgainIsNoChange) {
  set(L"MorluxIgnoreLocks", 1);
  convert(L"[画層] = NONE\n{\n[色] = 5\n}");
  EXPECT_EQ(savedBytes(), before_);
}

}  // namespace
