#include "embedded/formats/version_probe.h"

namespace cad::formats {

using base::Version;

std::optional<BeginningFacts> factsOfBeginning(std::string_view bytes, bool isWhole) {
  if (!bytes.starts_with("AC")) return dxf::factsOfBeginning(bytes, isWhole);
  for (int each = 0; each < static_cast<int>(Version::kUnknown); ++each) {
    const auto version = static_cast<Version>(each);
    if (bytes.starts_with(base::versionCode(version))) return BeginningFacts{true, version};
  }
  return BeginningFacts();
}

}  // namespace cad::formats
