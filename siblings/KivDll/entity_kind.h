#pragma once
// Which entities a pick admits.

#include <string>

#include "dbmain.h"

namespace kiv {

// Bits of a mask.
enum EntityKind : unsigned {
  kBlockReferenceKind = 0x0020,
  kTextKind = 0x0040,  // single-line and multi-line texts, attribute definitions, attributes
  kOtherKinds = 0xFF9F,
};
inline constexpr unsigned kEveryKind = kBlockReferenceKind | kTextKind | kOtherKinds;

bool isAdmitted(const AcDbEntity& entity, unsigned mask);

// What to tell a person who picked something that the mask does not admit.
std::wstring wrongKindMessage(unsigned mask);

}  // namespace kiv
