#pragma once
// The module's narrow text files: specification files, the initial file, text search lists and the log.
// This is the one place that says what they are written in, on every machine: code page 932, CR LF.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.h"
#include "base/result.h"

namespace base {

inline constexpr CodePage kTextCodePage = kJapanese;
inline constexpr const char* kLineEnd = "\r\n";

struct TextLine {
  std::wstring text;  // without its line end
  bool clean = true;  // false: some bytes are not text of the file's encoding; U+FFFD stands for them
};

// What an editor of another system has saved as UTF-8, when it cannot be anything else: behind a byte-order
// mark, or text of UTF-8 that is none of the code page. Bytes that are text of both are the code page's.
bool isSurelyUtf8(std::string_view bytes);

// Lines end with LF or CR LF; the last may lack its end. The text ends at the first
// end-of-file character (26), as in text files of the system that these files come from. In the code page,
// or in UTF-8 where isSurelyUtf8().
std::vector<TextLine> textLines(std::string_view bytes);

// Of a file that other programs write, too: UTF-8 behind a byte-order mark, the code page without one.
std::wstring decodeText(std::string_view bytes);

// Each "\n" becomes a line end of the file. Not clean: some characters do not exist in the code page.
Encoded encodeText(std::wstring_view text);

// The characters of `text` that such files cannot hold, each once, in the order met.
std::wstring unwritableCharacters(std::wstring_view text);
// That they keep `text` from being written to the file.
Failure notInCodePage(const std::filesystem::path& file, std::wstring_view text);

}  // namespace base
