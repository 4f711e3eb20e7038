// What is typed to save a drawing in each format. The command function of the host is replaced here by one
// that notes its tokens and hands them on.

#include "acedCmdNF.h"
#include "adscodes.h"
#include "base/files.h"
#include "engine/save_stage.h"
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

class SaveTokens : public RunTest {
 protected:
  void TearDown() override {
    recorded = nullptr;
    RunTest::TearDown();
  }
  // Of the save and of the end of its prompts.
  std::vector<std::wstring> typed(int format) {
    open(sampleDrawing());
    std::vector<std::wstring> tokens;
    recorded = &tokens;
    kiv::saveAndClose({L"", base::pathText(folder_ / "out" / ""), format, {}}, sink_);
    recorded = nullptr;
    tokens.resize(2);
    return tokens;
  }
};

TEST_F(SaveTokens, ByFormatAndForATargetThatExists) {
  const std::wstring starts[] = {L"|SAVEAS|", L"|SAVEAS|DXF|V|||DXF", L"|SAVEAS|T"};
  const char* const names[] = {"plan.DWG", "plan.DXF", "plan.DWT"};
  for (int format = 0; format < 3; ++format) {
    const std::wstring target = L"|" + base::pathText(folder_ / "out" / names[format]);
    EXPECT_EQ(typed(format), (std::vector<std::wstring>{starts[format] + target, L""}));
    make(std::string("out/") + names[format], "old");
    EXPECT_EQ(typed(format), (std::vector<std::wstring>{starts[format] + target + L"|Y", L""}));
  }
}

}  // namespace
