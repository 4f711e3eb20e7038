#pragma once
// What of arrows and text finds room between the extension lines, and how a text stands to the line that it
// belongs to.

#include <cstdint>

#include "embedded/graphics/dimensions/sketch.h"

namespace cad {

// What the variables' numbers mean.
struct FitRule {  // DIMATFIT
  static constexpr std::int64_t kArrowsFirst = 1, kTextFirst = 2, kBestFit = 3;
};
struct TextLevel {  // DIMTAD
  static constexpr std::int64_t kCentred = 0, kFarSide = 2, kBelow = 4;
};
struct Justify {  // DIMJUST
  static constexpr std::int64_t kAtFirst = 1, kAtSecond = 2, kOverFirst = 3;
};
struct Movement {  // DIMTMOVE
  static constexpr std::int64_t kLineFollows = 0, kWithLeader = 1, kFree = 2;
};

// A text farther off its line than this part of its height stands beside it.
inline constexpr double kOffLine = 1e-6;

// Where the text is to be, before anybody looks for room.
enum class TextWish : std::uint8_t {
  kByRules,
  kInside,   // a person put it between the extension lines
  kOutside,  // a person put it elsewhere
};

struct Fit {
  bool arrowsInside = true, textInside = true;
  bool arrowsDropped = false;  // nothing is drawn outside: neither arrows nor the lines that they stand on
};

// `room`: the length from one extension line to the other; `text`: what the text takes of it, with its gaps.
// `breaksLine`: the line has no place where the text is.
Fit fitBetween(const Sketch& sketch, double room, double text, bool breaksLine,
               TextWish wish = TextWish::kByRules);

struct TextStand {
  double rotation = 0;  // of the text
  Vec up;               // unit vector: what is above the line for a reader
  double lift = 0;      // of the text's middle over the line, below 0: under it
  bool breaksLine = true;
};

// `line`: unit vector along the line (the tangent of an arc). `inside`: between the extension lines.
// `outward`: unit vector away from the defining points.
TextStand standOn(const Sketch& sketch, Vec line, bool inside, Vec outward);
// The same with a rotation of the text that is already known.
TextStand standTurned(const Sketch& sketch, Vec line, double rotation, Vec outward);

// The direction of the text is that of the line, either way round.
bool isLevel(Vec line, double textRotation);

// A hook leaves a line's knee in the direction of its text, `to`, and has the text beyond its end, or above
// or below it where DIMTAD takes texts off their line. From the knee to the text's middle:
Vec hookReach(const Sketch& sketch, Vec to);
// Draws it; returns the text's middle.
Vec drawHook(Sketch& sketch, Vec knee, Vec to);

// DIMTMOVE: a line from the dimension line to a hook with a text that stands elsewhere.
struct Leader {
  Vec from, knee, to;
};
// To a text that stands at `middle`.
Leader leaderTo(const Sketch& sketch, Vec from, Vec middle, double rotation);
// To one that finds no room at `from`, on the side of `outward`.
Leader leaderAside(const Sketch& sketch, Vec from, Vec outward, double rotation);
void drawLeader(Sketch& sketch, const Leader& leader);

}  // namespace cad
