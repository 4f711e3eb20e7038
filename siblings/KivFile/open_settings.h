#pragma once
// What the dialog remembers from one call to the next, in the suite's common settings.

#include <string>

#include "base/save_format.h"
#include "siblings/KivFile/drawing_list.h"

namespace kiv {

struct OpenSettings {
  std::wstring folder;  // empty: there has been none
  std::wstring filter;
  base::SaveFormat format = base::SaveFormat::kDwg;
  DrawingOrder order;
  int width = 0,
      height = 0;  // of the window, in pixels of the reference resolution; 0: as in the resource script
};

OpenSettings readOpenSettings();
// How the drawings are looked at: order and size.
void writeView(const OpenSettings& settings);
// What was chosen: folder, filter and format.
void writeChoice(const OpenSettings& settings);

}  // namespace kiv
