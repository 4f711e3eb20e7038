#include <algorithm>
#include <numbers>
#include <utility>

#include "embedded/graphics/dimensions/fit.h"

namespace cad {
namespace {

// A horizontal text hangs on a hook where the line is steeper; else it follows the line's end.
constexpr double kLeastSlopeOfHook = std::numbers::pi / 12;

// One line through the centre: from its tail, which is the centre or the far end of the diameter, to its tip
// on the curve, and on outwards. Places along it are distances from the tail.
class RadiusPicture {
 public:
  explicit RadiusPicture(const DimFigure& figure);
  bool isDrawn() const { return length_ > 0 && length_ < kLargest && cad::length(tail_) < kLargest; }
  DimPicture draw();

 private:
  Vec at(double away) const { return tail_ + away * along_; }
  Vec centre() const { return isDiametric_ ? at(length_ / 2) : tail_; }
  bool isMoved() const;
  bool isPlaced() const { return figure_.userText && sketch_.hasText() && !isMoved(); }
  // The arrow of a radial one is the second, whose half of the line is all there is.
  bool isDropped(int end) const {
    return sketch_.on(end == 1 && isDiametric_ ? dimRow("DIMSD1") : dimRow("DIMSD2"));
  }
  double tipCut() const { return sketch_.cut(tipEnd_); }
  double tailCut() const { return isDiametric_ ? sketch_.cut(3 - tipEnd_) : 0; }

  void stand(bool inside);
  void place();
  void drawInside();
  void drawTowardsTip();
  void lineToHook(double from);
  void lineToText(double from);
  void drawOutside();
  void drawAside();
  void lineBetween(double from, double to);
  void stub(int end);
  void arrow(int end);
  void arrows();

