#pragma once
// Text for the person who called the program.

#include <cstdio>
#include <string_view>

namespace base {

// Writes `text`, UTF-8 in a file or a pipe, the terminal's own way on a terminal, and flushes: two streams
// often share a terminal, and their lines must stand in the order of events. Line ends stay as they are.
// A file name's bytes that are no UTF-8 come out as they were (base/utf8.h, decodeName).
void writeText(std::FILE* stream, std::wstring_view text);

}  // namespace base
