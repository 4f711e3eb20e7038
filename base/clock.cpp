#include "base/clock.h"

#include <cwchar>

namespace base {
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
  return localTimeText(format, clockFunction() ? clockFunction()() : std::time(nullptr));
}

std::wstring localTimeText(const wchar_t* format, std::time_t time) {
  std::tm parts{};
  if (!toLocal(time, parts)) return {};
  // One part at a time: some systems' function takes no Japanese text outside a Japanese locale.
  std::wstring text;
  for (; *format != 0; ++format) {
    if (*format != L'%' || format[1] == 0) {
      text += *format;
      continue;
    }
    const wchar_t part[] = {L'%', *++format, 0};
    wchar_t value[kTextSize];
    text.append(value, std::wcsftime(value, kTextSize, part, &parts));
  }
  return text.size() < kTextSize ? text : std::wstring();
}

void setClock(std::function<std::time_t()> clock) { clockFunction() = std::move(clock); }

}  // namespace base
