#include "embedded/dwg/dim_lists.h"

#include <algorithm>

namespace cad::dwg {
namespace {

constexpr wchar_t kApplication[] = L"ACAD", kName[] = L"DSTYLE";
constexpr int kText = 1000, kBrace = 1002, kNumber = 1070;

}  // namespace

DimList readDimList(const DwgStorage& storage, const Record& record) {
  DimList list;
  const auto values = applicationValues(storage, record, kApplication);
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
  // A list that is not closed is none.
  if (at >= values->size() || !isBrace((*values)[at], false)) return list;
  const auto begin = values->begin();
  list.before.assign(begin, begin + static_cast<std::ptrdiff_t>(start));
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
    append(all, kText, storage.fieldText("DSTYLE"), storage.codePageNumber());
    append(all, kBrace, std::int64_t{0});
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
