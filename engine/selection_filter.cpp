#include "engine/selection_filter.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "adscodes.h"

namespace kiv {
namespace {

constexpr int kOperator = -4;
constexpr int kColorGroup = 62;

void addTypes(BufferChain& filter, std::initializer_list<const wchar_t*> types) {
  filter.text(kOperator, L"<or");
  for (const wchar_t* type : types) filter.text(RTDXF0, type);
  filter.text(kOperator, L"or>");
}

void addEntityTypes(Pass pass, BufferChain& filter) {
  switch (pass) {
    case Pass::kText:
      return addTypes(filter, {L"TEXT", L"MTEXT", L"ATTDEF"});
    case Pass::kDimension:
      return addTypes(filter, {L"DIMENSION", L"LEADER"});
    case Pass::kHatch:
      filter.text(RTDXF0, L"HATCH");
      return;
    case Pass::kOther:
      // Leaders are left in on purpose: both the dimension pass and this one take them.
      filter.text(kOperator, L"<not");
      addTypes(filter, {L"TEXT", L"MTEXT", L"ATTDEF", L"DIMENSION", L"HATCH"});
      filter.text(kOperator, L"not>");
  }
}

void addItem(const FilterItem& item, BufferChain& filter) {
  if (!item.equal) filter.text(kOperator, L"<NOT");
  if (item.group == kColorGroup) {
    // Both ends of the range are no colours, so what does not fit selects nothing.
    using Limits = std::numeric_limits<short>;
    filter.integer(item.group, std::clamp<int>(item.number, Limits::min(), Limits::max()));
  } else {
    filter.text(item.group, item.text);
  }
  if (!item.equal) filter.text(kOperator, L"NOT>");
}

}  // namespace

void buildSelectionFilter(Pass pass, std::span<const FilterItem> items, BufferChain& filter) {
  if (items.empty()) return addEntityTypes(pass, filter);
  filter.text(kOperator, L"<and");
  addEntityTypes(pass, filter);
  for (const FilterItem& item : items) addItem(item, filter);
  filter.text(kOperator, L"and>");
}

}  // namespace kiv
