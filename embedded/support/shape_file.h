#pragma once
// Compiled files of shapes (*.shx), as far as linetypes need them: which number has a shape.

#include <filesystem>
#include <string_view>

#include "base/result.h"

namespace cad::support {

// The number of a shape by its name, ignoring case. `path` is where the file was found; when it is empty the
// shapes of ltypeshp.shx, which the usual linetypes draw, are known all the same. `file` is the name as
// given.
base::Result<int> shapeNumber(const std::filesystem::path& path, std::wstring_view file,
                              std::wstring_view shape);

}  // namespace cad::support
