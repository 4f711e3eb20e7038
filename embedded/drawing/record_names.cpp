#include "embedded/drawing/record_names.h"

#include <algorithm>

namespace cad {

bool hasForbiddenCharacter(std::wstring_view name) {
  constexpr std::wstring_view kForbidden = L"<>/\\\":;?*,=`";
  return std::ranges::any_of(name,
                             [&](wchar_t c) { return c < L' ' || kForbidden.find(c) != kForbidden.npos; });
}

bool isRecordName(std::wstring_view name, bool withBar) {
  constexpr std::size_t kLongest = 255;
  if (name.empty() || name.size() > kLongest || hasForbiddenCharacter(name)) return false;
  if (name.front() == L' ' || name.back() == L' ') return false;
  const bool hasBar = name.find(L'|') != name.npos;
  return !hasBar || (withBar && name.front() != L'|' && name.back() != L'|');
}

}  // namespace cad
