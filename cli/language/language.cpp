#include "cli/language/language.h"

#include <array>
#include <optional>
#include <unordered_map>

#include "base/environment.h"
#include "base/files.h"

namespace kivcli {
namespace {

// The value of the first of `names` that is set and not empty.
std::wstring firstOf(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const auto value = base::environmentVariable(name);
    if (value && !value->empty()) return base::pathText(*value);
  }
  return {};
}

// "ja" of "ja_JP.UTF-8@modifier".
std::wstring_view languageCode(std::wstring_view locale) {
  return locale.substr(0, locale.find_first_of(L"_.@-"));
}

std::optional<Language> languageOf(std::wstring_view locale) {
  const std::wstring_view code = languageCode(locale);
  if (code == L"ja" || code == L"japanese") return Language::kJapanese;
  if (code == L"en" || code == L"english") return Language::kEnglish;
  return std::nullopt;
}

// As gettext goes about it: LANGUAGE lists what its user understands, the best first, and counts only where
// the locale asks for a language at all.
Language languageOfEnvironment() {
  std::wstring locale = firstOf({"LC_ALL", "LC_MESSAGES", "LANG"});
  if (locale.empty()) locale = base::userInterfaceLanguage();
  if (locale.empty() || languageCode(locale) == L"C" || languageCode(locale) == L"POSIX")
    return Language::kEnglish;
  const std::wstring list = firstOf({"LANGUAGE"});
  for (std::wstring_view rest = list; !rest.empty();) {
    const std::size_t colon = rest.find(L':');
    if (const auto known = languageOf(rest.substr(0, colon))) return *known;
    rest.remove_prefix(colon == rest.npos ? rest.size() : colon + 1);
  }
  return languageOf(locale).value_or(Language::kEnglish);
}

Language& language() {
  static Language chosen = languageOfEnvironment();
  return chosen;
}

using Catalogue = std::unordered_map<std::wstring_view, std::wstring_view>;

const Catalogue& japanese() {
  static const Catalogue catalogue = [] {
    Catalogue rows;
    for (const auto& area : {japaneseOfProgram(), japaneseOfOptions(), japaneseOfConvert(),
                             japaneseOfInspect(), japaneseOfSpecifications(), japaneseOfReasons()}) {
      for (const Translation& row : area) rows.emplace(row.english, row.japanese);
    }
    return rows;
  }();
  return catalogue;
}

bool isPlaceholder(std::wstring_view text, std::size_t at) {
  return text[at] == L'%' && at + 1 < text.size() && text[at + 1] >= L'1' && text[at + 1] <= L'9';
}

std::wstring filled(std::wstring_view pattern, std::span<const std::wstring> values) {
  std::wstring text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (isPlaceholder(pattern, i)) {
      const auto number = static_cast<std::size_t>(pattern[++i] - L'1');
      if (number < values.size()) text += values[number];
    } else {
      text += pattern[i];
      if (pattern[i] == L'%' && i + 1 < pattern.size() && pattern[i + 1] == L'%') ++i;
    }
  }
  return text;
}

constexpr std::wstring_view kColon = L": ";

// What the placeholders of `pattern` stand for in `message`, each as little as fits; the last one takes the
// rest. Nothing: it does not fit.
std::optional<std::array<std::wstring, 9>> valuesOf(std::wstring_view pattern, std::wstring_view message) {
  std::array<std::wstring, 9> values;
  while (!pattern.empty()) {
    if (!isPlaceholder(pattern, 0)) {
      if (message.empty() || message[0] != pattern[0]) return std::nullopt;
      pattern.remove_prefix(1);
      message.remove_prefix(1);
      continue;
    }
    std::wstring& value = values[static_cast<std::size_t>(pattern[1] - L'1')];
    pattern.remove_prefix(2);
    std::size_t literal = 0;
    while (literal < pattern.size() && !isPlaceholder(pattern, literal)) ++literal;
    const std::size_t length = literal == pattern.size() && message.size() >= literal
                                   ? message.size() - literal
                                   : message.find(pattern.substr(0, literal));
    if (length > message.size()) return std::nullopt;
    value = message.substr(0, length);
    message.remove_prefix(length);
  }
  if (!message.empty()) return std::nullopt;
  return values;
}

}  // namespace

Language usersLanguage() { return language(); }

void setLanguage(Language chosen) { language() = chosen; }

std::wstring tr(std::wstring_view english, std::initializer_list<std::wstring> values) {
  std::wstring_view pattern = english;
  if (usersLanguage() == Language::kJapanese) {
    if (const auto row = japanese().find(english); row != japanese().end()) pattern = row->second;
  }
  return filled(pattern, {values.begin(), values.size()});
}

std::wstring translated(std::wstring_view message) {
  if (usersLanguage() == Language::kEnglish) return std::wstring(message);
  for (const Translation& row : japaneseOfReasons()) {
    const std::wstring_view english = row.english;
    auto values = valuesOf(english, message);
    if (!values) continue;
    // "It was not done: %1" has the reason of another message behind it.
    if (english.size() > 4 && english.substr(english.size() - 4).starts_with(kColon) &&
        isPlaceholder(english, english.size() - 2)) {
      std::wstring& reason = (*values)[static_cast<std::size_t>(english.back() - L'1')];
      reason = translated(reason);
    }
    return filled(row.japanese, *values);
  }
  // "NAME: why"
  const std::size_t colon = message.find(kColon);
  if (colon == message.npos) return std::wstring(message);
  const std::size_t why = colon + kColon.size();
  return std::wstring(message.substr(0, why)) + translated(message.substr(why));
}

}  // namespace kivcli
