#include "spec/cvt_reader.h"

#include "tests/spec/sample_specification.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

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
