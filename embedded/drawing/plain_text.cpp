#include "embedded/drawing/plain_text.h"

#include "embedded/drawing/text_codes.h"

namespace cad {

std::wstring plainLine(std::wstring_view contents) {
  constexpr std::wstring_view kLineCodes = L"uUoOkK";
  std::wstring plain;
  while (!contents.empty()) {
    std::size_t taken = 1;
    if (contents.size() > 2 && contents.starts_with(L"%%")) {
      const NamedCharacter named = namedCharacter(contents.substr(2));
      if (named.length > 0) {
        plain += named.character;
        taken = named.length + 2;
      } else if (kLineCodes.find(contents[2]) != std::wstring_view::npos) {
        taken = 3;
      } else {
        plain.append(contents.substr(0, taken = 3));
      }
    } else {
      plain += contents[0];
    }
    contents.remove_prefix(taken);
  }
  return plain;
}

std::wstring plainText(std::wstring_view contents) {
  std::wstring plain;
  TextCodeReader reader(contents);
  for (TextCode code; reader.next(code);) {
    if (code.kind == TextCode::Kind::kCharacter) {
      plain += code.code;
    } else if (code.kind == TextCode::Kind::kNewLine) {
      plain += L'\n';
    } else if (code.kind == TextCode::Kind::kStack) {
      const TextStack stack = stackOf(code.value);
      plain += stack.upper;
      if (stack.bar != 0) plain += L'/';
      plain += stack.lower;
    }
  }
  return plain;
}

}  // namespace cad
