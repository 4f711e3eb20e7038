#include "cli/opened_drawing.h"

#include "base/files.h"
#include "base/paths.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "embedded/editor/host.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {

std::unique_ptr<cad::Drawing> openDrawing(const std::wstring& file) {
  auto opened = cad::formats::open(base::pathFromText(file));
  if (!opened.ok()) {
    complainAbout(file, opened.failure());
    return nullptr;
  }
  const std::wstring warning = cad::formats::warningAbout(*opened.value());
  if (!warning.empty()) complain(file + L": " + translated(warning));
  return std::move(opened.value());
}

std::vector<std::filesystem::path> fontFoldersOf(const std::wstring& file) {
  return cad::usualSupportPath(base::pathFromText(base::fullPath(file)).parent_path());
}

}  // namespace kivcli
