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
  warnAbout(file, *opened.value());
  return std::move(opened.value());
}

void warnAbout(const std::wstring& file, const cad::Drawing& drawing) {
  for (const std::wstring& warning : cad::formats::warningsAbout(drawing))
    complain(file + L": " + translated(warning));
}

bool isStream(const std::wstring& file) {
  namespace fs = std::filesystem;
  std::error_code unknown;
  switch (fs::status(base::pathFromText(file), unknown).type()) {
    case fs::file_type::fifo:
    case fs::file_type::socket:
    case fs::file_type::character:
    case fs::file_type::block:
      return true;
    default:
      return false;
  }
}

std::wstring whyNotReadTwice(const std::wstring& file) {
  if (!isStream(file)) return {};
  return tr(L"this is a pipe or a device, and the drawing is read more than once; please give it as a file");
}

std::vector<std::filesystem::path> fontFoldersOf(const std::wstring& file) {
  return cad::usualSupportPath(base::pathFromText(base::fullPath(file)).parent_path());
}

}  // namespace kivcli
