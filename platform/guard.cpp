#include "platform/guard.h"

#include <string>

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

void reportEscaped(const std::exception& error) noexcept { print(L"処理を中断しました. ", error.what()); }

void reportEscaped() noexcept { print(L"処理を中断しました.", {}); }

}  // namespace kiv
