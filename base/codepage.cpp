#include "base/codepage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <memory>

#include "base/codepage_backend.h"
#include "base/utf8.h"

namespace base {
namespace {

constexpr CodePage kAscii = 20127;
constexpr wchar_t kReplacement = 0xFFFD;

constexpr std::array kNumbered = {437,  720,  737,  775,  850,  852,  855,  857,  858,  860,  861,
                                  862,  863,  864,  865,  866,  869,  874,  932,  936,  949,  950,
                                  1361, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 10000};

bool isAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

// What is known so far of one page. The system's tables are asked once per character and thread.
class Table {
 public:
  explicit Table(CodePage page) : page_(page), doubleByte_(isDoubleByte(page)) {
    for (int byte = 0; byte < 256; ++byte)
      single_[static_cast<size_t>(byte)] = decodeBytes({static_cast<char>(byte)});
  }

  // Appends the character at `at` and moves behind it.
  bool decodeNext(std::string_view bytes, size_t& at, std::wstring& text) {
    const unsigned char first = static_cast<unsigned char>(bytes[at++]);
    wchar_t character = single_[first];
    if (character == kReplacement && doubleByte_ && at < bytes.size()) {
      character = decodePair(bytes[at - 1], bytes[at]);
      if (character != kReplacement) ++at;
    }
    text += character;
    return character != kReplacement;
  }

  // Empty when the page does not have the character.
  std::string encode(wchar_t character) {
    if (static_cast<std::uint32_t>(character) > 0xFFFF) return {};
    const auto number = static_cast<size_t>(character);
    std::uint32_t& known = part(encoded_[number >> 8])[number & 0xFF];
    if (known == kUnasked) known = ask(character);
    std::string bytes;
    if (known == kAbsent) return bytes;
    if (known > 0xFF) bytes += static_cast<char>(known >> 8);
    bytes += static_cast<char>(known & 0xFF);
    return bytes;
  }

 private:
  static constexpr std::uint32_t kUnasked = 0;
  static constexpr std::uint32_t kAbsent = 0xFFFFFFFE;
  template <class Value>
  using Part = std::array<Value, 256>;
  template <class Value>
  using Parts = std::array<std::unique_ptr<Part<Value>>, 256>;

  wchar_t decodeBytes(const std::string& bytes) const {
    if (bytes.size() == 1 && isAscii(bytes[0])) return static_cast<wchar_t>(bytes[0]);
    return backend::decodeOne(bytes, page_).value_or(kReplacement);
  }

  // Made, with nothing asked, when it is used first: most programs meet a few hundred characters.
  template <class Value>
  static Part<Value>& part(std::unique_ptr<Part<Value>>& entry) {
    if (!entry) entry = std::make_unique<Part<Value>>();
    return *entry;
  }

  wchar_t decodePair(char lead, char trail) {
    wchar_t& known = part(rows_[static_cast<unsigned char>(lead)])[static_cast<unsigned char>(trail)];
    if (known == 0) known = decodeBytes({lead, trail});
    return known;
  }

  // The systems' tables also offer look-alikes (a yen sign as a backslash); such a character is not in the
  // page.
  std::uint32_t ask(wchar_t character) const {
    const std::string bytes = backend::encodeOne(character, page_);
    if (bytes.empty() || decodeBytes(bytes) != character) return kAbsent;
    std::uint32_t packed = 0;
    for (const char byte : bytes) packed = (packed << 8) | static_cast<unsigned char>(byte);
    return packed;
  }

