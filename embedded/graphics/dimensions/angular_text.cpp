#include "embedded/graphics/dimensions/angular_text.h"

#include <algorithm>
#include <numbers>

namespace cad {
namespace {

constexpr double kQuarter = std::numbers::pi / 2;

// Whether the arc runs through the text's box with its gaps at an angle.
bool covers(const Sketch& sketch, const MeasuredArc& arc, const AngularText& text, double angle) {
  const TextBox& box = sketch.figure().box;
  const Vec along = direction(text.rotation), off = arc.at(angle) - text.middle;
  return std::abs(dot(off, along)) <= box.width / 2 + sketch.gap &&
         std::abs(cross(along, off)) <= box.height / 2 + sketch.gap;
}

class Placing {
 public:
  Placing(const Sketch& sketch, const MeasuredArc& arc)
      : sketch_(sketch), arc_(arc), figure_(sketch.figure()) {}
  AngularText text();

 private:
  std::int64_t justify() const { return sketch_.integer(dimRow("DIMJUST")); }
  std::int64_t movement() const { return sketch_.integer(dimRow("DIMTMOVE")); }
  double half() const { return figure_.box.width / 2 + sketch_.gap; }
  Vec outwards(double angle) const;

  double defaultPlace() const;
  bool isMoved() const;
  TextWish wish() const;
  void standAt(double angle, bool inside);
  void standOver(int end);
  void standMoved();
  void standCrowdedOut();
  void standOutside();
  void standBesideEnd(double knee, int way);

