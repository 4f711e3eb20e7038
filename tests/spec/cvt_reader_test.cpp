#include <gtest/gtest.h>

#include "base/codepage.h"
#include "spec/cvt_parser.h"
#include "spec/cvt_reader.h"
#include "tests/spec/sample_specification.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

ParsedCvt parse(std::wstring_view text) { return parseCvt(base::encode(text, base::kJapanese).bytes); }

const std::vector<Setting>& texts(const ParsedCvt& parsed) { return parsed.sections[0].settings; }

class CvtTreeReader : public test_support::TempFolder {};

TEST_F(CvtTreeReader, LoadsTheSampleWhateverTheCaseOfItsName) {
  makeText("Plan.cvt", testing::kSampleText);
  const TreeLoad load = loadSpecification(folder_, L"PLAN.CVT");
  EXPECT_EQ(load.linesExamined, 15);
  EXPECT_EQ(load.specification.fileName, L"PLAN.CVT");
  EXPECT_EQ(load.specification.remark, L"sample");
  const auto& settings = load.specification.settings(1);
  ASSERT_EQ(settings.size(), 2U);
  EXPECT_EQ(settings[0].name, L"設定1");
  EXPECT_EQ(settings[0].conditions[1].value, L"7:白");
  EXPECT_TRUE(settings[0].conditions[1].inverted);
  EXPECT_TRUE(settings[1].conditions.empty());
  EXPECT_EQ(load.specification.settings(6)[0].results[0].value, L"256:BYLAYER");
  EXPECT_EQ(load.specification.entries(8)[0].fields, (std::vector<std::wstring>{L"DASHED", L"SAMPLE.LIN"}));
}

TEST_F(CvtTreeReader, AMissingFileLeavesTenEmptySections) {
  const TreeLoad load = loadSpecification(folder_, L"None.cvt");
  EXPECT_FALSE(load.isRead || load.isSpecification);
  EXPECT_EQ(load.linesExamined, 0);
  EXPECT_EQ(load.specification.fileName, L"None.cvt");
  EXPECT_EQ(load.specification.childCount(Node{}), 10);
}

TEST_F(CvtTreeReader, EmptySectionsMakeASpecificationARemarkAloneDoesNot) {
  for (const auto& [text, isSpecification] :
       {std::pair(L"[備考]\r\nr\r\n[寸法]\r\n---End---\r\n[EOF]\r\n", true),
        std::pair(L"[備考]\r\nr\r\n[EOF]\r\n", false)}) {
    makeText("a.cvt", text);
    const TreeLoad load = loadSpecification(folder_, L"a.cvt");
    EXPECT_TRUE(load.isRead);
    EXPECT_EQ(load.isSpecification, isSpecification);
    EXPECT_EQ(load.specification.remark, L"r");
    EXPECT_EQ(load.linesExamined, 0);
  }
}

TEST(CvtReader, SectionsInAnyOrderAndOnlyTheFirstOfEach) {
  const auto parsed = parse(
      L"[矢印のﾛｰﾄﾞ]\n_Dot\n---End---\n[文字]\n[画層]=a\n---END---\n[備考]\nlate\n[文字]\n[画層]=b\n---End---"
      L"\n[EOF]\n");
  EXPECT_EQ(parsed.sections[9].entries[0][0], L"_Dot");
  ASSERT_EQ(texts(parsed).size(), 1U);
  EXPECT_EQ(texts(parsed)[0].conditions[0].value, L"A");
  EXPECT_EQ(parsed.remark, L"late");  // found by the passes whose section is not in front of it
}

TEST(CvtReader, EndMarkersInAnyCase) {
  const auto parsed =
      parse(L"[文字]\n[画層]=a\n---end---\n[寸法]\n[画層]=b\n---eNd---\n[eof]\n[ﾊｯﾁﾝｸﾞ]\n[画層]=c\n");
  EXPECT_EQ(texts(parsed)[0].conditions.size(), 1U);
  EXPECT_EQ(parsed.sections[1].settings[0].conditions.size(), 1U);
  EXPECT_FALSE(parsed.sections[2].found);
}

