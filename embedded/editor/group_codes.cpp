#include "embedded/editor/group_codes.h"

#include "adsdef.h"

namespace cad {
namespace {

struct GroupRange {
  int first, last;
  ValueKind kind;
};

constexpr GroupRange kGroups[] = {
    {-5, -5, ValueKind::kEntity},     {-4, -4, ValueKind::kText},      {-3, -3, ValueKind::kNothing},
    {-2, -1, ValueKind::kEntity},     {1, 9, ValueKind::kText},        {10, 19, ValueKind::kPoint},
    {20, 59, ValueKind::kReal},       {60, 89, ValueKind::kShort},     {90, 99, ValueKind::kLong},
    {100, 109, ValueKind::kText},     {110, 119, ValueKind::kPoint},   {120, 149, ValueKind::kReal},
    {160, 169, ValueKind::kInt64},    {170, 179, ValueKind::kShort},   {210, 219, ValueKind::kPoint},
    {220, 239, ValueKind::kReal},     {270, 299, ValueKind::kShort},   {300, 309, ValueKind::kText},
    {310, 319, ValueKind::kBinary},   {320, 369, ValueKind::kEntity},  {370, 389, ValueKind::kShort},
    {390, 399, ValueKind::kEntity},   {400, 409, ValueKind::kShort},   {410, 419, ValueKind::kText},
    {420, 429, ValueKind::kLong},     {430, 439, ValueKind::kText},    {440, 459, ValueKind::kLong},
    {460, 469, ValueKind::kReal},     {470, 479, ValueKind::kText},    {1000, 1003, ValueKind::kText},
    {1004, 1004, ValueKind::kBinary}, {1005, 1009, ValueKind::kText},  {1010, 1013, ValueKind::kPoint},
    {1040, 1042, ValueKind::kReal},   {1060, 1070, ValueKind::kShort}, {1071, 1071, ValueKind::kLong},
};

}  // namespace

ValueKind valueKindOf(int code) {
  switch (code) {
    case RTREAL:
    case RTANG:
    case RTORINT:
      return ValueKind::kReal;
    case RTPOINT:
    case RT3DPOINT:
      return ValueKind::kPoint;
    case RTSHORT:
      return ValueKind::kShort;
    case RTLONG:
      return ValueKind::kLong;
    case RTINT64:
      return ValueKind::kInt64;
    case RTSTR:
    case RTDXF0:
      return ValueKind::kText;
    case RTENAME:
    case RTPICKS:
      return ValueKind::kEntity;
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
    case RTVOID:
      return ValueKind::kNothing;
    case 0:
      return ValueKind::kText;  // an entity type inside a chain that is read
    default:
      break;
  }
  for (const GroupRange& range : kGroups)
    if (code >= range.first && code <= range.last) return range.kind;
  return ValueKind::kUnknown;
}

bool isFilterCode(int code) {
  constexpr int kLeast = -4, kTypeCodes = 2000;
  return code >= kLeast && code < kTypeCodes && valueKindOf(code) != ValueKind::kUnknown;
}

}  // namespace cad
