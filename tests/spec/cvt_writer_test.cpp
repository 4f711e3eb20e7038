#include "spec/cvt_writer.h"

#include "spec/cvt_reader.h"
#include "tests/spec/sample_specification.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

class CvtWriter : public test_support::TempFolder {};

std::wstring sectionLines(const Specification& specification, const wchar_t* header) {
  const std::wstring text = cvtText(specification);
  const size_t start = text.find(std::wstring(header) + L"\n") + std::wcslen(header) + 1;
  return text.substr(start, text.find(L"---End---", start) - start);
}

TEST_F(CvtWriter, WholeFileByteForByte) {
  ASSERT_TRUE(writeSpecification(testing::sampleSpecification(), folder_ / "a.CVT").ok());
  EXPECT_EQ(content("a.CVT"), base::encode(testing::kSampleText, base::kJapanese).bytes);
  EXPECT_EQ(count(), 1U);
}

TEST_F(CvtWriter, CommasInValuesAndAssignmentsSurviveASave) {
  makeText("a.CVT", L"[文字]\n[画層] = A-*,~A-1\n---End---\n[寸法設定]\nDIMASZ = 2.5\n---End---\n[EOF]\n");
  const Specification loaded = loadSpecification(folder_, L"a.CVT").specification;
  EXPECT_EQ(loaded.settings(1)[0].conditions[0].value, L"A-*,~A-1");
  EXPECT_EQ(sectionLines(loaded, L"[文字]"), L"[画層] = A-*,~A-1\n");
  EXPECT_EQ(sectionLines(loaded, L"[寸法設定]"), L"DIMASZ = 2.5\n");
}

TEST_F(CvtWriter, ListEntriesEachInTheirForm) {
  Specification specification;
  for (const auto& [section, fields] : std::vector<std::pair<int, std::vector<std::wstring>>>{
           {5, {L"DIMASZ", L"2.5"}},
           {7, {L"WALL", L"1:赤", L"CONTINUOUS"}},
           {7, {L"PLAIN", L"", L"CONTINUOUS"}},
           {7, {L"AXIS", L"256:BYLAYER", L"CENTER", L"ON", L"OFF", L"OFF", L"ON", L"0.25 mm", L"30"}},
           {9, {L"STD", L"TXT.SHX", L"BIGFONT.SHX"}},
           {9, {L"GOTHIC", L"ＭＳ ゴシック"}},
           {10, {L"_Dot"}}}) {
    ASSERT_TRUE(specification.addEntry(section, {fields}).ok());
  }
  EXPECT_EQ(sectionLines(specification, L"[寸法設定]"), L"DIMASZ, 2.5\n");
  EXPECT_EQ(sectionLines(specification, L"[画層の作成]"),
            L"WALL, 1, CONTINUOUS\nPLAIN, , CONTINUOUS\nAXIS, BYLAYER, CENTER,ON,OFF,OFF,ON,0.25 mm,30\n");
  EXPECT_EQ(sectionLines(specification, L"[字体のﾛｰﾄﾞ]"),
            L"STD, TXT.SHX, BIGFONT.SHX\nGOTHIC, ＭＳ ゴシック, ----------\n");
  EXPECT_EQ(sectionLines(specification, L"[矢印のﾛｰﾄﾞ]"), L"_Dot\n");
}

TEST_F(CvtWriter, SettingsWithoutResultsHaveNoBraces) {
  Specification specification;
  static_cast<void>(specification.addSetting(2));
  static_cast<void>(specification.addCondition(2, 0, {kVariableKind, false, L"dimasz", L"2.5"}));
  static_cast<void>(specification.addSetting(2));
  static_cast<void>(specification.addSetting(2));
  static_cast<void>(specification.addResult(2, 2, {kColorKind, false, {}, L"0:BYBLOCK"}));
  EXPECT_EQ(sectionLines(specification, L"[寸法]"),
            L"[DIMASZ] = 2.5\n[***]\n                {\n                        [色] = BYBLOCK\n             "
            L"   }\n");
}

TEST_F(CvtWriter, LayerSettingWithoutLayerIsRefused) {
  const auto path = make("a.CVT", "old");
  Specification specification = testing::sampleSpecification();
  static_cast<void>(specification.addSetting(6));
  static_cast<void>(specification.addResult(6, 1, {kColorKind, false, {}, L"1:赤"}));
  const CvtWriteResult result = writeSpecification(specification, path);
  EXPECT_EQ(result.outcome, CvtWriteOutcome::kLayerMissing);
  EXPECT_EQ(result.setting, 1);
  EXPECT_EQ(result.message, L"[画層の色･線種] に画層名が指定されていません");
  EXPECT_EQ(content("a.CVT"), "old");
  // A layer among the results is enough.
  static_cast<void>(specification.addResult(6, 1, {kLayerKind, false, {}, L"X"}));
  EXPECT_TRUE(writeSpecification(specification, path).ok());
}

TEST_F(CvtWriter, CharactersOutsideTheCodePageAreNamed) {
  const auto path = make("a.CVT", "old");
  Specification specification = testing::sampleSpecification();
  specification.remark = L"한 \u20AC 한";
  const CvtWriteResult result = writeSpecification(specification, path);
  EXPECT_EQ(result.outcome, CvtWriteOutcome::kUnwritable);
  EXPECT_NE(result.failure.reason.find(L"한€"), std::wstring::npos);
  EXPECT_EQ(content("a.CVT"), "old");
}

TEST_F(CvtWriter, AFileThatCannotBeMadeIsNamed) {
  const auto path = folder_ / "none" / "a.CVT";
  const CvtWriteResult result = writeSpecification(testing::sampleSpecification(), path);
  EXPECT_EQ(result.outcome, CvtWriteOutcome::kNotCreated);
  EXPECT_EQ(result.message, L"\n " + base::pathText(path) + L"ファイルの作成に失敗しました");
}

TEST_F(CvtWriter, LineEndsInsideValuesStayOneLine) {
  Specification specification;
  specification.remark = L" a\r\n[文字]";
  EXPECT_EQ(cvtText(specification).substr(0, 13), L"[備考]\n a  [文字]");
}

}  // namespace
}  // namespace kiv
