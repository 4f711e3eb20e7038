#pragma once
// Collects the parts of a dimension's picture and knows the lengths of its variables, scaled.

#include <utility>

#include "embedded/graphics/dimensions/figure.h"

namespace cad {

class Sketch {
 public:
  explicit Sketch(const DimFigure& figure);

  // --- Lengths, in drawing units ---
  double arrowSize = 0;      // DIMASZ; of ticks twice DIMTSZ
  double offset = 0;         // DIMEXO
  double extension = 0;      // DIMEXE
  double gap = 0;            // DIMGAP without its sign
  double lineExtension = 0;  // DIMDLE
  double centreMark = 0;     // DIMCEN with its sign: below 0 with centre lines

  bool on(const DimVariableInfo& variable) const { return vars_.integer(variable) != 0; }
  std::int64_t integer(const DimVariableInfo& variable) const { return vars_.integer(variable); }
  double real(const DimVariableInfo& variable) const { return vars_.real(variable); }
  const DimFigure& figure() const { return figure_; }
  bool hasText() const { return !figure_.value.empty(); }

  // How much of the dimension line an arrow takes at an end (1 or 2); 0 where the line runs to the tip.
  double cut(int end) const { return head(end).isStroke ? 0 : arrowSize; }
  const ArrowHead& head(int end) const { return figure_.arrows[static_cast<std::size_t>(end) - 1]; }
  // Half of the text's box with its gaps, as far as it covers a line through its middle; `rotation` is the
  // text's.
  double halfAlong(Vec lineDirection, double rotation) const;
  // Half of the text's box without gaps, as far as it reaches off such a line.
  double halfAcross(Vec lineDirection, double rotation) const;

  // --- Directions, radians ---
  double horizontal() const { return 0 - figure_.horizontal; }
  // Of a line, turned so that a text along it is read from below or from the right.
  double readableLine(Vec lineDirection) const;
  // Of the text of such a line, between the extension lines or outside of them.
  double textAngle(Vec lineDirection, bool inside) const;

  // --- Parts, in the order in which they are added ---
  void dimensionLine(Vec from, Vec to);
  void dimensionArc(Vec centre, double radius, double start, double end);
  void extensionLine(int side, Vec from, Vec to);
  void centreLine(Vec from, Vec to);
  // `points`: unit vector from the base to the tip; `left`: where the first corner of a filled arrow lies.
  void arrow(int end, Vec tip, Vec points, Vec left);
  // Nothing without a text; with a negative DIMGAP a frame around it.
  void text(Vec middle, double rotation);
  void point(DimPoint which);
  // The centre mark of DIMCEN, in a circle of this radius.
  void centreMarks(Vec centre, double radius);
  DimPicture take() { return std::move(parts_); }

 private:
  const DimFigure& figure_;
  const DimVariables& vars_;
  DimPicture parts_;
};

// The angle turned so that a text is read from below or from the right: (-90, 90] degrees.
double readable(double angle);

}  // namespace cad
