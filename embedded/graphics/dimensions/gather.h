#pragma once
// What the picture of a dimension is drawn from, out of its record, its style and its old picture.

#include <memory>
#include <unordered_map>
#include <vector>

#include "embedded/drawing/drawing.h"
#include "embedded/graphics/dimensions/figure.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

// The style whose variables hold for a dimension or a leader in this state: from R13 on Standard where it
// tells none that the drawing has.
RecordId dimStyleOf(const Drawing& drawing, const Record& state);

// The values of dimension styles; each is read once for each of its states.
class DimStyles {
 public:
  // Those that hold for a dimension in the state that `dimension` gives.
  DimVariables valuesOf(const Drawing& drawing, const Record& dimension);
  // Those of the style alone; kNoRecord: the defaults.
  const DimVariables& ofStyle(const Drawing& drawing, RecordId style);

 private:
  // The names in it (of text styles, arrows, linetypes) stay true: records that have them are not renamed.
  struct Kept {
    EditId edits = kNoEdit;
    DimVariables variables;
  };

  std::unordered_map<RecordId, Kept> kept_;
};

// The text styles as dimensions need them, likewise read once for each of their states.
class TextFaces {
 public:
  struct Face {
    EditId edits = kNoEdit;
    std::wstring name;  // as the drawing spells it; empty: Standard
    double fixedHeight = 0, widthFactor = 1;
    std::shared_ptr<const FontMetrics> font;
  };
  explicit TextFaces(FontCatalogue::Find findFont) : fonts_(std::move(findFont)) {}
  // kNoRecord: a style that says nothing.
  const Face& of(const Drawing& drawing, RecordId style);

 private:
  FontCatalogue fonts_;
  std::unordered_map<RecordId, Face> kept_;
};

struct DimSource {
  DimSource() = default;
  DimSource(const DimSource&) = delete;  // the figure refers to the variables
  DimSource& operator=(const DimSource&) = delete;

  DimensionGeometry geometry;
  Point normal{0, 0, 1};
  double elevation = 0;  // of the picture's plane in the dimension's system
  DimVariables variables;
  DimFigure figure;
  std::wstring textStyle;  // its name as the drawing spells it; empty: Standard
};

// `former`: the dimension in the state that its old picture, `kept`, was drawn from; it gives the scale of a
// dimension that has none of its own (DIMSCALE 0).
void gather(const Drawing& drawing, RecordId dimension, const Record& former,
            const std::vector<BlockEntity>& kept, DimStyles& styles, TextFaces& faces, DimSource& source);

// The distance or the angle (radians) that is dimensioned: before DIMLFAC and rounding.
double measured(const DimFigure& figure);

}  // namespace cad
