// The container of DWG files of R2007.

#include "fuzz/dwg_container.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr base::Version kVersions[] = {base::Version::kR2007};
  return fuzz::runVersions(kVersions, data, size);
}
