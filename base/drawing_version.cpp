#include "base/drawing_version.h"

#include <cstddef>
#include <iterator>

namespace base {
namespace {

struct Release {
  std::string_view code;
  const wchar_t* name;
};

// In the order of the versions.
constexpr Release kReleases[] = {
    {"AC1009", L"R12"},  {"AC1012", L"R13"},  {"AC1014", L"R14"},  {"AC1015", L"2000"}, {"AC1018", L"2004"},
    {"AC1021", L"2007"}, {"AC1024", L"2010"}, {"AC1027", L"2013"}, {"AC1032", L"2018"},
};
static_assert(std::size(kReleases) == static_cast<std::size_t>(Version::kUnknown));

}  // namespace

Version versionByCode(std::string_view code) {
  // Of the codes before R13 those that are later in the alphabet have a point: "AC2.10".
  const bool isNumber = code.size() > 2 && code.starts_with("AC") && code[2] >= '0' && code[2] <= '9' &&
                        code.find('.') == std::string_view::npos;
  if (!isNumber || code < "AC1012") return Version::kR12;
  if (code >= "AC1033") return Version::kUnknown;
  std::size_t newest = 0;  // a code between two: the older one's rules
  while (newest + 1 < std::size(kReleases) && kReleases[newest + 1].code <= code) ++newest;
  return static_cast<Version>(newest);
}

std::string_view versionCode(Version version) {
  return version == Version::kUnknown ? std::string_view()
                                      : kReleases[static_cast<std::size_t>(version)].code;
}

const wchar_t* releaseName(Version version) {
  return version == Version::kUnknown ? L"unknown release"
                                      : kReleases[static_cast<std::size_t>(version)].name;
}

}  // namespace base
