// The sections that bring resources into the drawing.

#include "base/files.h"
#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;
using cad::Property;
using cad::Table;
using kiv::RefusalReason;

class ListSections : public UndoneRunTest {
 protected:
  bool has(Table table, const wchar_t* record) { return drawing().find(table, record) != cad::kNoRecord; }
  std::wstring variable(const char* variableName) {
    const auto value = drawing().headerVariable(variableName);
    if (!value) return L"absent";
    if (const auto* whole = std::get_if<std::int64_t>(&*value)) return std::to_wstring(*whole);
    if (const auto* text = std::get_if<std::wstring>(&*value)) return *text;
    return std::to_wstring(std::get<double>(*value));
  }
  std::wstring styleText(const wchar_t* style, Property property) {
    return drawing().text(drawing().find(Table::kTextStyle, style), property).value_or(L"");
  }
};

TEST_F(ListSections, BuiltInArrowsBecomeBlocksAndTheCurrentArrowStays) {
  run({{L"矢印のﾛｰﾄﾞ", L"_DOT\n_archtic\n."}});
  EXPECT_TRUE(has(Table::kBlock, L"_DOT"));
  EXPECT_TRUE(has(Table::kBlock, L"_ARCHTICK"));
  EXPECT_EQ(variable("DIMBLK"), L"");
  EXPECT_EQ(color(kLine), 2);
  EXPECT_TRUE(sink_.problems.empty());
}

TEST_F(ListSections, ArrowFilesLeaveADefinitionAndNoReference) {
  make("ARROW.dxf", engine_test::drawing(
                        "0 LINE\n5 A1\n100 AcDbEntity\n8 0\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 0.0\n"));
  const cad::RecordId last = drawing().lastEntity();
  const std::wstring path = base::pathText(folder_ / "ARROW.dxf");
  run({{L"矢印のﾛｰﾄﾞ", path + L"\nMISSING.dxf"}});
  EXPECT_TRUE(sink_.problems.empty());
  EXPECT_EQ(sink_.notes,
            (std::vector<engine_test::Note>{{L"矢印のﾛｰﾄﾞ", L"MISSING.dxf", kiv::RefusalReason::kNoSuchFile,
                                             1, kiv::Refuser::kDrawing}}));
  const cad::RecordId block = drawing().find(Table::kBlock, L"ARROW");
  ASSERT_NE(block, cad::kNoRecord);
  EXPECT_EQ(drawing().entitiesOf(block).size(), 1U);
  EXPECT_EQ(drawing().lastEntity(), last);
}

TEST_F(ListSections, ArrowFilesAreProblemsUnlessTheirBlockIsDefined) {
  make("BROKEN.dxf", "no drawing");
  make("TAGGED.dxf",
       engine_test::drawing("0 ATTDEF\n5 A1\n100 AcDbEntity\n8 0\n100 AcDbText\n10 0.0\n20 0.0\n"
                            "40 1.0\n1 X\n100 AcDbAttributeDefinition\n3 No.\n2 NUMBER\n70 0\n"));
  const std::wstring tagged = base::pathText(folder_ / "TAGGED.dxf");
  run({{L"矢印のﾛｰﾄﾞ", base::pathText(folder_ / "BROKEN.dxf") + L"\n" + tagged + L"\n" + tagged}});
  EXPECT_TRUE(has(Table::kBlock, L"TAGGED"));
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{L"矢印[BROKEN]のロードができませんでした"}));
  sink_.problems.clear();
  make("TAGGED.dxf", "no drawing");
  run({{L"矢印のﾛｰﾄﾞ", tagged}});
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{L"矢印[TAGGED]のロードができませんでした"}))
      << "the old one stays";
}

// The catalogue's type decides what a text means, and the host gets the value in its own type.
TEST_F(ListSections, DimensionVariablesWhoseTypesDiffer) {
  run({{L"寸法設定",
        L"DIMALTF, 2.54\nDIMALTRND, 70000.5\nDIMSHO, 0.0\nDIMTAD, 65539.9\nDIMCLRD, BYLAYER\nDIMLWD, "
        L"ByLayer\n"
        L"DIMTXT, x\nDIMBLK1, ﾃｨｯｸ(太) (_ARCHTIC)"}});
  for (const auto& [name, value] : {std::pair("DIMALTF", L"2.000000"),
                                    {"DIMALTRND", L"70000.000000"},
                                    {"DIMSHO", L"0"},
                                    {"DIMTAD", L"3"},
                                    {"DIMBLK1", L"_ArchTick"},
                                    {"DIMLWD", L"0"}})
    EXPECT_EQ(variable(name), value) << name;
  EXPECT_EQ(sink_.notes,
            (std::vector<Note>{{L"DIMTXT", L"X", RefusalReason::kBadValue, 1, kiv::Refuser::kDrawing}}));
  for (const char* version : {"AC1009", "AC1014", "AC1015", "AC1032"}) {
    if (cad::testsDwg() && version == kNoDwg) continue;
    std::string bytes = sampleDrawing();
    bytes.replace(bytes.find("AC1024"), 6, version);
    open(bytes);
    before_ = savedBytes();
    run({{L"寸法設定", L"DIMALTF, 3\nDIMALTRND, 1\nDIMSHO, 0"}});
    EXPECT_EQ(variable("DIMALTF"), L"3.000000") << version;
    EXPECT_EQ(variable("DIMSHO"), L"0") << version;
    EXPECT_EQ(variable("DIMALTRND"), std::string_view(version) < "AC1015" ? L"absent" : L"1.000000")
        << version;
  }
}

