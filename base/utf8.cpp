#include "base/utf8.h"

#include <cstdint>

namespace base::utf8 {
namespace {

constexpr char32_t kInvalid = 0xFFFFFFFF;
constexpr char32_t kEscapedByte = 0xDC00;

bool isSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// Reads the character at `at` and moves behind it; an invalid sequence consumes one byte.
char32_t next(std::string_view bytes, size_t& at) {
  const auto byteAt = [&](size_t index) { return static_cast<unsigned char>(bytes[index]); };
  const unsigned char first = byteAt(at++);
  if (first < 0x80) return first;
  const int more = first >= 0xC2 && first <= 0xDF   ? 1
                   : first >= 0xE0 && first <= 0xEF ? 2
                   : first >= 0xF0 && first <= 0xF4 ? 3
                                                    : 0;
  if (more == 0 || at + static_cast<size_t>(more) > bytes.size()) return kInvalid;
  char32_t value = first & (0x3F >> more);
  for (int i = 0; i < more; ++i) {
    const unsigned char byte = byteAt(at + static_cast<size_t>(i));
    if ((byte & 0xC0) != 0x80) return kInvalid;
    value = (value << 6) | (byte & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (value < kSmallest[more] || value > 0x10FFFF || isSurrogate(value)) return kInvalid;
  at += static_cast<size_t>(more);
  return value;
}

void appendWide(std::wstring& text, char32_t c) {
  if (sizeof(wchar_t) == 2 && c > 0xFFFF) {
    text += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    return;
  }
  text += static_cast<wchar_t>(c);
}

char32_t nextWide(std::wstring_view text, size_t& at) {
  const char32_t first = static_cast<char32_t>(text[at++]);
  if (sizeof(wchar_t) != 2 || first < 0xD800 || first > 0xDBFF || at == text.size()) return first;
  const char32_t second = static_cast<char32_t>(text[at]);
  if (second < 0xDC00 || second > 0xDFFF) return first;
  ++at;
  return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

void appendBytes(std::string& bytes, char32_t c) {
  const auto continuation = [&](int shift) { bytes += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    bytes += static_cast<char>(c);
  } else if (c < 0x800) {
    bytes += static_cast<char>(0xC0 | (c >> 6));
    continuation(0);
  } else if (c < 0x10000) {
    bytes += static_cast<char>(0xE0 | (c >> 12));
    continuation(6);
    continuation(0);
  } else {
    bytes += static_cast<char>(0xF0 | (c >> 18));
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace

Decoded decode(std::string_view bytes) {
  Decoded result;
  result.text.reserve(bytes.size());
  for (size_t at = 0; at < bytes.size();) {
    const char32_t c = next(bytes, at);
    result.clean = result.clean && c != kInvalid;
    appendWide(result.text, c == kInvalid ? 0xFFFD : c);
  }
  return result;
}

Encoded encode(std::wstring_view text) {
  Encoded result;
  result.bytes.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    const char32_t c = nextWide(text, at);
    const bool valid = c <= 0x10FFFF && !isSurrogate(c);
    result.clean = result.clean && valid;
    appendBytes(result.bytes, valid ? c : U'?');
  }
  return result;
}

std::wstring decodeName(std::string_view bytes) {
  std::wstring text;
  for (size_t at = 0; at < bytes.size();) {
    const size_t start = at;
    const char32_t c = next(bytes, at);
    appendWide(text, c == kInvalid ? kEscapedByte + static_cast<unsigned char>(bytes[start]) : c);
  }
  return text;
}

std::string encodeName(std::wstring_view text) {
  std::string bytes;
  for (size_t at = 0; at < text.size();) {
    const char32_t c = nextWide(text, at);
    if (c >= kEscapedByte + 0x80 && c <= kEscapedByte + 0xFF) {
      bytes += static_cast<char>(c - kEscapedByte);
    } else {
      appendBytes(bytes, c <= 0x10FFFF && !isSurrogate(c) ? c : U'?');
    }
  }
  return bytes;
}

}  // namespace base::utf8