  const DimFigure& figure_;
  Sketch sketch_;
  bool isDiametric_;
  int tipEnd_ = 2;
  Vec tail_, tip_, along_;
  double length_ = 0;
  bool textInside_ = false, arrowsInside_ = false;
  double textAt_ = 0;
  double half_ = 0;  // what the text with its gaps takes of the line, to both sides of its middle
  TextStand stand_;
  Vec middle_;
};

RadiusPicture::RadiusPicture(const DimFigure& figure)
    : figure_(figure),
      sketch_(figure),
      isDiametric_(figure.kind == DimFigure::Kind::kDiametric),
      tail_(figure.line),
      tip_(figure.third),
      along_(unit(tip_ - tail_)),
      length_(distance(tail_, tip_)) {
  // A text that was taken beyond the far end of a diameter hangs on that end.
  if (isDiametric_ && isPlaced() && dot(figure.text - tail_, along_) < 0) {
    std::swap(tail_, tip_);
    along_ = -along_;
    tipEnd_ = 1;
  }
}

void RadiusPicture::stand(bool inside) {
  stand_ = standOn(sketch_, along_, inside, along_);
  half_ = sketch_.hasText() ? sketch_.halfAlong(along_, stand_.rotation) : 0;
}

// --- Where arrows and text are ----------------------------------------------------------------------------

// A text beside the line; one beyond its tip has the line for a leader.
bool RadiusPicture::isMoved() const {
  if (!figure_.userText || !sketch_.hasText() ||
      sketch_.integer(dimRow("DIMTMOVE")) == Movement::kLineFollows)
    return false;
  const Vec off = figure_.text - tail_;
  return std::abs(cross(along_, off)) > kOffLine * figure_.textHeight && dot(off, along_) <= length_;
}

// Without room for both, both are outside even where one would fit, unless DIMATFIT names the one to move;
// DIMTIX keeps the text outside.
void RadiusPicture::place() {
  const double arrows = (isDiametric_ ? 2 : 1) * sketch_.arrowSize;
  const auto rule = sketch_.integer(dimRow("DIMATFIT"));
  stand(true);
  textAt_ = length_ / 2;
  const double text = isMoved() ? 0 : 2 * half_;
  const bool both = length_ >= text + arrows;
  if (isPlaced()) {
    textAt_ = dot(figure_.text - tail_, along_);
    textInside_ = textAt_ <= length_;
  } else if (!sketch_.on(dimRow("DIMTIX")) || text == 0) {
    textInside_ = both || (rule == FitRule::kArrowsFirst && length_ >= text);
  }
  arrowsInside_ = textInside_ ? both : rule == FitRule::kTextFirst && length_ >= arrows;
  middle_ = at(textAt_) + stand_.lift * stand_.up;
}

// --- Inside -----------------------------------------------------------------------------------------------

// From tail to tip, broken by a text inside; each piece begins at its arrow.
void RadiusPicture::lineBetween(double from, double to) {
  const bool breaks = textInside_ && stand_.breaksLine && half_ > 0 && !isMoved();
  const int tailEnd = 3 - tipEnd_;
  if (!breaks && !isDropped(1) && !isDropped(2)) return sketch_.dimensionLine(at(from), at(to));
  const double middle = textInside_ ? textAt_ : length_ / 2;
  const double below = middle - (breaks ? half_ : 0), above = middle + (breaks ? half_ : 0);
  if (!isDropped(tailEnd) && below > from) sketch_.dimensionLine(at(from), at(std::min(below, to)));
  if (!isDropped(tipEnd_) && above < to) sketch_.dimensionLine(at(to), at(std::max(above, from)));
}

// What an arrow outside stands on.
void RadiusPicture::stub(int end) {
  if (isDropped(end)) return;
  const bool isTip = end == tipEnd_;
  const double way = isTip ? 1 : -1, from = (isTip ? length_ : 0) + way * (isTip ? tipCut() : tailCut());
  sketch_.dimensionLine(at(from), at(from + way * sketch_.arrowSize));
}

void RadiusPicture::arrow(int end) {
  if (isDropped(end)) return;
  const Vec outwards = end == tipEnd_ ? along_ : -along_;
  sketch_.arrow(end, end == tipEnd_ ? tip_ : tail_, arrowsInside_ ? outwards : -outwards, leftOf(along_));
}

// Outside the text has one arrow with it.
void RadiusPicture::arrows() {
  if (isDiametric_ && (textInside_ || arrowsInside_)) arrow(3 - tipEnd_);
  arrow(tipEnd_);
}

void RadiusPicture::drawInside() {
  if (arrowsInside_) {
    lineBetween(tailCut(), length_ - tipCut());
  } else {
    if (isDiametric_) stub(3 - tipEnd_);
    stub(tipEnd_);
    if (sketch_.on(dimRow("DIMTOFL"))) lineBetween(0, length_);
  }
  if (!stand_.breaksLine) sketch_.text(middle_, stand_.rotation);
  arrows();
  if (stand_.breaksLine) sketch_.text(middle_, stand_.rotation);
}

// A text that was placed inside has a line to the tip only, from its far edge where it stands off the line.
void RadiusPicture::drawTowardsTip() {
  const double edge = textAt_ + (stand_.breaksLine ? half_ : -half_);
  arrowsInside_ = length_ - edge >= sketch_.arrowSize;
  if (!arrowsInside_) {
    stub(tipEnd_);
  } else if (!isDropped(tipEnd_) && edge < length_ - tipCut()) {
    sketch_.dimensionLine(at(edge), at(length_ - tipCut()));
  }
  if (!stand_.breaksLine) sketch_.text(middle_, stand_.rotation);
  arrow(tipEnd_);
  if (stand_.breaksLine) sketch_.text(middle_, stand_.rotation);
}

// --- Outside ----------------------------------------------------------------------------------------------

// To a text across the line: the line, a knee and a hook beside or under the text.
void RadiusPicture::lineToHook(double from) {
  const Vec right = direction(stand_.rotation), up = leftOf(right);
  double knee = length_ + 2 * sketch_.arrowSize;
  if (isPlaced()) knee = std::max(from, length_ + dot(figure_.text - tip_, up) / dot(along_, up));
  const double side = isPlaced() ? dot(figure_.text - at(knee), right) : dot(along_, right) - 1e-9;
  const Vec to = side > 0 ? right : -right;
  if (isDropped(tipEnd_)) {
    middle_ = at(knee) + hookReach(sketch_, to);
  } else {
    sketch_.dimensionLine(at(from), at(knee));
    middle_ = drawHook(sketch_, at(knee), to);
  }
}

// Beside the text's end of the line, or under the text.
void RadiusPicture::lineToText(double from) {
  if (!isPlaced()) textAt_ = length_ + 2 * sketch_.arrowSize + half_;
  const double outer = stand_.breaksLine ? textAt_ - half_ : textAt_ + half_;
  if (!isDropped(tipEnd_) && outer > from) sketch_.dimensionLine(at(outer), at(from));
  middle_ = at(textAt_) + stand_.lift * stand_.up;
}

void RadiusPicture::drawOutside() {
  stand(false);
  const double from = length_ + (arrowsInside_ ? 0 : tipCut());
  const bool isHooked = sketch_.hasText() && figure_.textRotation == 0 &&
                        std::abs(cross(along_, direction(stand_.rotation))) > std::sin(kLeastSlopeOfHook);
  isHooked ? lineToHook(from) : lineToText(from);
  const bool isOverLine = !isHooked && !stand_.breaksLine;
  if (!isOverLine) arrows();
  sketch_.text(middle_, stand_.rotation);
  const bool hasInnerLine = arrowsInside_ || sketch_.on(dimRow("DIMTOFL"));
  if (hasInnerLine) lineBetween(arrowsInside_ ? tailCut() : 0, length_ - (arrowsInside_ ? tipCut() : 0));
  if (isOverLine) arrows();
  if (!hasInnerLine) sketch_.centreMarks(centre(), isDiametric_ ? length_ / 2 : length_);
}

// The line as it is without a text, and the text where it is.
void RadiusPicture::drawAside() {
  const double taken = sketch_.halfAcross(along_, stand_.rotation) + sketch_.gap + sketch_.arrowSize;
  if (arrowsInside_) {
    lineBetween(tailCut(), length_ - tipCut());
  } else {
    stub(tipEnd_);
  }
  if (sketch_.integer(dimRow("DIMTMOVE")) == Movement::kWithLeader &&
      std::abs(cross(along_, figure_.text - tail_)) > taken) {
    drawLeader(sketch_, leaderTo(sketch_, at(length_ / 2), figure_.text, stand_.rotation));
  }
  arrows();
  sketch_.text(figure_.text, stand_.rotation);
}

DimPicture RadiusPicture::draw() {
  place();
  if (isMoved()) {
    drawAside();
  } else if (!textInside_) {
    drawOutside();
  } else if (isPlaced()) {
    drawTowardsTip();
  } else {
    drawInside();
  }
  sketch_.point(DimPoint::kThird);
  sketch_.point(DimPoint::kLine);
  return sketch_.take();
}

}  // namespace

DimPicture drawRadius(const DimFigure& figure) {
  RadiusPicture picture(figure);
  return picture.isDrawn() ? picture.draw() : DimPicture{};
}

}  // namespace cad
