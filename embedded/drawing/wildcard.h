#pragma once
// The host's wildcard language: # @ . * ? ~ [..] [~..] ranges with -, comma between alternatives, and a
// backquote before a character that stands for itself.

#include <string_view>
#include <vector>

namespace cad {

// A pattern read once, for matching many texts. Matching takes at most (text length) x (pattern length)
// steps for each alternative, whatever the pattern.
class Wildcard {
 public:
  explicit Wildcard(std::wstring_view pattern, bool ignoreCase = false);
  bool matches(std::wstring_view text) const;

 private:
  enum class Kind : unsigned char { kLiteral, kDigit, kLetter, kOther, kAny, kMany, kSet, kNotSet };
  struct Range {
    wchar_t first, last;
  };
  struct Piece {
    Kind kind = Kind::kLiteral;
    wchar_t character = 0;
    std::vector<Range> ranges;
  };
  struct Alternative {
    std::vector<Piece> pieces;
    bool negated = false;
  };

  std::size_t readSet(std::wstring_view pattern, std::size_t at, Piece& piece) const;
  bool accepts(const Piece& piece, wchar_t c) const;
  bool matches(const Alternative& alternative, std::wstring_view text) const;
  wchar_t fold(wchar_t c) const;

  std::vector<Alternative> alternatives_;
  bool ignoreCase_;
};

}  // namespace cad
