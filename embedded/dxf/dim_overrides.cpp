#include "embedded/dxf/dim_overrides.h"

#include "base/fold.h"

namespace cad::dxf {
namespace {

bool isText(const Group& group, int code, std::wstring_view text, const DxfStorage& storage) {
  return group.code == code && base::equalFolded(storage.decode(trimmed(group.value)), text);
}

// Groups of the application from `first` to `last`; a list that is not closed is no list.
void readList(const std::vector<Group>& groups, std::size_t first, std::size_t last,
              const DxfStorage& storage, DimOverrides& result) {
  std::size_t start = first;
  while (start < last && !(isText(groups[start], 1000, L"DSTYLE", storage) && start + 1 < last &&
                           isText(groups[start + 1], 1002, L"{", storage)))
    ++start;
  if (start == last) return;
  result.newList = groups[start].begin;
  std::vector<DimOverride> pairs;
  std::size_t at = start + 2;
  while (at + 1 < last && groups[at].code == 1070) {
    const auto number = integerValue(groups[at], storage.dialect());
    pairs.push_back(
        {static_cast<int>(number.value_or(0)), &groups[at + 1], groups[at].begin, groups[at + 1].end});
    at += 2;
  }
  if (at >= last || !isText(groups[at], 1002, L"}", storage)) return;
  result.hasList = true;
  result.listBegin = groups[start].begin;
  result.listClose = groups[at].begin;
  result.listEnd = groups[at].end;
  result.listAlone = start == first && at + 1 == last;
  result.pairs = std::move(pairs);
}

}  // namespace

DimOverrides readDimOverrides(const RecordGroups& groups, const DxfStorage& storage) {
  DimOverrides result;
  const std::vector<Group>& all = groups.all();
  std::size_t app = groups.plainCount();
  while (app < all.size() && !isText(all[app], 1001, L"ACAD", storage)) ++app;
  if (app == all.size()) return result;
  std::size_t end = app + 1;
  while (end < all.size() && all[end].code != 1001) ++end;
  result.hasApp = true;
  result.appBegin = all[app].begin;
  result.appEnd = result.newList = all[end - 1].end;
  readList(all, app + 1, end, storage, result);
  return result;
}

}  // namespace cad::dxf
