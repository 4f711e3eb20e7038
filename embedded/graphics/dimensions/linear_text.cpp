#include "embedded/graphics/dimensions/linear_text.h"

#include <algorithm>

namespace cad {
namespace {

// Twice the arrow's size and the gap lie between a text and the extension line that it is next to.
double defaultPlace(const Sketch& sketch, const LinearFrame& frame, double halfText) {
  const auto justify = sketch.integer(dimRow("DIMJUST"));
  const double next = std::min(2 * sketch.arrowSize + halfText,
                               std::max(frame.length / 2, frame.length - sketch.arrowSize - halfText));
  if (justify == Justify::kAtFirst) return next;
  return justify == Justify::kAtSecond ? frame.length - next : frame.length / 2;
}

// Along the extension line: on it beyond its end, or beside it, and then the line runs on.
void standOverExtension(const Sketch& sketch, const LinearFrame& frame, LinearText& text) {
  const auto side = static_cast<std::size_t>(text.overExtension - 1);
  const Vec beyond = frame.beyond[side];
  const double width = sketch.figure().box.width;
  text.fit.textInside = true;
  const Vec out = side == 0 ? -frame.run : frame.run;
  text.stand = standTurned(sketch, beyond, sketch.readableLine(beyond), out);
  double start = sketch.gap;
  if (text.stand.breaksLine) {
    start += sketch.extension;
  } else {
    text.extensionBeyond = 2 * sketch.gap + width;
  }
  text.middle = frame.feet[side] + (start + width / 2) * beyond + text.stand.lift * text.stand.up;
}

// As far from the line as a person moved it: a leader to a text close to it would be shorter than its hook.
void standMoved(const Sketch& sketch, const LinearFrame& frame, LinearText& text) {
  const double taken = sketch.halfAcross(frame.run, text.stand.rotation) + sketch.gap;
  const double half = sketch.halfAlong(frame.run, text.stand.rotation);
  text.fit.textInside = true;
  text.middle = sketch.figure().text;
  const double off = std::abs(cross(frame.run, text.middle - frame.feet[0]));
  text.breaksLine = text.stand.breaksLine && off < taken;
  const bool beside = text.place < -half || text.place > frame.length + half;
  if (sketch.integer(dimRow("DIMTMOVE")) != Movement::kWithLeader) return;
  if (!beside && off <= taken + sketch.arrowSize) return;
  text.leader = leaderTo(sketch, frame.at(frame.length / 2), text.middle, text.stand.rotation);
}

// A text that finds no room leaves the line where it is: it stands over it, or beside it on a leader.
void standCrowdedOut(const Sketch& sketch, const LinearFrame& frame, LinearText& text) {
  text.fit.textInside = true;
  if (sketch.integer(dimRow("DIMTMOVE")) == Movement::kFree) {
    const double off = sketch.gap + sketch.halfAcross(frame.run, text.stand.rotation);
    text.middle = frame.at(text.place) + std::copysign(off, text.stand.lift) * text.stand.up;
    return;
  }
  text.stand = standOn(sketch, frame.run, false, frame.outward);
  text.leader = leaderAside(sketch, frame.at(frame.length / 2), frame.outward, text.stand.rotation);
  text.middle = text.leader->knee + hookReach(sketch, text.leader->to);
}

// The record's place of a text that keeps its place along the line is on the line itself.
bool leavesLine(const DimFigure& figure, const LinearFrame& frame) {
  return std::abs(cross(frame.run, figure.text - frame.feet[0])) > kOffLine * figure.textHeight;
}

TextWish wishOf(const DimFigure& figure, bool moved, double place, double length) {
  if (!figure.userText) return TextWish::kByRules;
  return !moved && place >= 0 && place <= length ? TextWish::kInside : TextWish::kOutside;
}

}  // namespace

LinearText standLinearText(const Sketch& sketch, const LinearFrame& frame) {
  const DimFigure& figure = sketch.figure();
  const auto justify = sketch.integer(dimRow("DIMJUST"));
  const bool follows = sketch.integer(dimRow("DIMTMOVE")) == Movement::kLineFollows;
  const bool moved = figure.userText && !follows && leavesLine(figure, frame);
  LinearText text;
  text.stand = standOn(sketch, frame.run, true, frame.outward);
  const double half = sketch.halfAlong(frame.run, text.stand.rotation);
  text.place = figure.userText ? frame.placeOf(figure.text) : defaultPlace(sketch, frame, half);
  if (sketch.hasText() && !figure.userText && justify >= Justify::kOverFirst) {
    text.overExtension = justify == Justify::kOverFirst ? 1 : 2;
  }
  const bool onLine = sketch.hasText() && text.overExtension == 0;
  const TextWish wish = wishOf(figure, moved, text.place, frame.length);
  text.fit = fitBetween(sketch, frame.length, onLine ? 2 * half : 0, onLine && text.stand.breaksLine, wish);
  if (!sketch.hasText()) {
    text.fit.textInside = true;
  } else if (text.overExtension != 0) {
    standOverExtension(sketch, frame, text);
  } else if (moved) {
    standMoved(sketch, frame, text);
  } else if (!text.fit.textInside && !figure.userText && !follows) {
    standCrowdedOut(sketch, frame, text);
  } else {
    text.middle = frame.at(text.place) + text.stand.lift * text.stand.up;
    text.breaksLine = text.fit.textInside && text.stand.breaksLine;
  }
  return text;
}

int sideOutside(const Sketch& sketch, const LinearText& text) {
  if (sketch.figure().userText) return text.place < 0 ? 1 : 2;
  return sketch.integer(dimRow("DIMJUST")) == Justify::kAtFirst ? 1 : 2;
}

}  // namespace cad
