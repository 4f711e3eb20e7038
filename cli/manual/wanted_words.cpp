#include "cli/manual/wanted_words.h"

#include <algorithm>
#include <cwctype>

#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

std::vector<std::wstring> parted(std::wstring_view text, wchar_t mark) {
  std::vector<std::wstring> parts(1);
  for (const wchar_t c : text) {
    if (c == mark) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

// "[--entity" and "DRAWING..." without what is said about them.
std::wstring bare(std::wstring word) {
  std::erase_if(word, [](wchar_t c) { return c == L'[' || c == L']'; });
  while (word.ends_with(L'.')) word.pop_back();
  return word;
}

bool isInCapitals(const std::wstring& word) {
  return std::ranges::all_of(word, [](wchar_t c) { return std::iswupper(static_cast<wint_t>(c)) != 0; });
}

}  // namespace

WantedWord wantedValue(std::wstring_view value) {
  WantedWord wanted;
  for (const std::wstring& part : parted(value, L'|')) {
    if (const std::size_t dot = part.rfind(L'.'); dot != part.npos) {
      wanted.extensions.push_back(part.substr(dot + 1));
    } else if (part == L"DRAWING") {
      for (const std::wstring_view known : cad::formats::extensions())
        wanted.extensions.emplace_back(known.substr(1));
    } else if (part == L"FILE") {
      wanted.anyFile = true;
    } else if (part == L"DIR" || part == L"FOLDER") {
      wanted.folder = true;
    } else if (part == L"CALL") {
      for (const CallRow* call : calls()) wanted.words.emplace_back(call->name);
    } else if (part != L"-" && !part.empty() && part.find(L'/') == part.npos && !isInCapitals(part)) {
      wanted.words.push_back(part);
    }
  }
  return wanted;
}

WantedWord wantedArgument(const CallRow& call) {
  WantedWord wanted;
  bool isValue = false;
  for (const std::wstring& word : parted(call.synopsis, L' ')) {
    const std::wstring name = bare(word);
    const auto option =
        std::ranges::find_if(call.options, [&](const OptionRow& row) { return row.name == name; });
    if (option != call.options.end()) {
      isValue = option->value[0] != L'\0';
    } else if (isValue) {
      isValue = false;
    } else if (name != L"OPTION") {
      WantedWord each = wantedValue(name);
      if (each.isFile() || each.folder || !each.words.empty()) wanted = std::move(each);
    }
  }
  return wanted;
}

}  // namespace kivcli
