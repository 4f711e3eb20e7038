#include "platform/clock.h"

#include <cwchar>

namespace kiv {
namespace {

constexpr size_t kTextSize = 128;

std::function<std::time_t()>& clockFunction() {
  static std::function<std::time_t()> clock;
  return clock;
}

bool toLocal(std::time_t time, std::tm& parts) {
#if defined(_WIN32)
  return localtime_s(&parts, &time) == 0;
#else
  return localtime_r(&time, &parts) != nullptr;
#endif
}

}  // namespace

std::wstring localTimeText(const wchar_t* format) {
  std::tm parts{};
  if (!toLocal(clockFunction() ? clockFunction()() : std::time(nullptr), parts)) return {};
  wchar_t text[kTextSize];
  return std::wstring(text, std::wcsftime(text, kTextSize, format, &parts));
}

void setClock(std::function<std::time_t()> clock) { clockFunction() = std::move(clock); }

}  // namespace kiv
