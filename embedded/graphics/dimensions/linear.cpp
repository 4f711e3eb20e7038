#include <algorithm>

#include "embedded/graphics/dimensions/linear_text.h"

namespace cad {
namespace {

class LinearDimension {
 public:
  explicit LinearDimension(const DimFigure& figure)
      : sketch_(figure), frame_(figure), text_(standLinearText(sketch_, frame_)) {
    if (!text_.fit.textInside) last_ = sideOutside(sketch_, text_);
  }
  DimPicture draw();

 private:
  // An end of the dimension line: 1 or 2.
  Vec foot(int side) const { return frame_.feet[static_cast<std::size_t>(side) - 1]; }
  Vec outOf(int side) const { return side == 1 ? -frame_.run : frame_.run; }
  const DimFigure& figure() const { return sketch_.figure(); }
  bool wanted(int side) const { return !sketch_.on(side == 1 ? dimRow("DIMSD1") : dimRow("DIMSD2")); }

  // Outside, the side with the text comes last.
  bool isTurned() const { return !text_.fit.arrowsInside && last_ == 1; }

  void extensionLine(int side);
  double lineEnd(int side) const;
  void innerLine(double from, double to);
  void piece(double from, double to);
  void outerLine(int side, double to);
  void lineToText(int side);
  void besideText(int side);
  void hookedText(int side);
  void drawOutside();
  void arrow(int side);

  Sketch sketch_;
  LinearFrame frame_;
  LinearText text_;
  int last_ = 2;  // the side of a text that is outside
};

void LinearDimension::extensionLine(int side) {
  const auto i = static_cast<std::size_t>(side - 1);
  if (sketch_.on(side == 1 ? dimRow("DIMSE1") : dimRow("DIMSE2")) || frame_.onLine[i]) return;
  const Vec away = frame_.beyond[i];
  Vec from = frame_.origins[i] + sketch_.offset * away;
  if (sketch_.on(dimRow("DIMFXLON"))) {  // the offset is the least distance, then
    const Vec fixed = frame_.feet[i] - figure().scale * sketch_.real(dimRow("DIMFXL")) * away;
    if (dot(fixed - from, away) > 0) from = fixed;
  }
  const double past = text_.overExtension == side ? text_.extensionBeyond : 0;
  sketch_.extensionLine(side, from, frame_.feet[i] + std::max(sketch_.extension, past) * away);
}

// Where the dimension line ends inside, along the line: before an arrow, beyond the extension line with a
// stroke.
double LinearDimension::lineEnd(int side) const {
  const double cut = sketch_.cut(side);
  const double inwards = cut > 0 ? cut : -sketch_.lineExtension;
  return side == 1 ? inwards : frame_.length - inwards;
}

void LinearDimension::piece(double from, double to) { sketch_.dimensionLine(frame_.at(from), frame_.at(to)); }

// In two pieces where the text breaks it; without one of them where that is suppressed, and then a whole line
// ends at the text's middle.
void LinearDimension::innerLine(double from, double to) {
  const bool inside = text_.fit.textInside && sketch_.hasText() && text_.overExtension == 0;
  if (!text_.breaksLine && wanted(1) && wanted(2)) {
    if (from < to) piece(isTurned() ? to : from, isTurned() ? from : to);
    return;
  }
  const double middle = inside ? text_.place : frame_.length / 2;
  const double half = text_.breaksLine ? sketch_.halfAlong(frame_.run, text_.stand.rotation) : 0;
  const double left = std::min(middle - half, to), right = std::max(middle + half, from);
  if (wanted(1) && from < left) piece(from, left);
  if (wanted(2) && right < to) piece(to, right);
}

// Beyond the extension line, from the arrow outwards.
void LinearDimension::outerLine(int side, double to) {
  const double from = text_.fit.arrowsInside ? 0 : sketch_.cut(side);
  if (!wanted(side) || text_.fit.arrowsDropped || to <= from) return;
  sketch_.dimensionLine(foot(side) + from * outOf(side), foot(side) + to * outOf(side));
}

void LinearDimension::lineToText(int side) {
  text_.stand = standOn(sketch_, frame_.run, false, frame_.outward);
  const double rotation = text_.stand.rotation;
  const bool turned = figure().textRotation != 0;
  if (turned || isLevel(frame_.run, rotation)) {
    besideText(side);
  } else {
    hookedText(side);
  }
}

// A person's place never brings a text nearer to the extension line than it would be without.
void LinearDimension::besideText(int side) {
  const Vec out = outOf(side);
  const double half = sketch_.halfAlong(out, text_.stand.rotation);
  double middle = 2 * sketch_.arrowSize + half;
  if (figure().userText) middle = std::max(middle, dot(figure().text - foot(side), out));
  outerLine(side, text_.stand.breaksLine ? middle - half : middle + half);
  text_.middle = foot(side) + middle * out + text_.stand.lift * text_.stand.up;
}

// The text is level and the line is not: the line ends at the text's height.
void LinearDimension::hookedText(int side) {
  constexpr double kUpright = 1e-9;  // a text at a line straight up or down goes to the left
  const Vec out = outOf(side), right = direction(text_.stand.rotation);
  double reach = 2 * sketch_.arrowSize;
  if (figure().userText) {
    reach = std::max(reach, cross(right, figure().text - foot(side)) / cross(right, out));
  }
  const Vec knee = foot(side) + reach * out;
  const bool toRight = figure().userText ? dot(figure().text - knee, right) > 0 : dot(out, right) > kUpright;
  const Vec to = toRight ? right : -right;
  outerLine(side, reach);
  if (wanted(side) && !text_.fit.arrowsDropped) {
    text_.middle = drawHook(sketch_, knee, to);
  } else {
    text_.middle = knee + hookReach(sketch_, to);
  }
}

void LinearDimension::drawOutside() {
  const int first = 3 - last_;
  const auto stub = [&](int side) { outerLine(side, sketch_.cut(side) + sketch_.arrowSize); };
  stub(first);
  if (text_.fit.textInside) {
    stub(last_);
  } else {
    lineToText(last_);
  }
  if (sketch_.on(dimRow("DIMTOFL"))) innerLine(0, frame_.length);
}

void LinearDimension::arrow(int side) {
  if (!wanted(side) || text_.fit.arrowsDropped) return;
  const Vec points = text_.fit.arrowsInside ? outOf(side) : -outOf(side);
  sketch_.arrow(side, foot(side), points, leftOf(frame_.along));
}

DimPicture LinearDimension::draw() {
  extensionLine(1);
  extensionLine(2);
  if (text_.fit.arrowsInside) {
    innerLine(lineEnd(1), lineEnd(2));
    if (!text_.fit.textInside) lineToText(last_);
  } else {
    drawOutside();
  }
  if (text_.leader) drawLeader(sketch_, *text_.leader);
  arrow(isTurned() ? 2 : 1);
  arrow(isTurned() ? 1 : 2);
  sketch_.text(text_.middle, text_.stand.rotation);
  for (const DimPoint point : {DimPoint::kFirst, DimPoint::kSecond, DimPoint::kLine}) sketch_.point(point);
  return sketch_.take();
}

}  // namespace

DimPicture drawLinear(const DimFigure& figure) { return LinearDimension(figure).draw(); }

}  // namespace cad
