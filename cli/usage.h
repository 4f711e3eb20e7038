#pragma once
// What `kivcvt help` and `kivcvt --version` print, without the last line end.

#include <string>

namespace kivcli {

std::wstring usageText();
std::wstring versionText();

}  // namespace kivcli
