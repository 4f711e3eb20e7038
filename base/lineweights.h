#pragma once
// The lineweights that there are, each once: as texts of conversion specifications, pickers and picked
// values, and as the host's numbers.

#include <cstdint>
#include <iterator>
#include <span>

#include "base/number_limits.h"

namespace base {

struct Lineweight {
  const wchar_t* text;
  int hundredths;  // of a millimetre; -1 ByLayer, -2 ByBlock, -3 Default
};

inline constexpr Lineweight kLineweights[] = {
    {L"Default", -3},  {L"ByLayer", -1},  {L"ByBlock", -2},  {L"0.00 mm", 0},   {L"0.05 mm", 5},
    {L"0.09 mm", 9},   {L"0.13 mm", 13},  {L"0.15 mm", 15},  {L"0.18 mm", 18},  {L"0.20 mm", 20},
    {L"0.25 mm", 25},  {L"0.30 mm", 30},  {L"0.35 mm", 35},  {L"0.40 mm", 40},  {L"0.50 mm", 50},
    {L"0.53 mm", 53},  {L"0.60 mm", 60},  {L"0.70 mm", 70},  {L"0.80 mm", 80},  {L"0.90 mm", 90},
    {L"1.00 mm", 100}, {L"1.06 mm", 106}, {L"1.20 mm", 120}, {L"1.40 mm", 140}, {L"1.58 mm", 158},
    {L"2.00 mm", 200}, {L"2.11 mm", 211},
};
static_assert(std::size(kLineweights) == 27);

// The three words first, then the 24 widths, ascending.
inline std::span<const Lineweight> lineweights() { return kLineweights; }

constexpr bool isLineweight(std::int64_t hundredths) {
  for (const Lineweight& weight : kLineweights)
    if (weight.hundredths == hundredths) return true;
  return false;
}

inline constexpr NumberLimits kLineweightLimits{-3, 211, true, isLineweight};

}  // namespace base
