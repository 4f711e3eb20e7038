#include "cli/console.h"

#include <cstdio>

#include "base/utf8.h"

namespace kivcli {
namespace {

void writeLine(std::FILE* stream, std::wstring_view text) {
  const std::string line = base::utf8::encodeName(text) + '\n';
  std::fwrite(line.data(), 1, line.size(), stream);
  // The two outputs often share a terminal or a file: their lines must stand in the order of events.
  std::fflush(stream);
}

}  // namespace

void printLine(std::wstring_view text) { writeLine(stdout, text); }
void complain(std::wstring_view text) { writeLine(stderr, text); }

void complainAbout(const std::wstring& file, const base::Failure& failure) {
  complain(failure.place.starts_with(file) ? failure.text() : file + L": " + failure.text());
}

}  // namespace kivcli
