#include "siblings/KivFile/open_settings.h"

#include <algorithm>

#include "platform/settings.h"

namespace kiv {
namespace {

constexpr const wchar_t* kFolderKey = L"KivFileFolder";
constexpr const wchar_t* kFilterKey = L"KivFileFilter";
constexpr const wchar_t* kFormatKey = L"KivFileFormat";
// A column, counted from 1; below 0: descending.
constexpr const wchar_t* kOrderKey = L"KivFileOrder";
constexpr const wchar_t* kWidthKey = L"KivFileWidth";
constexpr const wchar_t* kHeightKey = L"KivFileHeight";

constexpr int kMostPixels = 20000;

int readPixels(const wchar_t* key) { return std::clamp(readCommonInteger(key, 0), 0, kMostPixels); }

}  // namespace

OpenSettings readOpenSettings() {
  OpenSettings settings;
  settings.folder = readCommonText(kFolderKey, L"");
  settings.filter = readCommonText(kFilterKey, L"");
  settings.format = base::saveFormat(readCommonInteger(kFormatKey, 0)).value_or(base::SaveFormat::kDwg);
  const int order = readCommonInteger(kOrderKey, 1);
  settings.order.ascending = order > 0;
  const int column = order > 0 ? order : order < -kDrawingColumns ? 0 : -order;
  if (column >= 1 && column <= kDrawingColumns)
    settings.order.column = static_cast<DrawingColumn>(column - 1);
  settings.width = readPixels(kWidthKey);
  settings.height = readPixels(kHeightKey);
  return settings;
}

void writeView(const OpenSettings& settings) {
  const int column = static_cast<int>(settings.order.column) + 1;
  writeCommonInteger(kOrderKey, settings.order.ascending ? column : -column);
  writeCommonInteger(kWidthKey, settings.width);
  writeCommonInteger(kHeightKey, settings.height);
}

void writeChoice(const OpenSettings& settings) {
  writeCommonText(kFolderKey, settings.folder.c_str());
  writeCommonText(kFilterKey, settings.filter.c_str());
  writeCommonInteger(kFormatKey, static_cast<int>(settings.format));
}

}  // namespace kiv