TEST(CvtReader, ASectionWithoutEndTakesTheNextOnesLinesToo) {
  const auto parsed = parse(L"[文字]\n[画層]=a\n{\n[色]=1\n}\n[寸法]\n[画層]=b\n---End---\n[EOF]\n");
  ASSERT_EQ(texts(parsed).size(), 2U);
  EXPECT_EQ(texts(parsed)[1].conditions[0].value, L"B");
  EXPECT_EQ(parsed.sections[1].settings[0].conditions[0].value, L"B");
}

TEST(CvtReader, ARemarkThatLooksLikeAHeaderOpensItsSectionInLaterPasses) {
  const auto parsed = parse(L"[備考]\n[寸法]\n[文字]\n---End---\n[寸法]\n[画層]=a\n---End---\n[EOF]\n");
  EXPECT_EQ(parsed.remark, L"[寸法]");
  EXPECT_TRUE(parsed.sections[1].settings.empty());
  EXPECT_EQ(parsed.sections[1].linesExamined, 1);
}

TEST(CvtReader, EverythingButRemarkAndArrowsIsUpperCased) {
  const auto parsed = parse(
      L"[備考]\nMy remark\n[文字]\n[画層] = Wall\n---End---\n[字体のﾛｰﾄﾞ]\nstd, txt.shx, big.shx\n---End---\n"
      L"[矢印のﾛｰﾄﾞ]\nc:\\Arrows\\My.dwg\n---End---\n[EOF]\n");
  EXPECT_EQ(parsed.remark, L"My remark");
  EXPECT_EQ(texts(parsed)[0].conditions[0].value, L"WALL");
  EXPECT_EQ(parsed.sections[8].entries[0], (std::vector<std::wstring>{L"STD", L"TXT.SHX", L"BIG.SHX"}));
  EXPECT_EQ(parsed.sections[9].entries[0][0], L"c:\\Arrows\\My.dwg");
}

TEST(CvtReader, ConditionsWithoutResultsRunIntoTheNextSetting) {
  const auto parsed = parse(L"[文字]\n[画層]=a\n\n[色]=1\n{\n[画層]=b\n}\n[画層]=c\n---End---\n[EOF]\n");
  ASSERT_EQ(texts(parsed).size(), 2U);
  EXPECT_EQ(texts(parsed)[0].conditions.size(), 2U);
  EXPECT_EQ(texts(parsed)[0].results.size(), 1U);
  EXPECT_EQ(texts(parsed)[1].name, L"設定2");
}

TEST(CvtReader, AnUnknownFirstConditionLeavesNoSettingALaterOneDoes) {
  const auto parsed =
      parse(L"[文字]\n[X]=1\n{\n[色]=1\n}\n[画層]=a\n{\n[色]=2\n}\n[Y]=1\n{\n[色]=3\n}\n---End---\n[EOF]\n");
  ASSERT_EQ(texts(parsed).size(), 2U);
  EXPECT_EQ(texts(parsed)[0].results[0].value, L"2:黄");
  EXPECT_TRUE(texts(parsed)[1].conditions.empty());
  EXPECT_EQ(texts(parsed)[1].results[0].value, L"3:緑");
}

TEST(CvtReader, AFirstWildcardSettingStaysUntilAnUnknownResult) {
  EXPECT_EQ(texts(parse(L"[文字]\n[***]\n{\n[色]=1\n}\n---End---\n[EOF]\n")).size(), 1U);
  EXPECT_EQ(texts(parse(L"[文字]\n[***]\n---End---\n[EOF]\n")).size(), 1U);
  EXPECT_TRUE(texts(parse(L"[文字]\n[***]\n{\n[X]=1\n[色]=1\n}\n---End---\n[EOF]\n")).empty());
  EXPECT_EQ(texts(parse(L"[文字]\n[***]\n{\n[色]=1\n[X]=1\n}\n---End---\n[EOF]\n")).size(), 1U);
}

