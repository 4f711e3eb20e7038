#include "cli/console.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "base/paths.h"
#include "base/terminal.h"
#include "cli/language/language.h"

namespace kivcli {
namespace {

base::Status& printing() {
  static base::Status status;
  return status;
}

// With the marks that turn the direction of writing, and the separators that some terminals take for line
// ends.
bool isControl(wchar_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200E && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

std::wstring escaped(std::wstring_view text) {
  std::wstring shown;
  for (const wchar_t c : text) {
    if (!isControl(c)) {
      shown += c;
      continue;
    }
    wchar_t code[8];
    std::swprintf(code, std::size(code), c < 0x100 ? L"\\x%02x" : L"\\u%04x", static_cast<unsigned>(c));
    shown += code;
  }
  return shown;
}

}  // namespace

void printLine(std::wstring_view text) { printText(escaped(text)); }

void printText(std::wstring_view text) {
  if (printing()) printing() = base::writeText(stdout, std::wstring(text) + L'\n');
}

const base::Status& printingStatus() { return printing(); }

void complain(std::wstring_view text) {
  // Nobody is left to be told when this fails.
  static_cast<void>(base::writeText(stderr, escaped(text) + L'\n'));
}

std::wstring shown(const base::Failure& failure) {
  const std::wstring reason = translated(failure.reason);
  if (failure.place.empty()) return reason;
  // "FILE, line 12"
  const std::size_t comma = std::min(failure.place.rfind(L", "), failure.place.size());
  return failure.place.substr(0, comma) + translated(std::wstring_view(failure.place).substr(comma)) + L": " +
         reason;
}

std::wstring complaintAbout(const std::wstring& file, const base::Failure& failure) {
  const std::wstring text = shown(failure);
  for (const std::wstring& name : {base::fullPath(file), file}) {
    if (failure.place.starts_with(name)) return file + text.substr(name.size());
  }
  return file + L": " + text;
}

void complainAbout(const std::wstring& file, const base::Failure& failure) {
  complain(complaintAbout(file, failure));
}

void complainOfProgram(const base::Failure& failure) { complain(L"kivcvt: " + shown(failure)); }

}  // namespace kivcli
