// The conversion command as one step of a batch, and the summary.

#include "host/batch.h"

#include "acdocman.h"
#include "base/codepage.h"
#include "embedded/editor/host.h"
#include "host/module.h"
#include "tests/support/temp_folder.h"

namespace {

// What is printed, less the lines that name the product.
std::wstring printed(const std::optional<std::vector<kiv::BatchFile>>& files) {
  std::wstring text;
  cad::Host::instance().setOutput([&](std::wstring_view part) { text += part; });
  kiv::printBatchReport(files, L"C:\\work\\");
  cad::Host::instance().setOutput({});
  const std::wstring stars = L"\n" + std::wstring(68, L'*');
  if (text.empty()) return text;
  EXPECT_EQ(text.substr(0, 69), stars);
  const std::size_t second = text.find(stars, 69);
  EXPECT_NE(second, std::wstring::npos);
  return text.substr(second + 69);
}

const std::wstring kHead = L"\nﾌｫﾙﾀﾞ:C:\\work\\\n[ﾌｧｲﾙ名] [結果]";
const std::wstring kRule = L"\n" + std::wstring(68, L'-');

TEST(BatchReport, NamesEveryFileAndMarksTheUnreadable) {
  EXPECT_EQ(
      printed({{{L"a.dwg", 27}, {L"b%s.dwg", 0}, {L"c.dwg", 1}}}),
      kHead + kRule + L"\n[a.dwg]\n[b%s.dwg] [NG]\n[c.dwg]" + kRule + L"\n3件中1件 変換に失敗しました.");
  EXPECT_EQ(printed({{{L"a.dwg", 27}}}), kHead + kRule + L"\n[a.dwg]" + kRule + L"\n1件変換しました.");
}

namespace fs = std::filesystem;

class BatchStep : public test_support::TempFolder {
 protected:
  void SetUp() override {
    fs::create_directories(folder_ / "out");
    make("rules.cvt", "[\x95\xb6\x8e\x9a]\r\n[***]\r\n{\r\n[\x90\x46] = 3\r\n}\r\n---End---\r\n[EOF]\r\n");
    for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) {
      make(name,
           "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nTEXT\r\n  8\r\n0\r\n 10\r\n0.0\r\n 20\r\n0.0\r\n"
           " 40\r\n2.5\r\n  1\r\nA\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
    }
    host().setOutput([this](std::wstring_view text) { printed_ += text; });
    host().start();
    kiv::registerCommands();
    kiv::ConversionContext& context = kiv::conversionContext();
    context.contextPaths = {base::pathText(folder_ / "rules.cvt"), {}, base::pathText(folder_ / "out" / "")};
    context.saveFormat = base::SaveFormat::kDxf;
    context.batchStartDocument = acDocManagerPtr()->curDocument();
    context.batchRemaining = 3;
  }
  void TearDown() override {
    kiv::conversionContext() = {};
    kiv::removeCommands();
    host().stop();
    host().setOutput({});
  }
  static cad::Host& host() { return cad::Host::instance(); }
  void convert(const char* name) {
    ASSERT_TRUE(host().openDocument(folder_ / name).ok());
    EXPECT_TRUE(host().execute(L"KIV_TOACAD2").ok());
  }
  bool isBackAtTheDialog() const { return printed_.find(L"ﾀﾞｲｱﾛｸﾞ") != std::wstring::npos; }

  std::wstring printed_;
};

TEST_F(BatchStep, LastDrawingSendsTheInteractiveCommandToTheStart) {
  for (const char* name : {"a.dxf", "b.dxf"}) {
    EXPECT_EQ(kiv::conversionContext().batchRemaining, name[0] == 'a' ? 3 : 2);
    convert(name);
    EXPECT_FALSE(isBackAtTheDialog());
  }
  EXPECT_EQ(kiv::conversionContext().batchRemaining, 1);
  convert("c.dxf");
  EXPECT_EQ(kiv::conversionContext().batchRemaining, 0);
  // The host echoes what it is sent.
  const std::wstring sent =
      L"\x03"
      L"KIV_TOACAD\n";
  const std::size_t at = printed_.find(sent);
  ASSERT_NE(at, std::wstring::npos);
  EXPECT_EQ(printed_.find(sent, at + 1), std::wstring::npos);
  EXPECT_TRUE(isBackAtTheDialog());
  EXPECT_EQ(acDocManagerPtr()->curDocument(), kiv::conversionContext().batchStartDocument);
  EXPECT_TRUE(fs::exists(folder_ / "out" / "b.DXF"));
}

// The drawings are of the oldest release.
TEST_F(BatchStep, WhatADrawingRefusedStandsOnTheCommandLineBeforeItIsClosed) {
  make("rules.cvt",
       base::encode(L"[文字]\n[***]\n{\n[透過性] = 30\n[線幅値] = 0.25 mm\n}\n---End---\n[EOF]\n",
                    base::kJapanese)
           .bytes);
  convert("a.dxf");
  for (const wchar_t* item : {L"透過性[30]", L"線幅値[0.25 MM]"}) {
    EXPECT_NE(printed_.find(L"\n" + std::wstring(item) +
                            L" 1件変換できませんでした: この図面のバージョンでは設定できません"),
              std::wstring::npos)
        << base::toUtf8(printed_);
  }
}

TEST_F(BatchStep, ADrawingThatStaysOpenIsNotCounted) {
  make("empty.dxf", "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
  convert("empty.dxf");
  kiv::conversionContext().contextPaths[kiv::kOutputFolder].clear();
  convert("a.dxf");
  EXPECT_EQ(kiv::conversionContext().batchRemaining, 3);
  EXPECT_TRUE(fs::is_empty(folder_ / "out"));
  EXPECT_EQ(host().documentCount(), 3U);
}

}  // namespace
