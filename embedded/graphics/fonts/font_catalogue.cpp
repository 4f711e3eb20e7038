#include "base/files.h"
#include "base/fold.h"
#include "base/shape_fonts.h"
#include "embedded/graphics/fonts/font_metrics.h"
#include "embedded/graphics/fonts/shape_font.h"
#include "embedded/graphics/fonts/system_fonts.h"
#include "embedded/graphics/fonts/truetype_font.h"
#include "embedded/support/font_files.h"

namespace cad {
namespace {

bool isOutlineFile(std::wstring_view file) {
  return base::endsWithFolded(file, L".ttf") || base::endsWithFolded(file, L".ttc") ||
         base::endsWithFolded(file, L".otf");
}

// A style names a file of shapes with or without its extension.
std::wstring shapeFileName(std::wstring_view file) {
  std::wstring name(file);
  if (!base::isShapeFont(name)) name += L".shx";
  return name;
}

std::optional<support::ShapeFile> shapeFileAt(const std::filesystem::path& path, std::wstring_view name) {
  if (path.empty()) return std::nullopt;
  base::Result<std::string> bytes = base::readFile(path);
  if (!bytes) return std::nullopt;
  base::Result<support::ShapeFile> file = support::ShapeFile::read(std::move(bytes.value()), name);
  return file ? std::optional(std::move(file.value())) : std::nullopt;
}

// Drawings name folders of the machine that they were drawn on: a file that is not there counts by its name.
std::filesystem::path located(const FontCatalogue::Find& find, std::wstring_view name) {
  std::filesystem::path path = find(name);
  const std::size_t folder = name.find_last_of(L"/\\");
  if (path.empty() && folder != name.npos) path = find(name.substr(folder + 1));
  return path.empty() ? systemFont(name) : path;
}

std::shared_ptr<const FontMetrics> shapesOf(const FontRequest& request, const FontCatalogue::Find& find) {
  const std::wstring name = shapeFileName(request.file.empty() ? L"txt" : request.file);
  std::optional<support::ShapeFile> font = shapeFileAt(located(find, name), name);
  if (!font) return nullptr;
  std::optional<support::ShapeFile> bigFont;
  if (!request.bigFile.empty()) {
    const std::wstring bigName = shapeFileName(request.bigFile);
    bigFont = shapeFileAt(located(find, bigName), bigName);
  }
  return shapeFont(std::move(*font), std::move(bigFont));
}

// The file of the style comes first, then the usual one of its typeface; a bold or slanted face is looked for
// before the regular one.
std::vector<std::wstring> outlineFiles(const FontRequest& request) {
  std::vector<std::wstring> files;
  for (const std::wstring_view file :
       {std::wstring_view(request.file), support::fontFileOf(request.typeface)}) {
    if (file.empty()) continue;
    if (request.bold || request.italic)
      files.push_back(support::styledFontFile(file, request.bold, request.italic));
    files.emplace_back(file);
  }
  return files;
}

std::shared_ptr<const FontMetrics> outlinesOf(const FontRequest& request, const FontCatalogue::Find& find) {
  for (const std::wstring& name : outlineFiles(request)) {
    const std::filesystem::path path = located(find, name);
    if (path.empty()) continue;
    auto file = base::FileBytes::open(path);
    if (!file) continue;
    if (auto font = trueTypeFont(std::move(file.value()), request.typeface)) return font;
  }
  return nullptr;
}

}  // namespace

std::shared_ptr<const FontMetrics> FontCatalogue::font(const FontRequest& request) {
  const Key key{request.file, request.bigFile, request.typeface, request.bold, request.italic};
  const auto known = fonts_.find(key);
  if (known != fonts_.end()) return known->second;
  const bool outlined = !request.typeface.empty() || isOutlineFile(request.file);
  std::shared_ptr<const FontMetrics> font;
  if (find_) font = outlined ? outlinesOf(request, find_) : shapesOf(request, find_);
  if (!font) font = {std::shared_ptr<void>(), outlined ? &outlineAverages() : &shapeAverages()};
  return fonts_[key] = std::move(font);
}

GlyphPath FontCatalogue::shape(std::wstring_view file, int number) {
  auto known = shapeFiles_.find(file);
  if (known == shapeFiles_.end()) {
    const std::wstring name = shapeFileName(file);
    std::optional<support::ShapeFile> read;
    if (find_ && !file.empty()) read = shapeFileAt(located(find_, name), name);
    known = shapeFiles_
                .emplace(file, read ? std::make_shared<const support::ShapeFile>(std::move(*read)) : nullptr)
                .first;
  }
  return known->second == nullptr ? GlyphPath() : shapePath(*known->second, known->second->codes(number));
}

}  // namespace cad