  const Sketch& sketch_;
  const MeasuredArc& arc_;
  const DimFigure& figure_;
  TextStand stand_;
  AngularText text_;
};

// Away from what is measured.
Vec Placing::outwards(double angle) const {
  const bool isWithin = std::min(arc_.reaches[0].from, arc_.reaches[1].from) > arc_.radius;
  return isWithin ? -direction(angle) : direction(angle);
}

// Next to an extension line as with a straight dimension line.
double Placing::defaultPlace() const {
  if (justify() != Justify::kAtFirst && justify() != Justify::kAtSecond) return arc_.middle();
  const double arrow = arc_.overChord(sketch_.arrowSize), half = arc_.over(this->half());
  const double next = std::min(2 * arrow + half, std::max(arc_.sweep / 2, arc_.sweep - arrow - half));
  return justify() == Justify::kAtFirst ? arc_.start + next : arc_.end() - next;
}

// The record's place of a text that keeps its place along the arc is on the arc itself.
bool Placing::isMoved() const {
  if (!figure_.userText || movement() == Movement::kLineFollows) return false;
  return std::abs(distance(figure_.text, arc_.vertex) - arc_.radius) > kOffLine * figure_.textHeight;
}

TextWish Placing::wish() const {
  if (!figure_.userText) return TextWish::kByRules;
  return !isMoved() && arc_.holds(text_.place) ? TextWish::kInside : TextWish::kOutside;
}

void Placing::standAt(double angle, bool inside) {
  stand_ = standOn(sketch_, arc_.tangent(angle), inside, outwards(angle));
  text_.place = angle;
  text_.rotation = stand_.rotation;
  text_.middle = arc_.at(angle) + stand_.lift * stand_.up;
  text_.breaksArc = stand_.breaksLine;
}

// Along the extension line: on it beyond its end, or beside it, and then the line runs on.
void Placing::standOver(int end) {
  const double angle = arc_.angle(end);
  const Vec beyond = arc_.reaches[static_cast<std::size_t>(end) - 1].from > arc_.radius ? -direction(angle)
                                                                                        : direction(angle);
  const Vec awayFromArc = end == 1 ? -arc_.tangent(angle) : arc_.tangent(angle);
  const TextStand stand = standTurned(sketch_, beyond, sketch_.readableLine(beyond), awayFromArc);
  double start = sketch_.gap;
  if (stand.breaksLine) {
    start += sketch_.extension;
  } else {
    text_.extensionBeyond = 2 * half();
  }
  text_.overExtension = end;
  text_.rotation = stand.rotation;
  text_.middle = arc_.at(angle) + (start + figure_.box.width / 2) * beyond + stand.lift * stand.up;
}

// As far from the arc as a person moved it: a leader to a text close to it would be shorter than its hook.
void Placing::standMoved() {
  const double taken = sketch_.halfAcross(arc_.tangent(text_.place), text_.rotation) + sketch_.gap;
  const double off = std::abs(distance(figure_.text, arc_.vertex) - arc_.radius);
  text_.middle = figure_.text;
  text_.breaksArc = arc_.holds(text_.place) && stand_.breaksLine && off < taken;
  const double half = arc_.over(this->half());
  const bool isBeside = text_.place < arc_.start - half || text_.place > arc_.end() + half;
  if (movement() != Movement::kWithLeader || (!isBeside && off <= taken + sketch_.arrowSize)) return;
  text_.leader = leaderTo(sketch_, arc_.at(arc_.middle()), text_.middle, text_.rotation);
}

// A text that finds no room leaves the arc where it is: it stands over it, or beside it on a leader.
void Placing::standCrowdedOut() {
  text_.breaksArc = false;
  if (movement() == Movement::kFree) {
    const double off = sketch_.gap + sketch_.halfAcross(arc_.tangent(text_.place), text_.rotation);
    text_.middle = arc_.at(text_.place) + std::copysign(off, stand_.lift) * stand_.up;
    return;
  }
  standAt(arc_.middle(), false);
  text_.breaksArc = false;
  text_.leader = leaderAside(sketch_, arc_.at(arc_.middle()), outwards(arc_.middle()), text_.rotation);
  text_.middle = text_.leader->knee + hookReach(sketch_, text_.leader->to);
}

// The arc goes on to the text: on the user's side, else beyond its second end.
void Placing::standOutside() {
  if (figure_.userText) {
    const int way = text_.place < arc_.start ? -1 : 1;
    standAt(text_.place, false);
    text_.reach = text_.breaksArc ? edgeOfText(sketch_, arc_, text_, -way)
                                  : text_.place + way * std::min(kQuarter, arc_.over(half()));
    return;
  }
  const int way = justify() == Justify::kAtFirst ? -1 : 1;
  standBesideEnd((way < 0 ? arc_.start : arc_.end()) + way * 2 * arc_.overChord(sketch_.arrowSize), way);
}

void Placing::standBesideEnd(double knee, int way) {
  const double half = arc_.over(this->half());
  const bool bends = half > kQuarter;  // too much for a text along it
  standAt(bends ? knee : knee + way * half, false);
  text_.reach = text_.breaksArc ? knee : text_.place + way * half;
  if (!bends && isLevel(arc_.tangent(text_.place), text_.rotation)) return;
  // Else the text stands beside the arc's end, without the hook that a line makes.
  const Vec reading = direction(text_.rotation);
  const double side = way * dot(arc_.tangent(knee), reading) < -1e-9 ? -1 : 1;
  text_.reach = knee;
  text_.middle = arc_.at(knee) + side * this->half() * reading;
}

AngularText Placing::text() {
  const bool isOver = sketch_.hasText() && !figure_.userText && justify() >= Justify::kOverFirst;
  text_.place = figure_.userText ? arc_.near(angleOf(figure_.text - arc_.vertex)) : defaultPlace();
  standAt(text_.place, true);
  const bool isOnArc = sketch_.hasText() && !isOver;
  text_.breaksArc = text_.breaksArc && isOnArc;
  const double needed = isOnArc ? 2 * sketch_.halfAlong(arc_.tangent(text_.place), text_.rotation) : 0;
  text_.fit = fitBetween(sketch_, arc_.radius * arc_.sweep, needed, text_.breaksArc, wish());
  const bool isOutside = isOnArc && !text_.fit.textInside && !isMoved();
  const bool isCrowdedOut = isOutside && !figure_.userText && movement() != Movement::kLineFollows;
  text_.fit.textInside = !isOutside || isCrowdedOut;
  if (isOver) {
    standOver(justify() == Justify::kOverFirst ? 1 : 2);
  } else if (isCrowdedOut) {
    standCrowdedOut();
  } else if (isOutside) {
    standOutside();
  } else if (isOnArc && isMoved()) {
    standMoved();
  }
  text_.breaksArc = text_.breaksArc && text_.fit.textInside && covers(sketch_, arc_, text_, text_.place);
  return text_;
}

}  // namespace

AngularText standAngularText(const Sketch& sketch, const MeasuredArc& arc) {
  return Placing(sketch, arc).text();
}

double edgeOfText(const Sketch& sketch, const MeasuredArc& arc, const AngularText& text, int towards) {
  double covered = 0, free = kQuarter;
  for (int i = 0; i < 60; ++i) {
    const double between = (covered + free) / 2;
    (covers(sketch, arc, text, text.place + towards * between) ? covered : free) = between;
  }
  return text.place + towards * covered;
}

}  // namespace cad
