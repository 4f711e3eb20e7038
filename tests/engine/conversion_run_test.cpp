// The run as a whole: refusals, saving, closing, undo. The command function of the host is replaced here by
// one that notes its tokens and hands them on.

#include "engine/conversion_run.h"

#include <algorithm>

#include "acedCmdNF.h"
#include "adscodes.h"
#include "base/files.h"
#include "tests/engine/run_fixture.h"
#include "tests/support/program.h"

namespace {

std::vector<std::wstring>* recorded = nullptr;

void note(const resbuf* tokens) {
  if (recorded == nullptr) return;
  std::wstring line;
  for (; tokens != nullptr; tokens = tokens->rbnext) {
    line += L"|" + (tokens->restype == RTSTR ? std::wstring(tokens->resval.rstring) : L"#");
  }
  recorded->push_back(line);
}

}  // namespace

int acedCmdS(const resbuf* tokens, bool forFutureUse, AcApDocument* document) {
  using Function = decltype(&acedCmdS);
  static const auto host =
      reinterpret_cast<Function>(test_support::hostFunction("_Z8acedCmdSPK6resbufbP12AcApDocument"));
  note(tokens);
  return host(tokens, forFutureUse, document);
}

namespace {

using namespace engine_test;
using kiv::RunEnd;

const std::map<std::wstring, std::wstring> kRules = {{L"文字", L"[***]\n{\n[色] = 3\n}"}};

class ConversionRun : public RunTest {
 protected:
  void TearDown() override {
    recorded = nullptr;
    RunTest::TearDown();
  }
  void saveTo(int format) {
    parameters_.outputFolder = base::pathText(folder_ / "out" / "");
    parameters_.saveFormat = base::saveFormat(format).value();
  }
  // The tokens of the save, and those that end its prompts where these are seen: Windows does not replace a
  // function inside the library that has it.
  std::vector<std::wstring> typedToSave(int format) {
    open(sampleDrawing());
    saveTo(format);
    std::vector<std::wstring> tokens;
    recorded = &tokens;
    run(kRules);
    recorded = nullptr;
    const auto save = std::ranges::find_if(tokens, [](auto& each) { return each.starts_with(L"|SAVEAS"); });
    return {save, std::min(save + 2, tokens.end())};
  }
};

TEST_F(ConversionRun, WithoutAReadableSpecificationItRefuses) {
  open(sampleDrawing());
  saveTo(1);
  EXPECT_EQ(kiv::runConversion(parameters_, sink_).end, RunEnd::kNoSpecification);
  parameters_.specification = L"/no/such/rules.cvt";
  EXPECT_EQ(kiv::runConversion(parameters_, sink_).end, RunEnd::kSpecificationUnreadable);
  EXPECT_EQ(
      printed_,
      L"\nKivｴﾗｰ:このｺﾏﾝﾄﾞは単独では実行できません.\nKivｴﾗｰ:[/no/such/rules.cvt]の読み込みに失敗しました.");
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{L"このコマンドは単独では実行できません",
                                                       L"[/no/such/rules.cvt]の読み込みに失敗しました"}));
  EXPECT_FALSE(drawing().isModified());
}

TEST_F(ConversionRun, EmptyDrawingIsNeitherConvertedNorSavedNorClosed) {
  open(engine_test::drawing(""));
  saveTo(1);
  const std::size_t documents = cad::Host::instance().documentCount();
  EXPECT_EQ(run(kRules).end, RunEnd::kEmptyDrawing);
  EXPECT_TRUE(std::filesystem::is_empty(folder_ / "out"));
  EXPECT_EQ(cad::Host::instance().documentCount(), documents);
  EXPECT_FALSE(drawing().isModified());
}

