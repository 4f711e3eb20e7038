#include "engine/flat_setting.h"

#include "base/fold.h"

namespace kiv {
namespace {

// The line between its separating commas; a doubled comma is one of the text.
std::vector<std::wstring> pieces(std::wstring_view line) {
  std::vector<std::wstring> found(1);
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] != L',') {
      found.back() += line[at];
    } else if (at + 1 < line.size() && line[at + 1] == L',') {
      found.back() += line[at++];
    } else {
      found.emplace_back();
    }
  }
  return found;
}

// "key=value" or "key<>value", whichever sign comes first.
bool splitItem(std::wstring_view piece, FlatItem& item) {
  const std::size_t equal = piece.find(L'=');
  const std::size_t differ = piece.find(L"<>");
  if (equal == std::wstring_view::npos && differ == std::wstring_view::npos) return false;
  item.equal = equal < differ;
  const std::size_t sign = item.equal ? equal : differ;
  item.key = base::trim(piece.substr(0, sign));
  item.value = base::trim(piece.substr(sign + (item.equal ? 1 : 2)));
  return true;
}

}  // namespace

FlatSetting parseFlatSetting(std::wstring_view line) {
  FlatSetting setting;
  std::vector<FlatItem>* items = &setting.conditions;
  for (const std::wstring& piece : pieces(line)) {
    const std::wstring_view trimmed = base::trim(piece);
    FlatItem item;
    if (trimmed == L"{") {
      items = &setting.results;
    } else if (trimmed == L"***") {
      continue;
    } else if (splitItem(piece, item)) {
      if (items == &setting.results) item.equal = true;
      items->push_back(std::move(item));
    }
  }
  return setting;
}

}  // namespace kiv