  CodePage page_;
  bool doubleByte_;
  Part<wchar_t> single_{};
  Parts<wchar_t> rows_;
  Parts<std::uint32_t> encoded_;
};

Table& tableOf(CodePage page) {
  thread_local std::map<CodePage, std::unique_ptr<Table>> tables;
  thread_local CodePage lastPage = 0;
  thread_local Table* last = nullptr;
  if (last && lastPage == page) return *last;
  std::unique_ptr<Table>& entry = tables[page];
  if (!entry) entry = std::make_unique<Table>(page);
  lastPage = page;
  last = entry.get();
  return *last;
}

// Where wide characters have 16 bits, one that needs more is two of them: no page has it, and it is
// answered by one '?' as everywhere else.
bool isSecondHalf(std::wstring_view text, size_t at) {
  const auto inRange = [&](size_t index, std::uint32_t first) {
    const auto value = static_cast<std::uint32_t>(text[index]);
    return value >= first && value < first + 0x400;
  };
  return sizeof(wchar_t) == 2 && at > 0 && inRange(at, 0xDC00) && inRange(at - 1, 0xD800);
}

bool isIso(CodePage page) { return page >= 28591 && page <= 28605; }

}  // namespace

bool isKnownCodePage(CodePage page) {
  if (page == kUtf8 || page == kAscii) return true;
  const bool listed = isIso(page) || std::find(kNumbered.begin(), kNumbered.end(), page) != kNumbered.end();
  return listed && backend::hasPage(page);
}

bool isDoubleByte(CodePage page) {
  return page == 932 || page == 936 || page == 949 || page == 950 || page == 1361;
}

Decoded decode(std::string_view bytes, CodePage page) {
  const size_t plain =
      static_cast<size_t>(std::find_if_not(bytes.begin(), bytes.end(), isAscii) - bytes.begin());
  if (plain < bytes.size() && page == kUtf8) return utf8::decode(bytes);
  Decoded result;
  result.text.reserve(bytes.size());
  result.text.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(plain));
  if (plain == bytes.size()) return result;
  const bool known = page != kAscii && isKnownCodePage(page);
  for (size_t at = plain; at < bytes.size();) {
    if (isAscii(bytes[at])) {
      result.text += static_cast<wchar_t>(bytes[at++]);
    } else if (!known) {
      result.text += kReplacement;
      result.clean = false;
      ++at;
    } else if (!tableOf(page).decodeNext(bytes, at, result.text)) {
      result.clean = false;
    }
  }
  return result;
}

std::string encodeCharacter(wchar_t character, CodePage page) {
  if (character >= 0 && character < 0x80) return std::string(1, static_cast<char>(character));
  if (page == kUtf8) {
    const Encoded encoded = utf8::encode(std::wstring_view(&character, 1));
    return encoded.clean ? encoded.bytes : std::string();
  }
  if (page == kAscii || !isKnownCodePage(page)) return {};
  return tableOf(page).encode(character);
}

Encoded encode(std::wstring_view text, CodePage page) {
  if (page == kUtf8) return utf8::encode(text);
  const bool known = page != kAscii && isKnownCodePage(page);
  Encoded result;
  result.bytes.reserve(text.size());
  for (size_t at = 0; at < text.size(); ++at) {
    const wchar_t character = text[at];
    if (static_cast<std::uint32_t>(character) < 0x80) {
      result.bytes += static_cast<char>(character);
      continue;
    }
    if (isSecondHalf(text, at)) continue;
    const std::string bytes = known ? tableOf(page).encode(character) : std::string();
    result.bytes += bytes.empty() ? "?" : bytes;
    result.clean = result.clean && !bytes.empty();
  }
  return result;
}

std::wstring decodeUtf16(std::string_view bytes) {
  std::wstring out;
  const auto unit = [&](std::size_t at) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at])) |
           static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + 1])) << 8;
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint32_t c = unit(i);
    const bool isPair = sizeof(wchar_t) == 4 && c >= 0xD800 && c < 0xDC00 && i + 3 < bytes.size();
    if (isPair) {
      c = 0x10000 + ((c - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    }
    out += static_cast<wchar_t>(c);
  }
  return out;
}

std::string toUtf8(std::wstring_view text) { return utf8::encode(text).bytes; }

std::wstring fromUtf8(std::string_view bytes) { return utf8::decode(bytes).text; }

}  // namespace base
