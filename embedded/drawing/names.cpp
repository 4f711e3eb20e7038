#include "embedded/drawing/names.h"

#include <algorithm>

#include "base/fold.h"
#include "embedded/drawing/stored_text.h"

namespace cad {

NameId NamePool::intern(std::string_view stored) {
  const auto found = byStored_.find(stored);
  if (found != byStored_.end()) return found->second;
  const auto id = static_cast<NameId>(entries_.size());
  entries_.push_back({std::string(stored), {}, {}, false});
  byStored_.emplace(entries_.back().stored, id);  // a deque's entries stay where they are
  return id;
}

NameId NamePool::intern(std::wstring_view text) {
  return intern(std::string_view(encodeStored(text, page_)));
}

const std::wstring& NamePool::text(NameId id) const {
  const Entry& entry = entries_[id];
  if (!entry.decoded) {
    entry.text = decodeStored(entry.stored, page_);
    entry.folded = base::upper(entry.text);
    entry.decoded = true;
  }
  return entry.text;
}

const std::wstring& NamePool::folded(NameId id) const {
  text(id);
  return entries_[id].folded;
}

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