TEST(CvtReader, ATextListAmongTheResultsDropsItsLineOnly) {
  const auto parsed =
      parse(L"[文字]\n[***]\n{\n[文字一致のリスト] = A.LIST\n[色] = 3\n}\n---End---\n[EOF]\n");
  ASSERT_EQ(texts(parsed).size(), 1U);
  ASSERT_EQ(texts(parsed)[0].results.size(), 1U);
  EXPECT_EQ(texts(parsed)[0].results[0].value, L"3:緑");
}

TEST(CvtReader, InversionIsLookedForInTheWholeLine) {
  const auto parsed =
      parse(L"[文字]\n[画層] <> 0\n[線種] = A<>B\n{\n[色] <> 5\n[画層] <> x = y\n}\n---End---\n[EOF]\n");
  const Setting& setting = texts(parsed)[0];
  EXPECT_TRUE(setting.conditions[0].inverted);
  EXPECT_TRUE(setting.conditions[1].inverted);
  EXPECT_EQ(setting.conditions[1].value, L"A<>B");
  EXPECT_FALSE(setting.results[0].inverted);
  EXPECT_EQ(setting.results[0].value, L"5:青");
  EXPECT_EQ(setting.results[1].value, L"X = Y");
}

TEST(CvtReader, KeysAreTakenApartLeniently) {
  const auto parsed =
      parse(L"[文字]\n  [ 画層 ]=  a b  \n色] = bylayer\n[画層 = x\n[画層] x\n---End---\n[EOF]\n");
  ASSERT_EQ(texts(parsed)[0].conditions.size(), 2U);
  EXPECT_EQ(texts(parsed)[0].conditions[0].value, L"A B");
  EXPECT_EQ(texts(parsed)[0].conditions[1].value, L"256:BYLAYER");
}

TEST(CvtReader, AnEmptyLineEndsAListButNotRules) {
  const auto parsed = parse(L"[線種のﾛｰﾄﾞ]\nA.LIN, A\n\nB.LIN, B\n---End---\n[EOF]\n");
  EXPECT_EQ(parsed.sections[7].entries.size(), 1U);
  EXPECT_EQ(parsed.sections[7].linesExamined, 2);
}

TEST(CvtReader, LayersHaveThreeOrNineFields) {
  const auto parsed = parse(
      L"[画層の作成]\nA, bylayer, X\nB,1\nC,1,X,ON\nD,byblock,X,ON,OFF,OFF,ON,0.25 "
      L"mm,30\n---End---\n[EOF]\n");
  ASSERT_EQ(parsed.sections[6].entries.size(), 2U);
  EXPECT_EQ(parsed.sections[6].entries[0][1], L"256:BYLAYER");
  EXPECT_EQ(parsed.sections[6].entries[1][1], L"0:BYBLOCK");
  EXPECT_EQ(parsed.sections[6].entries[1].size(), 9U);
}

TEST(CvtReader, FontsWithAndWithoutBigFont) {
  const auto parsed = parse(L"[字体のﾛｰﾄﾞ]\nA, F\nB, F, ----------\nC, F, G, H\n---End---\n[EOF]\n");
  ASSERT_EQ(parsed.sections[8].entries.size(), 3U);
  EXPECT_EQ(parsed.sections[8].entries[0].size(), 2U);
  EXPECT_EQ(parsed.sections[8].entries[1].size(), 2U);
  EXPECT_EQ(parsed.sections[8].entries[2], (std::vector<std::wstring>{L"C", L"F", L"G"}));
}

