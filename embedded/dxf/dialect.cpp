#include "embedded/dxf/dialect.h"

namespace cad::dxf {
namespace {

struct CodeRange {
  int first, last;
  ValueType type;
};

using T = ValueType;

constexpr CodeRange kRanges[] = {
    {-5, -1, T::kText},     {0, 4, T::kText},        {5, 5, T::kHandle},       {6, 9, T::kText},
    {10, 59, T::kReal},     {60, 79, T::kInt16},     {90, 99, T::kInt32},      {100, 104, T::kText},
    {105, 105, T::kHandle}, {110, 149, T::kReal},    {160, 169, T::kInt64},    {170, 179, T::kInt16},
    {210, 239, T::kReal},   {270, 289, T::kInt16},   {290, 299, T::kBool},     {300, 309, T::kText},
    {310, 319, T::kChunk},  {320, 369, T::kHandle},  {370, 389, T::kInt16},    {390, 399, T::kHandle},
    {400, 409, T::kInt16},  {410, 419, T::kText},    {420, 429, T::kInt32},    {430, 439, T::kText},
    {440, 459, T::kInt32},  {460, 469, T::kReal},    {470, 479, T::kText},     {480, 481, T::kHandle},
    {999, 1003, T::kText},  {1004, 1004, T::kChunk}, {1005, 1005, T::kHandle}, {1006, 1009, T::kText},
    {1010, 1059, T::kReal}, {1060, 1070, T::kInt16}, {1071, 1071, T::kInt32},
};

struct TypeTable {
  ValueType types[1072] = {};
  constexpr TypeTable() {
    for (auto& type : types) type = T::kUnknown;
    for (const CodeRange& range : kRanges) {
      for (int code = range.first < 0 ? 0 : range.first; code <= range.last; ++code) types[code] = range.type;
    }
    for (int code = 0; code < 5; ++code) types[code] = T::kText;
  }
};
constexpr TypeTable kTypes;

}  // namespace

ValueType valueType(int code) {
  if (code < 0) return code >= -5 ? T::kText : T::kUnknown;
  return code <= 1071 ? kTypes.types[code] : T::kUnknown;
}

}  // namespace cad::dxf
