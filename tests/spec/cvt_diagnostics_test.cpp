#include "spec/cvt_diagnostics.h"

#include <gtest/gtest.h>

#include "base/codepage.h"
#include "spec/cvt_names.h"
#include "spec/cvt_overwritten.h"
#include "spec/cvt_parser.h"

namespace kiv {
namespace {

// "number:line number:line ..." in the order reported. Most settings here have no results.
std::string numbered(std::string_view bytes) {
  std::string text;
  for (const CvtDiagnostic& diagnostic : parseCvt(bytes).diagnostics) {
    EXPECT_FALSE(diagnosticReason(diagnostic).empty());
    if (diagnostic.problem == CvtProblem::kNoResults) continue;
    if (!text.empty()) text += ' ';
    text += std::to_string(static_cast<int>(diagnostic.problem)) + ":" + std::to_string(diagnostic.line);
  }
  return text;
}
std::string numbered(std::wstring_view text) { return numbered(base::encode(text, base::kJapanese).bytes); }

TEST(CvtDiagnostics, EachFaultWithItsLine) {
  EXPECT_EQ(numbered(L"[文字]\n[X]=1\n[画層]=a\n{\nfoo\n[Y]=1\n}\n---End---\n[EOF]\n"), "1:2 2:5 1:6");
  EXPECT_EQ(numbered(L"[文字]\n{\n[色]=1\n}\n---End---\n[EOF]\n"), "33:2 13:3");
  EXPECT_EQ(numbered(L"[画層の作成]\nA,1\nB,1,X\n---End---\n[EOF]\n"), "3:2");
  EXPECT_EQ(numbered(L"[線種のﾛｰﾄﾞ]\nA.LIN\nA.LIN,B,C\n---End---\n[EOF]\n"), "37:2 18:3");
  EXPECT_EQ(numbered(L"[線種のﾛｰﾄﾞ]\nA.LIN,A\n\nB.LIN,B\n\nC.LIN,C\n---End---\n[EOF]\n"), "9:4 9:6");
  EXPECT_EQ(numbered(L"hello\n[文字]\n---End---\nbye\n[EOF]\nafter\n"), "5:1 5:4 5:6");
  EXPECT_EQ(numbered(L"[文字]\n---End---\n[文字]\n[画層]=a\n---End---\n[EOF]\n"), "7:3");
  EXPECT_EQ(numbered(L"[文字]\n---End---\n[もじ]\n[画層]=a\n---End---\n[EOF]\n"), "15:3");
  EXPECT_EQ(numbered(L"[文字]\n[画層]=a\n[EOF]\n"), "6:1");
  EXPECT_EQ(numbered(L"[文字]\n[画層]=a\n---End---\n"), "10:0");
  EXPECT_EQ(numbered(L"[寸法設定]\nDIMFOO, 1\nDIMASZ=2\nDIMTXT, 3\n---End---\n[EOF]\n"), "17:2");
}

TEST(CvtDiagnostics, LinesThatProbablyDoNotDoWhatIsMeant) {
  EXPECT_EQ(numbered(L"[文字]\n[画層]=a\n{\n[ロック]=ON\n[文字一致のリスト]=A.LIST\n}\n---End---\n[EOF]\n"),
            "11:4 19:5");
  EXPECT_EQ(numbered(L"[画層の色･線種]\n[画層]=a\n[文字高さ]=1\n---End---\n[EOF]\n"), "11:3");
  EXPECT_EQ(numbered(L"[画層の色･線種]\n[色]=1\n{\n[色]=2\n}\n---End---\n[EOF]\n"), "44:2");
  EXPECT_EQ(numbered(L"[画層の色･線種]\n[文字高さ]=1\n{\n[画層]=A\n}\n---End---\n[EOF]\n"), "11:2 44:2 14:2");
  EXPECT_EQ(numbered(L"[文字]\n[画層]=a,b\n---End---\n[EOF]\n"), "12:2");
  EXPECT_EQ(numbered(L"[文字]\n[画層]=a\n{\n[色]=1\n}\n[X]=1\n{\n[色]=1\n}\n---End---\n[EOF]\n"), "1:6 14:6");
  EXPECT_EQ(numbered(L"[文字]\n[画層]=" + std::wstring(300, L'x') + L"\n---End---\n[EOF]\n"), "4:2 2:2");
}

TEST(CvtDiagnostics, ConditionsThatNoSelectedObjectMeetsTogether) {
  const auto warned = [](const wchar_t* section, const wchar_t* first, const wchar_t* second) {
    return numbered(L"[" + std::wstring(section) + L"]\n[" + first + L"\n[線種尺度] <> 9\n[" + second +
                    L"\n---End---\n[EOF]\n")
        .ends_with("20:4");
  };
  using Conditions = std::pair<const wchar_t*, const wchar_t*>;
  for (const auto& [first, second] : {Conditions{L"画層]=WALL", L"画層]=DOOR"},
                                      {L"画層]=A-*", L"画層]=B-*"},
                                      {L"画層]=a11", L"画層]=A1@"},
                                      {L"画層]=A*B", L"画層]=*C"},
                                      {L"線種]=DASHED", L"線種]=CENTER"},
                                      {L"色]=BYLAYER", L"色]=7"},
                                      {L"字体]=A", L"字体]=B"}}) {
    EXPECT_TRUE(warned(L"文字", first, second)) << base::toUtf8(first);
  }
  for (const auto& [first, second] : {Conditions{L"画層]=*-室名", L"画層]=部屋*"},
                                      {L"画層]=WALL", L"画層]=wal?"},
                                      {L"画層]=A*B", L"画層]=*C*"},
                                      {L"画層]=~A*", L"画層]=A"},
                                      {L"画層]=A", L"画層]<>B"},
                                      {L"色]=256", L"色]=BYLAYER"},
                                      {L"文字高さ]=2", L"文字高さ]=3"}}) {
    EXPECT_FALSE(warned(L"文字", first, second)) << base::toUtf8(first);
  }
  EXPECT_FALSE(warned(L"寸法", L"字体]=A", L"字体]=B"));
  EXPECT_FALSE(warned(L"画層の色･線種", L"画層]=A", L"画層]=B"));
}

TEST(CvtDiagnostics, ValuesThatDrawingsGetOtherwiseThanTheyAreWritten) {
  EXPECT_EQ(numbered(L"[画層の色･線種]\n[画層]=a\n{\n[色]=BYLAYER\n[色]=0\n[色]=255\n}\n---End---\n[EOF]\n"),
            "21:4 21:5");
  EXPECT_EQ(
      numbered(L"[画層の色･線種]\n[画層]=a-*\n{\n[画層]=B-*\n[画層]=b-*\n[線種]=dashed\n}\n---End---\n"
               L"[文字]\n[***]\n{\n[画層]=b-1\n[字体]=kanji\n}\n---End---\n[画層の作成]\nWall,1,dashed\n"
               L"DOOR,1,dashed\n---End---\n[字体のﾛｰﾄﾞ]\nNote,Arial\nNOTE,Arial\n,Arial\n---End---\n[EOF]\n"),
      "22:5 22:17 22:21 37:23");
  EXPECT_EQ(
      numbered(L"[画層の作成]\nA,bylayer,CONTINUOUS\nB,7,CONTINUOUS\nC,,CONTINUOUS\n---End---\n[EOF]\n"),
      "21:2");
  EXPECT_EQ(numbered(L"[文字]\n[色]=BYLAYER\n{\n[色]=BYBLOCK\n}\n---End---\n[EOF]\n"), "");
  EXPECT_EQ(numbered(L"[寸法]\n[dimapost]=Abc\n{\n[DIMPOST]=<>mm\n[DIMAPOST]=\" "
                     L"ABC\n[dimtxsty]=kanji\n}\n---End---\n[EOF]\n"),
            "12:4 22:4");
  EXPECT_EQ(numbered(L"[寸法設定]\nDIMPOST, <>mm\nDIMAPOST=ｍ\ndimpost, <>MM\ndimblk, 黒丸 (_Dot)\n"
                     L"DIMPOST,A=b\nDIMPOST=A,b\n---End---\n[EOF]\n"),
            "22:2 22:3 17:6 17:7");
  EXPECT_EQ(numbered(L"[寸法]\n[DIMPOST] = <>MM\n[DIMPOST] <> <>MM\n{\n[色] <> 3\n}\n---End---\n[EOF]\n"),
            "12:2 23:2 12:3 24:5");
  EXPECT_EQ(
      numbered(
          L"[寸法]\n[DIMTAD] = +1\n[DIMCLRD] = BYLAYER\n[DIMASZ] = 2.5mm\n{\n[DIMALTF] = 2.54\n[DIMASZ] = x\n"
          L"[DIMTXSTY] = 1a\n}\n---End---\n[寸法設定]\nDIMLWD, ByLayer\nDIMTAD, 1\nDIMTAD, "
          L"65537\n---End---\n[EOF]\n"),
      "28:3 28:4 28:6 28:7 28:12 28:14");
}

// What a value counts as, "-" for nothing at all; nothing when it is what is written. `line` stands in front
// of the results of a setting of its section, unless it says itself where it stands.
std::string countsAs(const std::wstring& section, const std::wstring& line, bool asResult) {
  const std::wstring text = L"[" + section + L"]\n" + (asResult ? L"[***]\n{\n" + line : line + L"\n{") +
                            L"\n}\n---End---\n[EOF]\n";
  for (const CvtDiagnostic& found : parseCvt(base::encode(text, base::kJapanese).bytes).diagnostics) {
    if (found.problem == CvtProblem::kReadAsOther) return base::toUtf8(found.detail);
    const bool isNothing =
        found.problem == CvtProblem::kImpossibleValue || found.problem == CvtProblem::kNoName;
    if (isNothing || found.problem == CvtProblem::kNotALayerColor) return "-";
  }
  return {};
}

TEST(CvtDiagnostics, ValuesThatAreNoneOfTheirKind) {
  const struct {
    const wchar_t* line;
    std::string condition, result;
  } ofEntities[] = {
      {L"[色] = 赤", "BYBLOCK", "BYBLOCK"},
      {L"[色] =", "BYBLOCK", "BYBLOCK"},
      {L"[色] == 3", "BYBLOCK", "BYBLOCK"},
      {L"[色] = 3 ; 緑", "3", "3"},
      {L"[色] = 300", "-", "-"},
      {L"[色] = -1", "-", "-"},
      {L"[色] = bylayer", "", ""},
      {L"[色] = 1:赤", "", ""},
      {L"[画層] =", "-", "-"},
      {L"[線種] == CENTER", "= CENTER", "= CENTER"},
      {L"[文字高さ] = 1.5X", "1.5", ""},
      {L"[文字高さ] = 大X", "0", "0x"},
      {L"[文字高さ] = 2,5", "2", "2"},
      {L"[文字角度] = 右", "0", "0"},
      {L"[文字幅高比] = 1e999", "0", "0"},
      {L"[線種尺度] = +.5", "", ""},
      {L"[線幅値] = 0.5 mm", "0.05 mm", "0.05 mm"},
      {L"[線幅値] = 0.33 mm", "-", "Default"},
      {L"[線幅値] = 25", "0.25 mm", "0.25 mm"},
      {L"[線幅値] = -1", "ByLayer", "Default"},
      {L"[線幅値] = 太い", "0.00 mm", "0.00 mm"},
      {L"[線幅値] = 0.50MM", "", ""},
      {L"[線幅値] = BYBLOCK", "", ""},
      {L"[透過性] = 半分", "0", "0"},
      {L"[透過性] = 12.5", "12", "12"},
      {L"[透過性] = 101", "-", "-"},
      {L"[透過性] = 30%", "", ""},
      {L"[透過性] = ByLayer", "", ""},
      {L"[DIMBLK] = _DOT", "-", "-"},
      {L"[DIMBLK] = 黒丸 (_DOT)", "", ""},
      {L"[DIMTXSTY] =", "-", "-"},
      {L"[DIMTAD] = 99999999999", "2147483647", "2147483647"},
  };
  for (const auto& [line, condition, result] : ofEntities) {
    EXPECT_EQ(countsAs(L"寸法", line, false), condition) << base::toUtf8(line);
    EXPECT_EQ(countsAs(L"寸法", line, true), result) << base::toUtf8(line);
  }
  const std::wstring layers = L"画層の色･線種";
  for (const wchar_t* line : {L"[表示] = 開", L"[ロック] = 1", L"[フリーズ] =", L"[印刷] = 0", L"[色] = 300",
                              L"[線幅値] = ByLayer"}) {
    EXPECT_EQ(countsAs(layers, line, false) + countsAs(layers, line, true), "--") << base::toUtf8(line);
  }
  EXPECT_EQ(countsAs(layers, L"[透過性] = ByBlock", true), "0");
  EXPECT_EQ(countsAs(layers, L"[印刷] = off", true), "");
  // A kind without effect is told of as such.
  EXPECT_EQ(countsAs(L"文字", L"[表示] = 開", true), "");
  EXPECT_EQ(numbered(L"[画層の作成]\nA,1,\n,2,C\nB,3,C,ON,YES,,,0.5 mm,ByLayer\n---End---\n[EOF]\n"),
            "30:3 29:4 28:4 28:4");
  EXPECT_EQ(numbered(L"[寸法設定]\nDIMASZ, abc\nDIMBLK, _DOT\nDIMTXT, 2=3\nDIMTXT=\n---End---\n[EOF]\n"),
            "28:2 29:3 17:4 28:5");
  EXPECT_EQ(numbered(L"[文字]\n[色] != 3\n[文字高さ] >= 3\n[色] ≠<> 3\n---End---\n[EOF]\n"),
            "31:2 31:3 31:4");
}

TEST(CvtDiagnostics, BracesAndSettingsWithoutResults) {
  const auto structureOf = [](const std::wstring& lines) {
    std::string text;
    const std::wstring file = L"[文字]\n" + lines + L"---End---\n[EOF]\n";
    for (const CvtDiagnostic& found : parseCvt(base::encode(file, base::kJapanese).bytes).diagnostics) {
      if (found.problem < CvtProblem::kBraceInLine) continue;
      text += std::to_string(static_cast<int>(found.problem)) + ":" + std::to_string(found.line) + " ";
    }
    return text;
  };
  EXPECT_EQ(structureOf(L"[画層]={A}\n{\n[色]=1\n}\n[***]\n{\n[色]=2\n}\n"), "");
  EXPECT_EQ(structureOf(L"[画層]=A\n{\n[色]=1\n[画層]=B\n{\n[色]=2\n}\n"), "34:3 33:6 ");
  EXPECT_EQ(structureOf(L"[画層]=A\n{\n[色]=1\n"), "34:3 ");
  EXPECT_EQ(structureOf(L"[画層]=A\n[色]=1\n}\n"), "35:2 33:4 ");
  EXPECT_EQ(structureOf(L"}\n[画層]=A\n{\n}\n{\n}\n"), "33:2 35:3 33:6 ");
  EXPECT_EQ(structureOf(L"[画層]=A {\n[色]=1\n}\n"), "32:2 35:2 33:4 ");
  EXPECT_EQ(structureOf(L"[画層]=A\n{ [色]=1 }\n"), "35:2 32:3 ");
  EXPECT_EQ(structureOf(L"[画層]=A\n{\n[色]=1 }\n"), "34:3 32:4 ");
  EXPECT_EQ(structureOf(L"[画層]=A\n[***]\n{\n[色]=1\n}\n"), "36:2 ");
}

// The numbers and lines of what `find` adds.
std::string added(const wchar_t* text, const std::function<void(ParsedCvt&)>& find) {
  ParsedCvt parsed = parseCvt(base::encode(text, base::kJapanese).bytes);
  parsed.diagnostics.clear();
  find(parsed);
  std::string result;
  for (const CvtDiagnostic& d : parsed.diagnostics) {
    result += base::toUtf8(std::to_wstring(d.line) + L" " + d.detail + d.rest + L"; ");
  }
  return result;
}

TEST(CvtDiagnostics, ValuesThatNeverStay) {
  const struct {
    const wchar_t* settings;
    const char* expected;
  } kCases[] = {
      // Weaker conditions, the same, and what the first setting itself makes true.
      {L"[画層]=A\n[色]=1\n{\n[線種]=X\n}\n[色]=1\n{\n[線種]=Y\n}\n", "5 9; "},
      {L"[***]\n{\n[色]=1\n[色]=2\n}\n", "4 5; "},
      {L"[画層]=A\n{\n[画層]=B\n[色]=1\n}\n[画層]=B\n{\n[色]=2\n}\n", "5 9; "},
      // Others, what depends on the value, and what a setting between them may have changed.
      {L"[画層]=A\n{\n[色]=1\n}\n[画層]=B\n{\n[色]=2\n}\n", ""},
      {L"[***]\n{\n[色]=1\n}\n[色]=1\n{\n[線種]=Y\n}\n[***]\n{\n[色]=2\n}\n", ""},
      {L"[***]\n{\n[文字高さ]=2\n}\n[***]\n{\n[文字高さ]=2x\n}\n", ""},
      {L"[画層]=A\n{\n[色]=1\n}\n[色]=5\n{\n[画層]=C\n}\n[画層]=A\n{\n[色]=2\n}\n", ""},
  };
  for (const auto& [settings, expected] : kCases) {
    const std::wstring text = std::wstring(L"[文字]\n") + settings + L"---End---\n[EOF]\n";
    EXPECT_EQ(added(text.c_str(), findOverwritten), expected) << base::toUtf8(settings);
  }
  EXPECT_EQ(added(L"[寸法設定]\nDIMASZ,1\nDIMASZ=2\n---End---\n[EOF]\n", findOverwritten), "2 3; ");
  // What is there stays.
  EXPECT_EQ(
      added(L"[画層の作成]\nA,1,\nB,1,\na,2,\nA,1,\n---End---\n[線種のﾛｰﾄﾞ]\nX.LIN,D\nY.LIN,D\n---End---\n"
            L"[EOF]\n",
            findOverwritten),
      "4 2; 9 8; ");
}

TEST(CvtDiagnostics, NamesThatDrawingsDoNotHave) {
  const auto check = [](ParsedCvt& parsed) {
    const std::vector<DrawingNames> drawings = {{L"a.dxf", {{{L"A", L"EMPTY"}, {}, {}}}, {{{L"A"}, {}, {}}}},
                                                {L"b.dxf", {{{L"B"}, {}, {}}}, {{{L"B"}, {}, {}}}}};
    checkNames(parsed, drawings, [](const std::wstring& name, const std::wstring& pattern) {
      return pattern == L"*" || name == pattern;
    });
  };
  EXPECT_EQ(
      added(L"[文字]\n[画層]=A\n[画層]<>EMPTY\n[字体]=*\n{\n[画層]=A\n[画層]=NEW\n[線種]=DASH\n}\n"
            L"[画層]=NEW\n[色]=1\n{\n[線種]=BYLAYER\n}\n---End---\n[画層の色･線種]\n[画層]=EMPTY\n{\n"
            L"[画層]=X\n}\n---End---\n[画層の作成]\nNEW,1,\n---End---\n[EOF]\n",
            check),
      "3 EMPTY; 4 *; 6 A1 of 2 drawings, the first is b.dxf; 8 DASH2 of 2 drawings, the first is a.dxf; ");
  // What a pattern as a result can bring, and text styles of dimensions.
  EXPECT_EQ(added(L"[文字]\n[画層]=A\n{\n[画層]=NEW-*\n}\n[画層]=NEW-X\n[画層]=N*X\n[画層]=ZZZ\n{\n[色]=1\n}"
                  L"\n---End---\n[EOF]\n",
                  check),
            "4 NEW-*2 of 2 drawings, the first is a.dxf; 8 ZZZ; ");
  EXPECT_EQ(added(L"[寸法]\n[DIMTXSTY]=OLD\n{\n[DIMTXSTY]=NEW\n}\n---End---\n[寸法設定]\nDIMTXSTY,ROMANS\n---"
                  L"End---\n[EOF]\n",
                  check),
            "2 OLD; 4 NEW2 of 2 drawings, the first is a.dxf; "
            "8 ROMANS2 of 2 drawings, the first is a.dxf; ");
}

TEST(CvtDiagnostics, BytesAndFilesOfOtherEncodings) {
  EXPECT_EQ(numbered(std::string_view("[\x95\xb6\x8e\x9a]\n[\x90\x46]=\xff\n---End---\n[EOF]\n")),
            "8:2 28:2");
  const std::string utf8 = base::toUtf8(L"[文字]\n[画層]=壁\n{\n[色]=1\n}\n---End---\n[EOF]\n");
  for (const std::string& bytes : {utf8, "\xEF\xBB\xBF" + utf8}) {
    EXPECT_EQ(numbered(bytes), "39:0");
    EXPECT_EQ(parseCvt(bytes).sections[0].settings[0].conditions[0].value, L"壁");
  }
  // Text of both: the code page's.
  EXPECT_NE(parseCvt(base::toUtf8(L"[±]\n")).unusableReason().find(L"UTF-8"), std::wstring::npos);
  const ParsedCvt utf16 = parseCvt(std::string_view("\xff\xfe[\0\x87\x65\x57\x5b]\0\r\0\n\0", 14));
  EXPECT_NE(utf16.unusableReason().find(L"UTF-16"), std::wstring::npos);
  EXPECT_FALSE(parseCvt("").unusableReason().empty());
  EXPECT_TRUE(parseCvt("[\x95\xb6\x8e\x9a]\n---End---\n[EOF]\n").unusableReason().empty());
}

}  // namespace
}  // namespace kiv
