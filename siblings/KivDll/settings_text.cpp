#include "siblings/KivDll/settings_text.h"

#include <cstdint>

#include "base/fold.h"
#include "base/utf8.h"

namespace kiv {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";  // some editors begin UTF-8 files with it

bool isSurrogate(std::uint32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// Half of a pair, which UTF-8 cannot hold; the halves of file names that are no text are such.
bool isLoneSurrogate(std::wstring_view text, std::size_t at) {
  const auto code = [&](std::size_t i) { return static_cast<std::uint32_t>(text[i]); };
  if (!isSurrogate(code(at))) return false;
  if (sizeof(wchar_t) > 2) return true;
  const bool high = code(at) < 0xDC00;
  if (high) return at + 1 >= text.size() || code(at + 1) < 0xDC00 || code(at + 1) > 0xDFFF;
  return at == 0 || code(at - 1) < 0xD800 || code(at - 1) >= 0xDC00;
}

void appendNumber(std::wstring& out, std::uint32_t code) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  const int digits = code > 0xFFFF ? 8 : 4;
  out += digits == 8 ? L"\\U" : L"\\u";
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) out += kDigits[code >> shift & 15];
}

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == 0x3000 || c == 0xA0; }

std::wstring escaped(std::wstring_view text, bool key) {
  std::wstring out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    const auto code = static_cast<std::uint32_t>(c);
    const bool atEnd = i == 0 || i + 1 == text.size();
    const bool mark = key && (c == L'=' || (c == L'#' && i == 0));
    if (c == L'\\')
      out += L"\\\\";
    else if (c == L'\n')
      out += L"\\n";
    else if (c == L'\r')
      out += L"\\r";
    else if (c == L'\t')
      out += L"\\t";
    else if (c == L' ' && atEnd)
      out += L"\\s";
    else if (code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0xFEFF || mark ||
             (atEnd && isBlank(c)) || code > 0x10FFFF || isLoneSurrogate(text, i))
      appendNumber(out, code);
    else
      out += c;
  }
  return out;
}

class Unescaper {
 public:
  explicit Unescaper(std::wstring_view text) : text_(text) {}

  std::optional<std::wstring> read() {
    while (at_ < text_.size()) {
      const wchar_t c = text_[at_++];
      if (c != L'\\') {
        out_ += c;
      } else if (!escape()) {
        return std::nullopt;
      }
    }
    return std::move(out_);
  }

 private:
  bool escape() {
    if (at_ >= text_.size()) return false;
    switch (text_[at_++]) {
      case L'\\':
        out_ += L'\\';
        return true;
      case L'n':
        out_ += L'\n';
        return true;
      case L'r':
        out_ += L'\r';
        return true;
      case L't':
        out_ += L'\t';
        return true;
      case L's':
        out_ += L' ';
        return true;
      case L'u':
        return number(4);
      case L'U':
        return number(8);
      default:
        return false;
    }
  }

  bool number(std::size_t digits) {
    if (text_.size() - at_ < digits) return false;
    std::uint32_t code = 0;
    for (std::size_t i = 0; i < digits; ++i) {
      const wchar_t c = base::upper(text_[at_++]);
      const bool letter = c >= L'A' && c <= L'F';
      if (!letter && (c < L'0' || c > L'9')) return false;
      code = code * 16 + static_cast<std::uint32_t>(letter ? c - L'A' + 10 : c - L'0');
    }
    if (code > 0xFFFF && sizeof(wchar_t) == 2) return false;
    out_ += static_cast<wchar_t>(code);
    return true;
  }

  std::wstring_view text_;
  std::size_t at_ = 0;
  std::wstring out_;
};

struct KeyAndValue {
  std::wstring key, value;
};

std::optional<KeyAndValue> readLine(std::string_view line) {
  if (line.starts_with(kMark)) line.remove_prefix(kMark.size());
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
  const base::Decoded decoded = base::utf8::decode(line);
  const std::wstring_view text = base::trim(decoded.text);
  const std::size_t equals = text.find(L'=');
  if (!decoded.clean || text.starts_with(L'#') || equals == std::wstring_view::npos) return std::nullopt;
  auto key = Unescaper(base::trim(text.substr(0, equals))).read();
  auto value = Unescaper(base::trim(text.substr(equals + 1))).read();
  if (!key || key->empty() || !value) return std::nullopt;
  return KeyAndValue{std::move(*key), std::move(*value)};
}

}  // namespace

SettingsText::SettingsText(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    const std::string_view line = bytes.substr(0, end == std::string_view::npos ? end : end + 1);
    bytes.remove_prefix(line.size());
    if (auto found = readLine(line)) {
      entries_[base::upper(found->key)] = {lines_.size(), std::move(found->value)};
    }
    lines_.emplace_back(line);
  }
}

std::optional<std::wstring> SettingsText::find(std::wstring_view key) const {
  const auto found = entries_.find(base::upper(key));
  if (found == entries_.end()) return std::nullopt;
  return found->second.value;
}

bool SettingsText::set(std::wstring_view key, std::wstring_view value) {
  if (key.empty()) return false;
  std::wstring folded = base::upper(key);
  const auto found = entries_.find(folded);
  if (found != entries_.end() && found->second.value == value) return false;
  std::string line = base::utf8::encode(escaped(key, true) + L" = " + escaped(value, false)).bytes + "\n";
  if (found != entries_.end()) {
    lines_[found->second.line] = std::move(line);
    found->second.value = value;
    return true;
  }
  if (!lines_.empty() && !lines_.back().ends_with('\n')) lines_.back() += '\n';
  entries_.emplace(std::move(folded), Entry{lines_.size(), std::wstring(value)});
  lines_.push_back(std::move(line));
  return true;
}

std::string SettingsText::bytes() const {
  std::string out;
  for (const std::string& line : lines_) out += line;
  return out;
}

}  // namespace kiv
