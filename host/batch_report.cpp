#include "host/batch_report.h"

#include <algorithm>

#include "platform/host_output.h"
#include "ui/messages.h"

namespace kiv {
namespace {

constexpr std::size_t kWidth = 68;
constexpr wchar_t kProductName[] = L"KIV";

void printRule(wchar_t character) { printOnCommandLine(L"\n" + std::wstring(kWidth, character)); }

bool hasFailed(const BatchFile& file) { return file.state == BatchState::kFailed; }
bool isLeftOut(const BatchFile& file) { return file.state == BatchState::kPending; }

std::wstring countOf(const std::vector<BatchFile>& files, bool (*counts)(const BatchFile&)) {
  return std::to_wstring(std::count_if(files.begin(), files.end(), counts));
}

void printRecords(const std::vector<BatchFile>& files) {
  for (const BatchFile& file : files) {
    if (!isLeftOut(file)) printOnCommandLine(L"\n[" + file.name + (hasFailed(file) ? L"] [NG]" : L"]"));
  }
}

void printCounts(const std::vector<BatchFile>& files) {
  const std::wstring all = countOf(files, [](const BatchFile& file) { return !isLeftOut(file); });
  const bool allWell = std::none_of(files.begin(), files.end(), hasFailed);
  printOnCommandLine(allWell ? L"\n" + all + L"件変換しました."
                             : L"\n" + all + L"件中" + countOf(files, hasFailed) + L"件 変換に失敗しました.");
}

void printLeftOut(const std::vector<BatchFile>& files) {
  if (std::none_of(files.begin(), files.end(), isLeftOut)) return;
  printOnCommandLine(L"\n中断しました. 次の" + countOf(files, isLeftOut) + L"件は変換していません.");
  for (const BatchFile& file : files) {
    if (isLeftOut(file)) printOnCommandLine(L"\n[" + file.name + L"]");
  }
}

}  // namespace

void printBatchReport(const std::optional<std::vector<BatchFile>>& files, const std::wstring& sourceFolder) {
  if (!files) return;
  printRule(L'*');
  printOnCommandLine(std::wstring(L"\n") + kProductName + L" - " + kModuleTitle);
  printRule(L'*');
  printOnCommandLine(L"\nﾌｫﾙﾀﾞ:" + sourceFolder);
  printOnCommandLine(L"\n[ﾌｧｲﾙ名] [結果]");
  printRule(L'-');
  printRecords(*files);
  printRule(L'-');
  printCounts(*files);
  printLeftOut(*files);
}

}  // namespace kiv
