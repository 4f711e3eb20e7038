// The container of DWG files until R2000.

#include "fuzz/dwg_container.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr base::Version kVersions[] = {base::Version::kR13, base::Version::kR14, base::Version::kR2000};
  return fuzz::runVersions(kVersions, data, size);
}
