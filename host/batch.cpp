#include "host/batch.h"

#include <algorithm>

#include "acdocman.h"
#include "platform/host_output.h"
#include "ui/messages.h"

namespace kiv {
namespace {

constexpr std::size_t kWidth = 68;
constexpr wchar_t kProductName[] = L"KIV";

void printRule(wchar_t character) { printOnCommandLine(L"\n" + std::wstring(kWidth, character)); }

bool isUnreadable(const BatchFile& file) { return file.version < 1; }

}  // namespace

// Without the choice of drawings there is nothing to begin; the person is told where to go instead.
bool startBatch() {
  printError(L"連続変換はこの版ではまだ使用できません. 図面ごとに変換してください.");
  return false;
}

void endBatchStep() {
  ConversionContext& context = conversionContext();
  if (--context.batchRemaining > 0 || context.batchStartDocument == nullptr) return;
  acDocManagerPtr()->sendStringToExecute(context.batchStartDocument,
                                         L"\x03"
                                         L"KIV_TOACAD\n",
                                         true, false, true);
}

void printBatchReport(const std::optional<std::vector<BatchFile>>& files, const std::wstring& sourceFolder) {
  if (!files) return;
  printRule(L'*');
  printOnCommandLine(std::wstring(L"\n") + kProductName + L" - " + kModuleTitle);
  printRule(L'*');
  printOnCommandLine(L"\nﾌｫﾙﾀﾞ:" + sourceFolder);
  printOnCommandLine(L"\n[ﾌｧｲﾙ名] [結果]");
  printRule(L'-');
  for (const BatchFile& file : *files) {
    printOnCommandLine(L"\n[" + file.name + (isUnreadable(file) ? L"] [NG]" : L"]"));
  }
  printRule(L'-');
  const auto failed = std::count_if(files->begin(), files->end(), isUnreadable);
  const std::wstring all = std::to_wstring(files->size());
  printOnCommandLine(failed == 0
                         ? L"\n" + all + L"件変換しました."
                         : L"\n" + all + L"件中" + std::to_wstring(failed) + L"件 変換に失敗しました.");
}

}  // namespace kiv
