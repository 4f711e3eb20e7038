#include "embedded/dwg/dim_lists.h"

#include <algorithm>

namespace cad::dwg {
namespace {

constexpr wchar_t kApplication[] = L"ACAD", kName[] = L"DSTYLE";
constexpr int kText = 1000, kBrace = 1002, kNumber = 1070;

}  // namespace

base::Result<DimList> readDimList(const DwgStorage& storage, const Record& record) {
  DimList list;
  base::Result<ApplicationValues> present = applicationValues(storage, record, kApplication);
  if (!present.ok()) return present.failure();
  const ApplicationValues values = std::move(present.value());
  if (!values) return list;
  list.hasData = true;
  list.before = *values;
  std::size_t start = 0;
  const auto beginsAt = [&](std::size_t at) {
    return isText(storage, (*values)[at], kName) && isBrace((*values)[at + 1], true);
  };
  while (start + 1 < values->size() && !beginsAt(start)) ++start;
  std::vector<DimPair> pairs;
  std::size_t at = start + 2;
  for (; at + 1 < values->size() && (*values)[at].code == kNumber; at += 2)
    pairs.push_back({static_cast<int>(integerOf((*values)[at])), (*values)[at + 1]});
  if (at >= values->size() || !isBrace((*values)[at], false)) return list;
  const auto begin = values->begin();
  list.before.assign(begin, begin + static_cast<std::ptrdiff_t>(start));
  list.head.assign(begin + static_cast<std::ptrdiff_t>(start),
                   begin + static_cast<std::ptrdiff_t>(start) + 2);
  list.behind.assign(begin + static_cast<std::ptrdiff_t>(at) + 1, values->end());
  list.pairs = std::move(pairs);
  return list;
}

const DimPair* DimList::find(const base::DimVariableInfo& info) const {
  const auto& groups = info.groups;
  const auto found = std::ranges::find_if(pairs, [&](const DimPair& pair) {
    return pair.number == groups.number || (groups.old != 0 && pair.number == groups.old);
  });
  return found == pairs.end() ? nullptr : &*found;
}

std::vector<ExtendedValue> DimList::values(const DwgStorage& storage) const {
  std::vector<ExtendedValue> all = before;
  if (!pairs.empty()) {
    if (head.empty()) {
      append(all, kText, storage.extendedText("DSTYLE"), storage.codePageNumber());
      append(all, kBrace, std::int64_t{0});
    }
    all.insert(all.end(), head.begin(), head.end());
    for (const DimPair& pair : pairs) {
      append(all, kNumber, std::int64_t{pair.number});
      all.push_back(pair.value);
    }
    append(all, kBrace, std::int64_t{1});
  }
  all.insert(all.end(), behind.begin(), behind.end());
  return all;
}

}  // namespace cad::dwg
