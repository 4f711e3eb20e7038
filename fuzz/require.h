#pragma once
// What must hold whatever the input; a run that finds otherwise ends with the place in the target.

#include <cstdio>
#include <cstdlib>

namespace fuzz {

// `line` is the caller's.
inline void require(bool condition, const char* about = "", int line = __builtin_LINE()) {
  if (condition) return;
  std::fprintf(stderr, "line %d of the target does not hold: %s\n", line, about);
  std::abort();
}

}  // namespace fuzz
