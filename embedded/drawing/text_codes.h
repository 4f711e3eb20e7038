#pragma once
// The formatting codes of multiline text, one after another. A code that nobody knows is the characters that
// it is written with.

#include <cstdint>
#include <string>
#include <string_view>

namespace cad {

struct TextCode {
  enum class Kind : std::uint8_t {
    kCharacter,
    kNewLine,  // \P, \N, \X, a line feed
    kOpen,     // what codes set up to the matching kClose ends there
    kClose,
    kValue,   // `code` is the letter, as in \H; `value` what stands up to the semicolon, which may be missing
    kSwitch,  // `code` is the letter: lines under, over and through the text begin (capital) and end
    kStack,   // `value` is what stands between \S and the semicolon
  };
  Kind kind = Kind::kCharacter;
  wchar_t code = 0;  // the character, the letter
  std::wstring_view value;
};

class TextCodeReader {
 public:
  // `contents` outlives the reader and the codes that it gives.
  explicit TextCodeReader(std::wstring_view contents) : rest_(contents) {}

  bool next(TextCode& code);  // false: the text has ended

 private:
  void escape(TextCode& code);
  void parameter(wchar_t letter, TextCode& code);
  void stack(TextCode& code);
  bool caret(TextCode& code);
  wchar_t take();

  std::wstring_view rest_;
  wchar_t pending_ = 0;  // behind a backslash or a caret that is no code
};

// What a code of two percent signs names: %%d, %%c, %%p, %%% and %%nnn (three digits, 32 to 255).
struct NamedCharacter {
  wchar_t character = 0;
  std::size_t length = 0;  // of the code, behind its %%; 0: it names no character
};
NamedCharacter namedCharacter(std::wstring_view code);

// The two parts of a stack with their codes read; `bar` is '/', '#', '^' or, when there is one part only, 0.
struct TextStack {
  std::wstring upper, lower;
  wchar_t bar = 0;
};
TextStack stackOf(std::wstring_view value);

}  // namespace cad
