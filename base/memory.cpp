#include "base/memory.h"

#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace base {

void keepFreedMemory() {
#ifdef __GLIBC__
  constexpr int kLargePiece = 4 << 20, kMostKept = 64 << 20;
  ::mallopt(M_MMAP_THRESHOLD, kLargePiece);
  ::mallopt(M_TRIM_THRESHOLD, kMostKept);
#endif
}

}  // namespace base
