#pragma once
// Text for the person who called the program.

#include <cstdio>
#include <optional>
#include <string_view>

#include "base/result.h"

namespace base {

// Writes `text`, UTF-8 in a file or a pipe, the terminal's own way on a terminal, and flushes: two streams
// often share a terminal, and their lines must stand in the order of events. Line ends stay as they are.
// A file name's bytes that are no UTF-8 come out as they were (base/utf8.h, decodeName). A failure has the
// system's reason and no place.
Status writeText(std::FILE* stream, std::wstring_view text);

// How wide the terminal is that the stream goes to; nothing when it goes elsewhere, or the terminal cannot
// take a line back.
std::optional<std::size_t> terminalColumns(std::FILE* stream);

// To be called before anything is opened. A reader that goes away makes writing fail and does not end the
// process; a stream that is closed from the start does not lend its number to a file.
void prepareStandardStreams();

}  // namespace base
