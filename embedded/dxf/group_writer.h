#pragma once
// New groups in a file's dialect.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "embedded/drawing/record.h"
#include "embedded/dxf/dialect.h"

namespace cad::dxf {

class GroupWriter {
 public:
  explicit GroupWriter(const Dialect& dialect) : dialect_(dialect) {}

  void text(int code, std::string_view stored);  // stored bytes, already in the drawing's encoding
  void integer(int code, std::int64_t value);    // in the width of the code's type; also codes of reals
  void real(int code, double value);
  void handle(int code, Handle value);
  void point(int code, double x, double y, double z);  // code, code + 10, code + 20
  void chunk(int code, std::string_view data);         // in binary files: counted, not ended by NUL
  void append(std::string_view groups) { bytes_ += groups; }

  const std::string& bytes() const { return bytes_; }
  std::string take() { return std::exchange(bytes_, {}); }

 private:
  void code(int code);
  void line(std::string_view value);
  void raw(std::uint64_t value, int count);

  const Dialect& dialect_;
  std::string bytes_;
};

// The value of a group alone: what stands between the code and the end of the group.
// `old` is the value that it replaces (text: its padding is kept) or empty.
std::string integerBytes(const Dialect& dialect, int code, std::int64_t value, std::string_view old);
std::string realBytes(const Dialect& dialect, double value);
void appendReal(std::string& out, double value);
std::string realText(double value);  // shortest that reads back the same, with at least one decimal

}  // namespace cad::dxf
