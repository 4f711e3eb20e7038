#include "acutads.h"
#include "embedded/drawing/wildcard.h"

int acutWcMatch(const ACHAR* text, const ACHAR* pattern) {
  if (text == nullptr || pattern == nullptr) return RTERROR;
  return cad::Wildcard(pattern).matches(text) ? RTNORM : RTERROR;
}

bool acutWcMatchEx(const ACHAR* text, const ACHAR* pattern, bool ignoreCase) {
  return text != nullptr && pattern != nullptr && cad::Wildcard(pattern, ignoreCase).matches(text);
}
