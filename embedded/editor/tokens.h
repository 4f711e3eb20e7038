#pragma once
// What commands are driven by: single tokens, from a program's list or from typed text.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adsdef.h"
#include "embedded/drawing/geometry.h"

namespace cad {

struct Token {
  std::wstring text;  // numbers and points as typed
  std::optional<double> number() const;
  std::optional<Point> point() const;        // "x,y" or "x,y,z"
  bool is(std::wstring_view keyword) const;  // ignoring case
};

// The tokens still to come. Reading past the end gives none; a command then asks to be run again with
// more input, from its own first token.
class TokenReader {
 public:
  virtual ~TokenReader() = default;
  virtual std::optional<Token> next() = 0;
  // A file name: in typed text the rest of the line, blanks included, without enclosing quotes.
  virtual std::optional<Token> nextPath() { return next(); }
  virtual std::optional<Token> nextName() { return next(); }  // the name of a command
  virtual std::size_t position() const = 0;
  virtual void rewind(std::size_t position) = 0;
  virtual bool isComplete() const { return false; }  // no more tokens will come after the last
  std::optional<Token> peek();
  bool takeIf(std::wstring_view shortKeyword, std::wstring_view keyword);  // consumes it only when it is that
};

class ListReader : public TokenReader {
 public:
  explicit ListReader(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}
  std::optional<Token> next() override;
  std::size_t position() const override { return at_; }
  void rewind(std::size_t position) override { at_ = position; }
  bool isComplete() const override { return true; }

 private:
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
};

// A blank or a line end ends a token, an empty line is the token "". Quotes hold a token together.
class TextReader : public TokenReader {
 public:
  explicit TextReader(std::wstring text) : text_(std::move(text)) {}
  std::optional<Token> next() override;
  std::optional<Token> nextPath() override;
  std::optional<Token> nextName() override;
  std::size_t position() const override { return at_; }
  void rewind(std::size_t position) override { at_ = position; }
  std::wstring from(std::size_t position) const { return text_.substr(position); }

 protected:
  bool atEnd() const { return at_ >= text_.size(); }
  bool isLineStart() const { return at_ == 0 || text_[at_ - 1] == L'\n' || text_[at_ - 1] == L'\r'; }
  void skipRemarks();
  int line() const;  // that of the token read last, from 1

 private:
  std::wstring quoted();
  void endLine();

  std::wstring text_;
  std::size_t at_ = 0;
};

// The text of a script: a line that begins with a semicolon is a remark wherever it stands, and a blank ends
// a file name, too, unless quotes hold it together.
class ScriptReader : public TextReader {
 public:
  using TextReader::isLineStart;
  using TextReader::line;
  using TextReader::TextReader;
  std::optional<Token> next() override;
  std::optional<Token> nextPath() override { return next(); }
  // The tokens from there on, as they are typed.
  std::wstring typedFrom(std::size_t position);
};

// Tokens of a chain of typed values; false when a buffer holds none that can be typed.
bool tokensOf(const resbuf* chain, std::vector<Token>& tokens);

}  // namespace cad
