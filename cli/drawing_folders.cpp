#include "cli/drawing_folders.h"

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {

bool hasNameOfDrawing(const std::filesystem::path& file) {
  const std::wstring extension = base::pathText(file.extension());
  return std::ranges::any_of(cad::formats::extensions(),
                             [&](std::wstring_view known) { return base::equalFolded(extension, known); });
}

}  // namespace kivcli
