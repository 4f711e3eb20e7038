// The container of DWG files of R2004 and R2010 to R2018.

#include "fuzz/dwg_container.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr base::Version kVersions[] = {base::Version::kR2004, base::Version::kR2010, base::Version::kR2018};
  return fuzz::runVersions(kVersions, data, size);
}