TEST_F(ConversionRun, SavedAndClosedUnderItsNameInTheOutputFolder) {
  if (cad::testsMemory()) GTEST_SKIP() << "a drawing keeps its format";
  const std::string source = cad::testedFile(sampleDrawing());
  const char* const saved = cad::testsDwg() ? "plan.DWG" : "plan.DXF";
  open(sampleDrawing());
  saveTo(cad::testsDwg() ? 0 : 1);
  const std::size_t documents = cad::Host::instance().documentCount();
  const kiv::RunOutcome outcome = run(kRules);
  EXPECT_EQ(outcome.end, RunEnd::kConverted);
  EXPECT_EQ(outcome.savedPath, base::pathText(folder_ / "out" / saved));
  EXPECT_TRUE(outcome.isClosed);
  EXPECT_EQ(cad::Host::instance().documentCount(), documents - 1);
  EXPECT_EQ(content(folder_ / "plan.dxf"), source);
  EXPECT_NE(content(folder_ / "out" / saved), source);
}

TEST_F(ConversionRun, FailedSaveIsAProblem) {
  open(sampleDrawing());
  // A drawing keeps its format.
  const char* const other = cad::testsDwg() ? "plan.DXF" : "plan.DWG";
  saveTo(cad::testsDwg() ? 1 : 0);
  const kiv::RunOutcome outcome = run(kRules);
  EXPECT_TRUE(outcome.savedPath.empty());
  EXPECT_EQ(sink_.problems, (std::vector<std::wstring>{L"[" + base::pathText(folder_ / "out" / other) +
                                                       L"]の保存に失敗しました"}));
  EXPECT_TRUE(outcome.isClosed);
  EXPECT_TRUE(std::filesystem::is_empty(folder_ / "out"));
}

TEST_F(ConversionRun, SavesByTheFormatAndOverATargetThatExists) {
  const std::wstring starts[] = {L"|SAVEAS|", L"|SAVEAS|DXF|V|||DXF", L"|SAVEAS|T"};
  const char* const names[] = {"plan.DWG", "plan.DXF", "plan.DWT"};
  for (int format = 0; format < 3; ++format) {
    const std::wstring target = L"|" + base::pathText(folder_ / "out" / names[format]);
    EXPECT_EQ(typedToSave(format), std::vector{starts[format] + target});
    make(std::string("out/") + names[format], "old");
    EXPECT_EQ(typedToSave(format), std::vector{starts[format] + target + L"|Y"});
  }
}

TEST_F(ConversionRun, OneUndoTakesBackTheWholeConversion) {
  open(sampleDrawing());
  const std::string source = savedBytes();
  run({{L"文字", L"[***]\n{\n[画層] = A-NEW\n[文字高さ] = 2x\n[字体] = NEWSTYLE\n}"},
       {L"寸法", L"[***]\n{\n[DIMASZ] = 9\n[透過性] = 10\n}"},
       {L"その他の図形", L"[***]\n{\n[線種] = CONTINUOUS\n}"},
       {L"寸法設定", L"DIMSCALE, 20"},
       {L"画層の作成", L"A-NEW, 5, DASHED"},
       {L"画層の色･線種", L"[画層] = AL*\n{\n[画層] = Z*\n[色] = 9\n}"},
       {L"字体のﾛｰﾄﾞ", L"NEWSTYLE, romans.shx"},
       {L"矢印のﾛｰﾄﾞ", L"_DOT"}});
  EXPECT_NE(savedBytes(), source);
  undo();
  EXPECT_EQ(savedBytes(), source);
}

TEST_F(ConversionRun, MeterRunsOverThePassesAndGoesAway) {
  std::vector<std::wstring> labels;
  int most = -1;
  bool isCleared = false;
  cad::Host::instance().setMeterObserver([&](const cad::Meter& meter) {
    isCleared = meter.label.empty();
    if (isCleared) return;
    if (labels.empty() || labels.back() != meter.label) labels.push_back(meter.label);
    most = meter.most;
  });
  open(sampleDrawing());
  run({{L"文字", L"[***]\n{\n[色] = 3\n}\n[色] = 3\n{\n[色] = 4\n}"}, {L"ﾊｯﾁﾝｸﾞ", L"[***]\n{\n[色] = 3\n}"}});
  cad::Host::instance().setMeterObserver({});
  EXPECT_EQ(labels, (std::vector<std::wstring>{L"文字を変換中", L"ﾊｯﾁﾝｸﾞを変換中"}));
  EXPECT_EQ(most, 1);
  EXPECT_TRUE(isCleared);
}

}  // namespace
