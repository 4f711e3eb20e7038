// Results that are refused, and those of dimensions. What every kind of result changes on every sort of
// entity is shown by the cases results-on-*.

#include "embedded/drawing/dim_variables.h"
#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;
using cad::Property;
using kiv::RefusalReason;

constexpr double kNoOverride = -999;

class Results : public UndoneRunTest {
 protected:
  void setAll(const wchar_t* key, const wchar_t* value) {
    runOnAll(L"[***]\n{\n[" + std::wstring(key) + L"] = " + value + L"\n}");
  }
  double overrideOf(std::uint64_t handle, std::string_view variable) {
    const auto value = drawing().dimVariable(entity(handle), *cad::findDimVariable(variable));
    if (!value) return kNoOverride;
    if (const double* real = std::get_if<double>(&*value)) return *real;
    const auto* whole = std::get_if<std::int64_t>(&*value);
    return whole != nullptr ? static_cast<double>(*whole) : kNoOverride;
  }
};

// The block reference is a record of every pass.
TEST_F(Results, RefusedTransparencyIsCounted) {
  setAll(L"透過性", L"150");
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{
                                L"文字 4件変換できませんでした", L"寸法 3件変換できませんでした",
                                L"ﾊｯﾁﾝｸﾞ 2件変換できませんでした", L"その他の図形 3件変換できませんでした"}));
  int told = 0;
  for (const Note& note : sink_.notes)
    told += note == Note{L"透過性", L"150", RefusalReason::kBadValue, note.count} ? note.count : 0;
  EXPECT_EQ(told, 12);
}

// One layer, and the texts with the block reference.
TEST_F(Results, WhatTheVersionCannotHoldIsToldAlikeForEveryKind) {
  const struct {
    const char* version;
    const wchar_t* refused;
  } cases[] = {{"AC1021", L"透過性*1 透過性*4 "},
               {"AC1014", L"DIMLWD*1 印刷*1 線幅値*1 透過性*1 線幅値*4 透過性*4 DIMLWD*1 "},
               {"AC1009", L"DIMLWD*1 印刷*1 線幅値*1 透過性*1 線幅値*4 透過性*4 線種尺度*4 DIMLWD*1 "}};
  for (const auto& c : cases) {
    if (cad::testsDwg() && c.version == kNoDwg) continue;
    std::string bytes = sampleDrawing();
    bytes.replace(bytes.find("AC1024"), 6, c.version);
    EXPECT_TRUE(cad::Host::instance().closeDocument().ok());
    open(bytes);
    before_ = savedBytes();
    sink_.notes.clear();
    run({{L"寸法設定", L"DIMLWD, 25"},
         {L"寸法", L"[***]\n{\n[DIMLWD] = 25\n}"},
         {L"画層の色･線種", L"[画層] = NEW\n{\n[印刷] = OFF\n[線幅値] = 0.50 mm\n[透過性] = 60\n}"},
         {L"文字", L"[***]\n{\n[線幅値] = 0.50 mm\n[透過性] = 60\n[線種尺度] = 3\n}"}});
    std::wstring refused;
    for (const Note& note : sink_.notes) {
      refused += note.kind + L"*" + std::to_wstring(note.count) + L" ";
      EXPECT_EQ(note.reason, RefusalReason::kNotInThisVersion) << c.version;
    }
    EXPECT_EQ(refused, c.refused) << c.version;
  }
}

// The block reference, a record of the pass too, has no text.
TEST_F(Results, ValuesThatNoTextCanHaveAreRefused) {
  run({{L"文字", L"[***]\n{\n[字体] = NONE\n[文字高さ] = -1\n[文字幅高比] = 0\n[色] = 65538\n}"}});
  EXPECT_EQ(savedBytes(), before_);
  EXPECT_EQ(sink_.notes, (std::vector<Note>{{L"字体", L"NONE", RefusalReason::kNoSuchName, 3},
                                            {L"文字高さ", L"-1", RefusalReason::kBadValue, 3},
                                            {L"文字幅高比", L"0", RefusalReason::kBadValue, 2},
                                            {L"色", L"65538", RefusalReason::kBadValue, 4}}));
}

