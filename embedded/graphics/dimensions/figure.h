#pragma once
// What a dimension's picture is drawn from, in the plan of its own system, and the picture: lines, arrows,
// the text and the definition points, before it is known which colour, layer and weight each of them gets.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/geometry.h"
#include "embedded/graphics/dimensions/plane.h"

namespace cad {

// An end of the dimension line.
struct ArrowHead {
  std::wstring block;   // its block's name; empty: the closed filled arrow, which is drawn as an area
  bool isTick = false;  // DIMTSZ: an oblique stroke in place of an arrow
  // The dimension line runs to the tip, and beyond it by DIMDLE: ticks, obliques, none.
  bool isStroke = false;
};

// The box around the inked text, in drawing units, unrotated.
struct TextBox {
  double width = 0, height = 0;
  // From its lower edge to where \X parts it: the dimension line runs through there.
  std::optional<double> parting = {};
};

struct DimFigure {
  using Kind = DimensionGeometry::Kind;
  Kind kind = Kind::kRotated;
  // The points of the record (DimensionGeometry), seen in the plan of the dimension's system.
  Vec line, text, first, second, third, arc;
  double rotation = 0;      // of the dimension line of a rotated one, radians
  double oblique = 0;       // of the extension lines against the dimension line, radians; 0: a right angle
  double textRotation = 0;  // against the horizontal, radians; 0: as the variables have it
  // From the direction that counts as horizontal to the x axis, radians, as the record has it.
  double horizontal = 0;
  bool userText = false;  // a person placed the text: `text` counts
  bool alongX = false;    // ordinate: the x coordinate is told

  double scale = 1;  // what lengths of variables are multiplied by
  std::array<ArrowHead, 2> arrows;
  std::wstring value;  // the text, with formatting codes; empty: none is drawn
  double textHeight = 1;
  TextBox box;                              // of `value`
  const DimVariables* variables = nullptr;  // outlives the figure
};

constexpr bool isAngular(DimFigure::Kind kind) {
  return kind == DimFigure::Kind::kAngular || kind == DimFigure::Kind::kAngularPoints;
}

// --- The picture ------------------------------------------------------------------------------------------

struct PlaneLine {
  Vec from, to;
};
struct PlaneArc {  // counter-clockwise, radians in [0, 2 pi)
  Vec centre;
  double radius = 0, start = 0, end = 0;
};
struct PlaneArea {  // the closed filled arrow: the two ends of its base, then the tip
  Vec left, right, tip;
};
struct PlaneArrow {
  std::wstring block;
  Vec tip;
  double size = 1, rotation = 0;  // radians in [0, 2 pi): from the base to the tip
};
struct PlaneText {
  Vec middle;
  double rotation = 0;  // radians
};

enum class DimPoint : std::uint8_t { kLine, kFirst, kSecond, kThird, kArc };

struct DimPart {
  enum class Role : std::uint8_t {
    kDimensionLine,
    kExtensionLine1,
    kExtensionLine2,
    kCentreMark,
    kArrow,
    kText,
    kDefinitionPoint,
  };
  Role role = Role::kDimensionLine;
  std::variant<PlaneLine, PlaneArc, PlaneArea, PlaneArrow, PlaneText, DimPoint> shape;
};

// In the order in which the block holds them.
using DimPicture = std::vector<DimPart>;

// The picture of a figure of any kind that is drawn.
DimPicture drawDimension(const DimFigure& figure);

// Those of the single kinds.
DimPicture drawLinear(const DimFigure& figure);   // rotated, aligned
DimPicture drawAngular(const DimFigure& figure);  // by two lines, by three points
DimPicture drawRadius(const DimFigure& figure);   // radial, diametric
DimPicture drawOrdinate(const DimFigure& figure);

}  // namespace cad