TEST_F(ListSections, DimensionVariablesInOrderAndByTheirSeparators) {
  run({{L"寸法設定", L"DIMTAD, 1\nDIMSCALE=50\nNOSUCH, 1\nDIMTAD, 2\nDIMBLK, 黒丸 (_DOT)"}});
  EXPECT_EQ(variable("DIMTAD"), L"2");
  EXPECT_EQ(variable("DIMSCALE"), L"50.000000");
  EXPECT_EQ(base::pathFromText(variable("DIMBLK")).string().substr(0, 4), "_Dot");
  EXPECT_TRUE(sink_.problems.empty());
}

TEST_F(ListSections, RefusedDimensionVariableIsANote) {
  const std::wstring before = variable("DIMSHO");
  run({{L"寸法設定",
        L"DIMBLK, _DOT\nDIMSCALE, -5\nDIMTAD, 99\nDIMSHO, 0.5\nDIMDSEP, ab\nDIMTXSTY, NONE\n"
        L"DIMBLK, ﾕｰｻﾞ指定 (_NOARROW)"}});
  EXPECT_EQ(variable("DIMSCALE"), L"1.000000");
  EXPECT_EQ(variable("DIMTAD"), L"0");
  EXPECT_EQ(variable("DIMSHO"), before);
  ASSERT_EQ(sink_.notes.size(), 7U);
  for (std::size_t i = 0; i < 7; ++i)
    EXPECT_EQ(sink_.notes[i].reason, i < 5 ? RefusalReason::kBadValue : RefusalReason::kNoSuchName) << i;
}

// A file without a folder is found beside the drawing.
TEST_F(ListSections, LinetypesAreLoadedOnceAndFailuresAreProblems) {
  make("OFFICE.LIN",
       "*CHAIN,Chain ____ . ____\r\nA,10,-2,0,-2\r\n*DASHED,Other dashes\r\nA,1,-1\r\n*BAD,x\r\nA,x\r\n");
  const std::wstring file = base::pathText(folder_ / "OFFICE.LIN");
  run({{L"線種のﾛｰﾄﾞ", L"OFFICE.LIN, CHAIN\n" + file + L", DASHED\n" + file + L", NONE\n" + file +
                           L", BAD\nMISSING.LIN, X1"},
       {L"文字", L"[***]\n{\n[線種] = CHAIN\n}"}});
  EXPECT_EQ(name(kText, Property::kLinetype), L"CHAIN");
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{L"線種[NONE]のロードができませんでした",
                                                       L"線種[BAD]のロードができませんでした",
                                                       L"線種[X1]のロードができませんでした"}));
  ASSERT_EQ(sink_.reported.size(), 3U);
  EXPECT_TRUE(sink_.reported[0].starts_with(sink_.problems[0] + L": ["));  // the log has no reasons
  for (const wchar_t* reason :
       {L"線種[NONE]のロードができませんでした: [", L"OFFICE.LIN]にこの線種の定義がありません",
        L"OFFICE.LIN]の定義に誤りがあります", L"OFFICE.LIN, line 6: BAD: ",
        L"線種[X1]のロードができませんでした: [MISSING.LIN]が見つかりません"})
    EXPECT_NE(printed_.find(reason), std::wstring::npos) << base::toUtf8(reason) << base::toUtf8(printed_);
  EXPECT_EQ(drawing().text(drawing().find(Table::kLinetype, L"DASHED"), Property::kDescription), L"Dashed");
}

TEST_F(ListSections, StylesWithoutABigFontLoseTheOneTheyHad) {
  for (const wchar_t* entry : {L"KANJI, romans.shx, -----", L"KANJI, romans.shx",
                               L"KANJI, ＭＳ ゴシック, ----", L"KANJI, ＭＳ ゴシック, extfont.shx"}) {
    run({{L"字体のﾛｰﾄﾞ", L"KANJI, romans.shx, extfont2.shx"}});
    EXPECT_EQ(styleText(L"KANJI", Property::kBigFontFile), L"EXTFONT2.SHX");
    run({{L"字体のﾛｰﾄﾞ", entry}});
    EXPECT_EQ(styleText(L"KANJI", Property::kBigFontFile), L"") << base::toUtf8(entry);
    undo();
    undo();
  }
}

TEST_F(ListSections, LayersAreMadeBeforeTheTextsThatGoToThem) {
  run({{L"画層の作成",
        L"A-ROOM, 6, DASHED\nA-PLAIN, , CONTINUOUS\nA-OFF, 30, CONTINUOUS,OFF,OFF,OFF,ON,ByLayer,0"},
       {L"文字", L"[***]\n{\n[画層] = A-ROOM\n}"}});
  EXPECT_EQ(name(kText, Property::kLayer), L"A-ROOM");
  EXPECT_EQ(layerInteger(L"A-PLAIN", Property::kLayerColor), 7);
  EXPECT_EQ(layerInteger(L"A-OFF", Property::kLayerColor), -30);
}

TEST_F(ListSections, LayerAttributesThatCannotBeSetAreProblems) {
  run({{L"画層の作成", L"A-BAD, BYLAYER, NONE,1,OFF,OFF,ON,ByLayer,0"}});
  EXPECT_NE(layer(L"A-BAD"), cad::kNoRecord);
  EXPECT_EQ(sink_.problems,
            (std::vector<std::wstring>{L"画層の作成で、画層[A-BAD]の色[BYLAYER]を設定できませんでした",
                                       L"画層の作成で、画層[A-BAD]の線種[NONE]を設定できませんでした",
                                       L"画層の作成で、画層[A-BAD]の表示[1]を設定できませんでした",
                                       L"画層の作成で、画層[A-BAD]の線幅値[BYLAYER]を設定できませんでした"}));
}

}  // namespace
