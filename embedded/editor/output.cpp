#include "embedded/editor/output.h"

#include <cwchar>

#include "acutads.h"
#include "embedded/editor/host_state.h"

namespace cad {
namespace {

constexpr std::size_t kLongestText = 1 << 22;

// The C library of some systems reads %s in a wide format as a narrow text.
std::wstring portableFormat(std::wstring_view format) {
  std::wstring out;
  for (std::size_t i = 0; i < format.size(); ++i) {
    out += format[i];
    if (format[i] != L'%') continue;
    bool sized = false;
    for (++i; i < format.size(); ++i) {
      const wchar_t c = format[i];
      if (c == L'l' || c == L'h') sized = true;
      const bool isFlag = std::wstring_view(L"0123456789.-+ #*$lhqjztLI").find(c) != std::wstring_view::npos;
      if (isFlag) {
        out += c;
        continue;
      }
      if ((c == L's' || c == L'c') && !sized)
        out.append(1, L'l').append(1, c);
      else if (c == L'S' || c == L'C')
        out += c == L'S' ? L's' : L'c';
      else
        out += c;
      break;
    }
  }
  return out;
}

}  // namespace

std::wstring formatText(const wchar_t* format, va_list arguments) {
  const std::wstring portable = portableFormat(format);
  for (std::size_t capacity = portable.size() + 256; capacity <= kLongestText; capacity *= 4) {
    std::wstring buffer(capacity, L'\0');
    va_list copy;
    va_copy(copy, arguments);
    const int length = std::vswprintf(buffer.data(), capacity, portable.c_str(), copy);
    va_end(copy);
    if (length >= 0 && static_cast<std::size_t>(length) < capacity) {
      buffer.resize(static_cast<std::size_t>(length));
      return buffer;
    }
  }
  return portable;
}

void printText(std::wstring_view text) {
  const HostState& state = hostState();
  if (state.output) state.output(text);
}

void report(const base::Failure& failure) {
  hostState().newestFailure = failure;
  printText(L"\n" + failure.text());
}

void remark(const base::Failure& failure) {
  hostState().remarks.push_back(failure);
  printText(L"\n" + failure.text());
}

}  // namespace cad

int acutPrintf(const ACHAR* format, ...) {
  if (format == nullptr) return RTERROR;
  va_list arguments;
  va_start(arguments, format);
  const std::wstring text = cad::formatText(format, arguments);
  va_end(arguments);
  constexpr std::size_t kLongestPrinted = 132;
  if (text.size() > kLongestPrinted) return RTERROR;
  cad::printText(text);
  return RTNORM;
}
