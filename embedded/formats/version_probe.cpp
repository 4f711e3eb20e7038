#include "embedded/formats/version_probe.h"

#include "embedded/dwg/file_mark.h"

namespace cad::formats {

using base::Version;

std::optional<BeginningFacts> factsOfBeginning(std::string_view bytes, bool isWhole) {
  if (!dwg::isDwg(bytes)) return dxf::factsOfBeginning(bytes, isWhole);
  const Version version = base::versionByCode(dwg::dwgVersionCode(bytes));
  return version == Version::kR12 ? BeginningFacts() : BeginningFacts{true, version};
}

}  // namespace cad::formats
