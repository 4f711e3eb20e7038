#include "embedded/drawing/stored_text.h"

#include <algorithm>
#include <cstdint>

namespace cad {
namespace {

constexpr std::size_t kEscapeU = 7;  // \U+XXXX
constexpr std::size_t kEscapeM = 8;  // \M+nXXXX

bool readHex(std::string_view text, std::uint32_t& value) {
  value = 0;
  for (char c : text) {
    std::uint32_t digit = 0;
    if (c >= '0' && c <= '9') {
      digit = static_cast<std::uint32_t>(c - '0');
    } else if (c >= 'A' && c <= 'F') {
      digit = static_cast<std::uint32_t>(c - 'A') + 10;
    } else if (c >= 'a' && c <= 'f') {
      digit = static_cast<std::uint32_t>(c - 'a') + 10;
    } else {
      return false;
    }
    value = value * 16 + digit;
  }
  return true;
}

bool isUnicodeEscape(std::string_view text, std::uint32_t& unit) {
  return text.size() >= kEscapeU && text[0] == '\\' && (text[1] == 'U' || text[1] == 'u') && text[2] == '+' &&
         readHex(text.substr(3, 4), unit);
}

bool isMultiByteEscape(std::string_view text, base::CodePage& page, std::uint32_t& bytes) {
  static constexpr base::CodePage kPages[] = {932, 950, 949, 1361, 936};
  if (text.size() < kEscapeM || text[0] != '\\' || (text[1] != 'M' && text[1] != 'm') || text[2] != '+' ||
      text[3] < '1' || text[3] > '5') {
    return false;
  }
  page = kPages[text[3] - '1'];
  return readHex(text.substr(4, 4), bytes);
}

std::size_t utf8Length(unsigned char lead) {
  if (lead < 0xC0) return 1;
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

bool isLeadByte(unsigned char byte, base::CodePage page) {
  if (byte < 0x81 || byte == 0xFF) return false;
  return page != base::kJapanese || byte <= 0x9F || byte >= 0xE0;  // half-width katakana are single bytes
}

// Length of a character of the code page, escapes not considered.
std::size_t characterLength(std::string_view rest, base::CodePage page) {
  const auto lead = static_cast<unsigned char>(rest[0]);
  std::size_t length = 1;
  if (page == base::kUtf8) {
    length = utf8Length(lead);
  } else if (base::isDoubleByte(page) && isLeadByte(lead, page)) {
    length = 2;
  }
  return std::min(length, rest.size());
}

// Adds a UTF-16 unit; the second of a pair joins the first where a wide character holds both.
void appendUnit(std::wstring& text, std::uint32_t unit) {
  if constexpr (sizeof(wchar_t) > 2) {
    const bool low = unit >= 0xDC00 && unit <= 0xDFFF;
    if (low && !text.empty() && text.back() >= 0xD800 && text.back() <= 0xDBFF) {
      const auto high = static_cast<std::uint32_t>(text.back());
      text.back() = static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
      return;
    }
  }
  text += static_cast<wchar_t>(unit);
}

void appendEscape(std::string& out, std::uint32_t unit) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  out += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[(unit >> shift) & 0xF];
}

void appendCharacter(std::string& out, wchar_t character, base::CodePage page) {
  const auto code = static_cast<std::uint32_t>(character);
  if (code < 0x20) {
    out += '^';
    out += static_cast<char>(code + 0x40);
    return;
  }
  if (code < 0x7F) {
    out += static_cast<char>(code);
    return;
  }
  const std::string bytes = base::encodeCharacter(character, page);
  if (!bytes.empty()) {
    out += bytes;
  } else if (code >= 0x10000) {
    appendEscape(out, 0xD800 + ((code - 0x10000) >> 10));
    appendEscape(out, 0xDC00 + ((code - 0x10000) & 0x3FF));
  } else {
    appendEscape(out, code);
  }
}

}  // namespace

std::wstring decodeStored(std::string_view stored, base::CodePage page) {
  if (stored.find('\\') == std::string_view::npos) return base::decode(stored, page).text;
  std::wstring text;
  std::size_t plain = 0;  // beginning of bytes not yet decoded
  const auto flush = [&](std::size_t end) {
    if (end > plain) text += base::decode(stored.substr(plain, end - plain), page).text;
  };
  for (std::size_t at = 0; at < stored.size();) {
    std::uint32_t value = 0;
    base::CodePage asian = 0;
    if (isUnicodeEscape(stored.substr(at), value)) {
      flush(at);
      appendUnit(text, value);
      at = plain = at + kEscapeU;
    } else if (isMultiByteEscape(stored.substr(at), asian, value)) {
      flush(at);
      const char bytes[] = {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
      text += base::decode(value > 0xFF ? std::string_view(bytes, 2) : std::string_view(bytes + 1, 1), asian)
                  .text;
      at = plain = at + kEscapeM;
    } else {
      at += characterLength(stored.substr(at), page);
    }
  }
  flush(stored.size());
  return text;
}

std::string encodeStored(std::wstring_view text, base::CodePage page) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if constexpr (sizeof(wchar_t) == 2) {
      const bool pair = text[i] >= 0xD800 && text[i] <= 0xDBFF && i + 1 < text.size();
      if (pair && page == base::kUtf8) {
        out += base::encode(text.substr(i, 2), page).bytes;
        ++i;
        continue;
      }
    }
    appendCharacter(out, text[i], page);
  }
  return out;
}

std::size_t storedUnit(std::string_view stored, std::size_t position, base::CodePage page) {
  const std::string_view rest = stored.substr(position);
  std::uint32_t value = 0;
  base::CodePage asian = 0;
  if (isUnicodeEscape(rest, value)) return kEscapeU;
  if (isMultiByteEscape(rest, asian, value)) return kEscapeM;
  return characterLength(rest, page);
}

}  // namespace cad