TEST(CvtReader, LongLinesAreSeveralLines) {
  const std::wstring value(255 - 5, L'x');  // "[画層]=" is five characters
  const auto exact = parse(L"[文字]\n[画層]=" + value + L"\n---End---\n[EOF]\n");
  EXPECT_EQ(exact.sections[0].linesExamined, 1);
  const auto longer = parse(L"[文字]\n[画層]=" + value + L"[色]=1\n---End---\n[EOF]\n");
  EXPECT_EQ(longer.sections[0].linesExamined, 2);
  EXPECT_EQ(texts(longer)[0].conditions.size(), 2U);
}

// --- As the run reads it

class CvtRunReader : public test_support::TempFolder {
 protected:
  WorkLists read(std::wstring_view text) {
    WorkLists lists;
    EXPECT_TRUE(readWorkLists(makeText("a.cvt", text), lists));
    return lists;
  }
};

using Lines = std::vector<std::wstring>;

TEST_F(CvtRunReader, FlattensTheSample) {
  const WorkLists work = read(testing::kSampleText);
  EXPECT_EQ(work.lists[0], (Lines{L",画層=A-TEXT,色<>7,{,画層=TEXT,色=3", L",***,{,文字高さ=2.5"}));
  EXPECT_EQ(work.lists[5], (Lines{L",画層=0,{,色=256"}));
  EXPECT_EQ(work.lists[7], (Lines{L"SAMPLE.LIN,DASHED"}));
  for (const size_t empty : {1, 2, 3, 4, 6, 8, 9}) EXPECT_TRUE(work.lists[empty].empty()) << empty;
}

TEST_F(CvtRunReader, CommasOfValuesAreDoubled) {
  const WorkLists work = read(L"[寸法]\n[画層]=a-*,***\n{\n[DIMPOST]=x,y=z,\n[色]=1\n}\n---End---\n[EOF]\n");
  EXPECT_EQ(work.lists[1], (Lines{L",画層=A-*,,***,{,DIMPOST=X,,Y=Z,,,色=1"}));
}

TEST_F(CvtRunReader, ListFieldsAreJoinedByCommas) {
  const WorkLists work = read(
      L"[寸法設定]\ndimasz, 2.5, x\nDIMTXT = 3\nDIMPOST,\n---End---\n"
      L"[画層の作成]\nA, byblock, X\nC,,Z\nB, 1, Y,ON,OFF,OFF,ON,0.25 mm,30\n---End---\n"
      L"[字体のﾛｰﾄﾞ]\nS, F.SHX, B.SHX\nT, F, "
      L"----------\n---End---\n[矢印のﾛｰﾄﾞ]\n/Arrows/My.dwg , old\n---End---\n[EOF]\n");
  EXPECT_EQ(work.lists[4], (Lines{L"DIMASZ,2.5", L"DIMTXT = 3", L"DIMPOST,"}));
  EXPECT_EQ(work.lists[6], (Lines{L"A,0,X,,,,,,", L"C,,Z,,,,,,", L"B,1,Y,ON,OFF,OFF,ON,0.25 MM,30"}));
  EXPECT_EQ(work.lists[8], (Lines{L"S,F.SHX,B.SHX", L"T,F"}));
  EXPECT_EQ(work.lists[9], (Lines{L"/Arrows/My.dwg"}));
}

TEST_F(CvtRunReader, SuccessNeedsAReadableFileWithAKnownSection) {
  WorkLists work;
  work.lists[0].push_back(L"old");
  EXPECT_FALSE(readWorkLists(folder_ / "none.cvt", work));
  EXPECT_TRUE(work.lists[0].empty());
  EXPECT_FALSE(readWorkLists(folder_, work));
  EXPECT_FALSE(readWorkLists(make("b.cvt", "plain text\n"), work));
  EXPECT_TRUE(readWorkLists(makeText("c.cvt", L"[文字]\n---End---\n[EOF]\n"), work));
}

}  // namespace
}  // namespace kiv
