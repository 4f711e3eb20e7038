#include "embedded/graphics/pictures/picture.h"

#include <algorithm>
#include <cmath>

#include "base/files.h"
#include "base/fold.h"
#include "embedded/drawing/current_space.h"
#include "embedded/graphics/pictures/marks.h"
#include "embedded/graphics/pictures/scene_painter.h"

namespace cad {
namespace {

constexpr double kMargin = 0.02;     // of the picture's width, on every side
constexpr double kSheetWidth = 420;  // millimetres: model space is looked at as on a sheet of this width
constexpr double kHairline = 1;      // pixels

base::Result<Layout> chosenLayout(const Drawing& drawing, const std::wstring& name) {
  const std::vector<Layout> layouts = drawing.layouts();
  std::wstring names;
  for (const Layout& layout : layouts) {
    const bool isCurrent = name.empty() && layout.block == currentSpace(drawing);
    if (isCurrent || base::equalFolded(layout.name, name)) return layout;
    names += (names.empty() ? L"" : L", ") + layout.name;
  }
  return base::Failure{{}, L"The drawing has no layout \"" + name + L"\"; it has: " + names};
}

FontCatalogue::Find fontsIn(const std::vector<std::filesystem::path>& folders) {
  return [folders](std::wstring_view file) {
    // A name with a folder of the machine that drew is asked for without it as well.
    if (file.find_first_of(L"/\\") != file.npos) return std::filesystem::path();
    for (const std::filesystem::path& folder : folders) {
      if (std::filesystem::path found = base::findIgnoringCase(folder, file); !found.empty()) return found;
    }
    return std::filesystem::path();
  };
}

// The picture has the width that is asked for; one that would be too high is smaller within it.
PictureScale scaleOf(const SceneBox& extents, const Layout& layout, bool isModel, Picture& picture) {
  const double width = extents.right - extents.left, height = extents.top - extents.bottom;
  const double margin = std::max(2.0, picture.width * kMargin);
  const double room = picture.width - 2 * margin, most = kMostPictureWidth - 2 * margin;
  double scale = width > 0 ? room / width : most / std::max(height, 1e-9);
  if (height * scale > most) scale = most / height;
  if (width <= 0 && height <= 0) scale = 1;
  if (width <= 0 && height > 0) scale = std::min(scale, room / height);
  const double wanted = std::ceil(height * scale + 2 * margin);
  picture.height = std::clamp(static_cast<int>(wanted), kLeastPictureWidth, kMostPictureWidth);
  PictureScale out;
  out.view.scale = scale;
  out.view.left = (extents.left + extents.right) / 2 - picture.width / scale / 2;
  out.view.top = (extents.top + extents.bottom) / 2 + picture.height / scale / 2;
  out.pixelsPerMillimetre = isModel ? picture.width / kSheetWidth : scale / layout.millimetres;
  out.hairline = kHairline;
  return out;
}

void addRemarks(const Scene& scene, Picture& picture) {
  std::vector<std::wstring>& remarks = picture.remarks;
  if (scene.truncated)
    remarks.push_back(L"The blocks expand into more than a picture shows; the rest is left out");
  if (scene.obliqueViews > 0)
    remarks.push_back(std::to_wstring(scene.obliqueViews) +
                      L" viewports that look at the drawing from aside are left empty");
  for (const auto& [type, count] : scene.undrawn)
    remarks.push_back(std::to_wstring(count) + L" objects of the type " +
                      std::wstring(type.begin(), type.end()) + L" are not drawn");
  std::wstring fonts;
  for (const std::wstring& font : scene.missingFonts) fonts += (fonts.empty() ? L"" : L", ") + font;
  if (!fonts.empty()) remarks.push_back(L"Another font stands in for: " + fonts);
}

}  // namespace

bool isSvgName(std::wstring_view file) { return base::endsWithFolded(file, L".svg"); }
bool isPngName(std::wstring_view file) { return base::endsWithFolded(file, L".png"); }

base::Result<Picture> drawPicture(const Drawing& drawing, const PictureOptions& options) {
  if (options.width < kLeastPictureWidth || options.width > kMostPictureWidth)
    return base::Failure{{},
                         L"The width of a picture is " + std::to_wstring(kLeastPictureWidth) + L" to " +
                             std::to_wstring(kMostPictureWidth) + L" pixels, not " +
                             std::to_wstring(options.width)};
  const base::Result<Layout> layout = chosenLayout(drawing, options.layout);
  if (!layout) return layout.failure();
  FontCatalogue fonts(fontsIn(options.fontFolders));
  const Scene scene = buildScene(drawing, SceneDetail{layout.value().block, &fonts});
  if (scene.items.empty())
    return base::Failure{{}, L"There is nothing to be seen in \"" + layout.value().name + L"\""};
  Picture picture;
  picture.width = options.width;
  picture.background = options.background;
  const bool isModel = layout.value().block == drawing.modelSpace();
  const PictureScale scale = scaleOf(scene.extents, layout.value(), isModel, picture);
  ScenePainter painter(drawing, scene, fonts, scale, picture);
  for (const SceneClip& clip : scene.clips) {
    picture.clips.push_back({});
    SceneItem area;
    area.first = clip.first, area.count = clip.count;
    painter.addClip(area, picture.clips.back());
  }
  for (const SceneItem& item : scene.items) painter.paint(item);
  addRemarks(scene, picture);
  painter.addRemarks();
  const std::size_t shown = addMarks(scene, options.marked, painter, picture);
  if (shown < options.marked.size())
    picture.remarks.push_back(std::to_wstring(options.marked.size() - shown) + L" of " +
                              std::to_wstring(options.marked.size()) +
                              L" objects to be marked do not show in this picture");
  return picture;
}

}  // namespace cad
