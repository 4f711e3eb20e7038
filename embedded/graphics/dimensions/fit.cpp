#include "embedded/graphics/dimensions/fit.h"

namespace cad {
namespace {

constexpr double kParallel = 1e-9;
constexpr double kLeastLiftOfWholeLine = 0.7;  // DIMTVP: nearer to the line, the text breaks it

double lifted(const Sketch& sketch, Vec line, double rotation) {
  return sketch.gap + sketch.halfAcross(line, rotation);
}

// Of a text along a line that runs through where \X parts it.
std::optional<double> partedLift(const Sketch& sketch) {
  const TextBox& box = sketch.figure().box;
  if (!box.parting) return std::nullopt;
  return box.height / 2 - *box.parting;
}

}  // namespace

Fit fitBetween(const Sketch& sketch, double room, double text, bool breaksLine, TextWish wish) {
  const double arrows = 2 * sketch.arrowSize;
  const bool forced = sketch.on(dimRow("DIMTIX"));
  const bool both = room >= text + arrows, onlyText = room >= text, onlyArrows = room >= arrows;
  const auto rule = sketch.integer(dimRow("DIMATFIT"));
  Fit fit;
  if (wish == TextWish::kByRules) {
    fit.textInside =
        both || forced || (onlyText && (rule == FitRule::kArrowsFirst || rule == FitRule::kBestFit));
  } else {
    fit.textInside = wish == TextWish::kInside;
  }
  const bool textStays = wish != TextWish::kOutside && onlyText;
  fit.arrowsInside =
      both || (onlyArrows && (rule == FitRule::kTextFirst || (rule == FitRule::kBestFit && !textStays)));
  // A text that is kept in its place leaves the arrows none where it breaks the line.
  if (forced && !both && fit.textInside && breaksLine) fit.arrowsInside = false;
  fit.arrowsDropped = forced && !fit.arrowsInside && sketch.on(dimRow("DIMSOXD"));
  return fit;
}

bool isLevel(Vec line, double textRotation) {
  return std::abs(cross(line, direction(textRotation))) < kParallel;
}

TextStand standOn(const Sketch& sketch, Vec line, bool inside, Vec outward) {
  return standTurned(sketch, line, sketch.textAngle(line, inside), outward);
}

TextStand standTurned(const Sketch& sketch, Vec line, double rotation, Vec outward) {
  TextStand stand;
  stand.rotation = rotation;
  stand.up = leftOf(direction(sketch.readableLine(line)));
  const double off = lifted(sketch, line, stand.rotation);
  const auto level = sketch.integer(dimRow("DIMTAD"));
  if (const std::optional<double> lift = partedLift(sketch); lift && isLevel(line, rotation)) {
    stand.lift = *lift;
    stand.breaksLine = false;
  } else if (level == TextLevel::kCentred) {
    const double factor = sketch.real(dimRow("DIMTVP"));
    stand.lift = factor * sketch.figure().textHeight;
    stand.breaksLine = std::abs(factor) < kLeastLiftOfWholeLine;
  } else if (level == TextLevel::kFarSide) {
    stand.lift = dot(outward, stand.up) < -kParallel ? -off : off;
    stand.breaksLine = false;
  } else if (isLevel(line, stand.rotation) || sketch.figure().textRotation != 0) {
    // A text that is only made horizontal stands on a sloping line, whatever is asked for.
    stand.lift = level == TextLevel::kBelow ? -off : off;
    stand.breaksLine = false;
  }
  return stand;
}

Vec hookReach(const Sketch& sketch, Vec to) {
  const Vec end = (sketch.arrowSize + sketch.gap + sketch.figure().box.width / 2) * to;
  const Vec up = leftOf(direction(sketch.readableLine(to)));
  if (const std::optional<double> lift = partedLift(sketch)) return end + *lift * up;
  const auto level = sketch.integer(dimRow("DIMTAD"));
  if (level == TextLevel::kCentred) return end;
  const double off = sketch.gap + sketch.figure().box.height / 2;
  return end + (level == TextLevel::kBelow ? -off : off) * up;
}

Vec drawHook(Sketch& sketch, Vec knee, Vec to) {
  double size = sketch.arrowSize;
  // Under a text that is off the line the hook runs on.
  if (sketch.integer(dimRow("DIMTAD")) != TextLevel::kCentred || partedLift(sketch))
    size += 2 * sketch.gap + sketch.figure().box.width;
  sketch.dimensionLine(knee, knee + size * to);
  return knee + hookReach(sketch, to);
}

Leader leaderTo(const Sketch& sketch, Vec from, Vec middle, double rotation) {
  const Vec reading = direction(rotation);
  const Vec to = dot(middle - from, reading) >= 0 ? reading : -reading;
  return {from, middle - hookReach(sketch, to), to};
}

Leader leaderAside(const Sketch& sketch, Vec from, Vec outward, double rotation) {
  const Vec reading = direction(rotation);
  const Vec to = sketch.integer(dimRow("DIMJUST")) == Justify::kAtFirst ? -reading : reading;
  return {from, from + 2 * sketch.arrowSize * (outward + to), to};
}

void drawLeader(Sketch& sketch, const Leader& leader) {
  sketch.dimensionLine(leader.from, leader.knee);
  drawHook(sketch, leader.knee, leader.to);
}

}  // namespace cad
