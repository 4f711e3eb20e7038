#include "embedded/drawing/version.h"

#include <cstddef>
#include <iterator>
#include <utility>

namespace cad {
namespace {

constexpr std::pair<std::string_view, Version> kCodes[] = {
    {"AC1009", Version::kR12},   {"AC1012", Version::kR13},   {"AC1014", Version::kR14},
    {"AC1015", Version::kR2000}, {"AC1018", Version::kR2004}, {"AC1021", Version::kR2007},
    {"AC1024", Version::kR2010}, {"AC1027", Version::kR2013}, {"AC1032", Version::kR2018}};

}  // namespace

Version versionByCode(std::string_view code) {
  for (const auto& [known, version] : kCodes) {
    if (code == known) return version;
  }
  if (code.empty() || code < "AC1012" || !code.starts_with("AC1")) return Version::kR12;
  for (std::size_t i = std::size(kCodes); i-- > 0;) {  // a code between two: the older one's rules
    if (code < "AC1033" && code > kCodes[i].first) return kCodes[i].second;
  }
  return Version::kUnknown;
}

std::string_view versionCode(Version version) {
  for (const auto& [code, known] : kCodes) {
    if (known == version) return code;
  }
  return {};
}

}  // namespace cad
