// The framework's header comes first, as it brings the system's.
#include "afxwin.h"
#include "rxmfcapi.h"

#include "platform/host_output.h"

namespace kiv {
namespace {

void print(const wchar_t* text, const std::string& detail) noexcept {
  try {
    printError(text + std::wstring(detail.begin(), detail.end()));
  } catch (...) {  // nothing is left to tell it by
  }
}

}  // namespace

void printError(std::wstring_view text) { printOnCommandLine(L"\nKivｴﾗｰ:" + std::wstring(text)); }

void reportEscaped(const std::exception& error) noexcept { print(L"処理を中断しました. ", error.what()); }

void reportEscaped() noexcept { print(L"処理を中断しました.", {}); }

void startMeter(const std::wstring& label, int steps) {
  acedSetStatusBarProgressMeter(label.c_str(), 0, steps);
}

void moveMeter(int step) { acedSetStatusBarProgressMeterPos(step); }

void endMeter() { acedRestoreStatusBar(); }

}  // namespace kiv
