#include "cli/console.h"

#include "base/terminal.h"

namespace kivcli {

void printLine(std::wstring_view text) { base::writeText(stdout, std::wstring(text) + L'\n'); }
void complain(std::wstring_view text) { base::writeText(stderr, std::wstring(text) + L'\n'); }

void complainAbout(const std::wstring& file, const base::Failure& failure) {
  complain(failure.place.starts_with(file) ? failure.text() : file + L": " + failure.text());
}

}  // namespace kivcli