// The catalogue's type decides what a text means: DIMALTF is an integer there, and texts count as 0.
TEST_F(Results, DimensionVariables) {
  runOnAll(
      L"[***]\n{\n[DIMASZ] = 4.5\n[DIMTIH] = NO\n[DIMCLRT] = 3.9\n[DIMLWD] = 0.25 mm\n[DIMDSEP] = .\n"
      L"[DIMTXSTY] = STANDARD\n[DIMBLK] = 塗り潰し矢印 (.)\n[DIMALTF] = 2.54\n[DIMPOST] = <>mm\n[DIMTAD] = "
      L"ABC\n}");
  EXPECT_TRUE(sink_.notes.empty()) << sink_.notes.size();
  for (const auto& [variable, value] : {std::pair("DIMASZ", 4.5),
                                        {"DIMTIH", 0},
                                        {"DIMCLRT", 3},
                                        {"DIMLWD", 0},
                                        {"DIMALTF", 2},
                                        {"DIMTAD", 0}})
    EXPECT_DOUBLE_EQ(overrideOf(kDimension, variable), value) << variable;
  // Leaders are not dimensions.
  EXPECT_DOUBLE_EQ(overrideOf(kLeader, "DIMASZ"), kNoOverride);
}

TEST_F(Results, ABuiltInArrowOfADimensionBecomesABlock) {
  run({{L"寸法", L"[***]\n{\n[DIMBLK1] = ﾃｨｯｸ(太) (_ARCHTIC)\n[DIMLDRBLK] = 黒丸 (_DOT)\n}"}});
  EXPECT_TRUE(sink_.notes.empty());
  for (const auto& [variable, arrow] :
       {std::pair(&cad::dimRow("DIMBLK1"), L"_ArchTick"), {&cad::dimRow("DIMLDRBLK"), L"_Dot"}}) {
    EXPECT_NE(drawing().find(cad::Table::kBlock, std::wstring_view(arrow)), cad::kNoRecord);
    EXPECT_EQ(drawing().dimVariable(entity(kDimension), *variable), cad::Variable(std::wstring(arrow)));
  }
}

TEST_F(Results, OverrideThatEqualsTheStyleIsNoChange) {
  run({{L"寸法", L"[***]\n{\n[DIMTAD] = 1\n[文字高さ] = 3.5\n}"}});
  EXPECT_EQ(savedBytes(), before_);
}

TEST_F(Results, DimensionVariablesOfTheWrongFormAreNotes) {
  run({{L"寸法",
        L"[***]\n{\n[DIMTAD] = 99\n[DIMZIN] = 77\n[DIMTFAC] = -3\n[DIMTIH] = 2\n[DIMCLRE] = 65538\n[DIMLWE] "
        L"= 7\n"
        L"[DIMBLK] = _DOT\n[DIMDSEP] = ab\n[DIMTXSTY] = NONE\n[DIMBLK] = ﾕｰｻﾞ指定 (_NOARROW)\n[DIMSHO] = "
        L"1\n}"}});
  std::wstring told;
  for (const Note& note : sink_.notes)
    told += note.kind + std::to_wstring(static_cast<int>(note.reason)) + L" ";
  std::wstring expected;
  for (const wchar_t* kind :
       {L"DIMTAD", L"DIMZIN", L"DIMTFAC", L"DIMTIH", L"DIMCLRE", L"DIMLWE", L"DIMBLK", L"DIMDSEP"})
    expected += kind + std::to_wstring(static_cast<int>(RefusalReason::kBadValue)) + L" ";
  for (const wchar_t* kind : {L"DIMTXSTY", L"DIMBLK"})
    expected += kind + std::to_wstring(static_cast<int>(RefusalReason::kNoSuchName)) + L" ";
  expected += L"DIMSHO" + std::to_wstring(static_cast<int>(RefusalReason::kNotForObject)) + L" ";
  EXPECT_EQ(told, expected);
  EXPECT_EQ(savedBytes(), before_);
}

}  // namespace
