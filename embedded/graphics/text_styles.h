#pragma once
// What text styles say of the texts that are written in them.

#include <string>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/drawing.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

// What a style's record says of its font.
FontRequest fontOf(const Drawing& drawing, RecordId style);

// The styles of a drawing that does not change, each read once.
class TextStyles {
 public:
  struct Style {
    const FontMetrics* font = nullptr;  // the catalogue's
    double widthFactor = 1, oblique = 0;
    bool vertical = false;  // characters stand below each other
    bool turned = false;    // full-width characters lie on their sides
  };
  TextStyles(const Drawing& drawing, FontCatalogue& fonts) : drawing_(drawing), fonts_(fonts) {}

  const Style& of(RecordId style);  // kNoRecord: one that says nothing
  // The fonts without a file, as the styles name them, each once.
  const std::vector<std::wstring>& missing() const { return missing_; }

 private:
  Style read(RecordId style);

  const Drawing& drawing_;
  FontCatalogue& fonts_;
  std::unordered_map<RecordId, Style> known_;
  std::vector<std::wstring> missing_;
};

}  // namespace cad
