#include "embedded/graphics/fonts/shape_pen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "embedded/graphics/dimensions/plane.h"

namespace cad {
namespace {

using support::ShapeFile;

constexpr int kDeepest = 16;  // shapes in shapes
constexpr int kMostCommands =
    100000;  // of a shape with those in it: a damaged file may repeat itself for ever
constexpr double kOctant = std::numbers::pi / 4;
constexpr double kArcStep = std::numbers::pi / 12;  // of the pieces that an arc is drawn as

// The sixteen directions of a stroke, counter-clockwise from the right. A slanting one reaches as far along
// one axis as an upright one.
constexpr std::array<Vec, 16> kDirections = {{{1, 0},
                                              {1, .5},
                                              {1, 1},
                                              {.5, 1},
                                              {0, 1},
                                              {-.5, 1},
                                              {-1, 1},
                                              {-1, .5},
                                              {-1, 0},
                                              {-1, -.5},
                                              {-1, -1},
                                              {-.5, -1},
                                              {0, -1},
                                              {.5, -1},
                                              {1, -1},
                                              {1, -.5}}};

class Pen {
 public:
  Pen(const ShapeFile& file, std::vector<ShapeStroke>* strokes) : file_(file), strokes_(strokes) {}

  ShapeExtents draw(std::string_view codes) {
    run(codes, 0);
    extents_.endX = at_.x;
    return extents_;
  }

 private:
  // The commands of one shape.
  class Codes {
   public:
    explicit Codes(std::string_view codes) : rest_(codes) {}
    bool atEnd() const { return rest_.empty(); }
    int byte() {  // 0 where the shape has ended
      if (rest_.empty()) return 0;
      const auto value = static_cast<unsigned char>(rest_.front());
      rest_.remove_prefix(1);
      return value;
    }
    int signedByte() { return static_cast<signed char>(byte()); }
    int twoBytes() {
      const int high = byte();
      return high << 8 | byte();
    }

   private:
    std::string_view rest_;
  };

  enum Command : int {
    kEnd,
    kDown,
    kUp,
    kDivide,
    kMultiply,
    kPush,
    kPop,
    kSubshape,
    kMove,
    kMoves,
    kOctantArc,
    kFractionalArc,
    kBulge,
    kBulges,
    kVerticalOnly,
  };

  void run(std::string_view shape, int depth) {
    if (depth > kDeepest) return;
    Codes codes(shape);
    while (!codes.atEnd()) {
      if (++commands_ > kMostCommands) return;
      const int code = codes.byte();
      if (code == kEnd) return;
      if (code == kVerticalOnly) {
        skipNext_ = true;
        continue;
      }
      isSkipped_ = skipNext_;
      skipNext_ = false;
      if (code >> 4 != 0) {
        const double length = code >> 4;
        stroke(length * kDirections[static_cast<std::size_t>(code & 15)]);
      } else if (code == kSubshape) {
        subshape(codes, depth);
      } else {
        command(code, codes);
      }
    }
  }

  void command(int code, Codes& codes) {
    switch (code) {
      case kDown:
      case kUp:
        if (!isSkipped_) down_ = code == kDown;
        return;
      case kDivide:
        if (const int by = codes.byte(); by != 0 && !isSkipped_) scale_ /= by;
        return;
      case kMultiply:
        if (const int by = codes.byte(); by != 0 && !isSkipped_) scale_ *= by;
        return;
      case kPush:
        if (!isSkipped_) places_.push_back(at_);
        return;
      case kPop:
        if (isSkipped_ || places_.empty()) return;
        at_ = places_.back();
        places_.pop_back();
        return;
      case kMove:
        stroke(displacement(codes));
        return;
      case kMoves:
        for (Vec by = displacement(codes); by.x != 0 || by.y != 0; by = displacement(codes)) stroke(by);
        return;
      case kOctantArc:
        octantArc(codes);
        return;
      case kFractionalArc:
        fractionalArc(codes);
        return;
      case kBulge: {
        const Vec by = displacement(codes);
        bulge(by, codes.signedByte());
        return;
      }
      case kBulges:
        for (Vec by = displacement(codes); by.x != 0 || by.y != 0; by = displacement(codes))
          bulge(by, codes.signedByte());
        return;
      default:
        return;
    }
  }

  static Vec displacement(Codes& codes) {
    const double x = codes.signedByte(), y = codes.signedByte();
    return {x, y};
  }

  // A big font sets a shape into a box of its own: the cell, drawn as wide and as high as is told.
  void subshape(Codes& codes, int depth) {
    int number = file_.kind() == ShapeFile::Kind::kUnicodeFont ? codes.twoBytes() : codes.byte();
    const bool isBoxed = file_.kind() == ShapeFile::Kind::kBigFont && number == 0;
    if (!isBoxed) {
      if (!isSkipped_) run(file_.codes(number), depth + 1);
      return;
    }
    number = codes.twoBytes();
    const Vec corner = displacement(codes);
    const double width = codes.byte(), height = codes.byte();
    if (isSkipped_ || file_.cellWidth() == 0 || file_.capHeight() == 0) return;
    const Vec before = at_, stretch = stretch_;
    at_ = at_ + scaled(corner);
    stretch_ = {stretch.x * width / file_.cellWidth(), stretch.y * height / file_.capHeight()};
    run(file_.codes(number), depth + 1);
    at_ = before;
    stretch_ = stretch;
  }

  Vec scaled(Vec by) const { return {by.x * scale_ * stretch_.x, by.y * scale_ * stretch_.y}; }

  void stroke(Vec by) {
    if (isSkipped_) return;
    ink(at_);
    const Vec from = at_;
    at_ = at_ + scaled(by);
    ink(at_);
    draw(from, at_);
  }

  void draw(Vec from, Vec to) {
    if (!down_ || strokes_ == nullptr) return;
    const ShapePoint last = strokes_->empty() ? ShapePoint() : strokes_->back().back();
    if (strokes_->empty() || last.x != from.x || last.y != from.y) strokes_->push_back({{from.x, from.y}});
    strokes_->back().push_back({to.x, to.y});
  }

  void ink(Vec point) {
    if (!down_) return;
    if (!extents_.inked) {
      extents_.inked = true;
      extents_.left = extents_.right = point.x;
      extents_.bottom = extents_.top = point.y;
    }
    extents_.left = std::min(extents_.left, point.x), extents_.right = std::max(extents_.right, point.x);
    extents_.bottom = std::min(extents_.bottom, point.y), extents_.top = std::max(extents_.top, point.y);
  }

  // From an angle on; the pen stands where the arc begins. Below 0: clockwise.
  void arc(double radius, double start, double sweep) {
    if (isSkipped_) return;
    const Vec centre = at_ - scaled(radius * direction(start));
    const auto on = [&](double angle) { return centre + scaled(radius * direction(angle)); };
    ink(at_);
    const double low = std::min(start, start + sweep), high = std::max(start, start + sweep);
    constexpr double kQuarter = std::numbers::pi / 2;
    for (double quarter = std::ceil(low / kQuarter); quarter * kQuarter < high; ++quarter)
      ink(on(quarter * kQuarter));
    const double pieces = std::ceil(std::abs(sweep) / kArcStep);
    for (double piece = 1; piece <= pieces; ++piece)
      draw(on(start + sweep * (piece - 1) / pieces), on(start + sweep * piece / pieces));
    at_ = on(start + sweep);
    ink(at_);
  }

  // Its second byte: the octant in which it begins and how many it covers (0: all); below 0: clockwise.
  struct Octants {
    int first = 0, count = 0, turn = 1;
    explicit Octants(int byte) : turn(byte < 0 ? -1 : 1) {
      const int value = std::abs(byte);
      first = value >> 4 & 7;
      count = (value & 7) == 0 ? 8 : value & 7;
    }
  };

  void octantArc(Codes& codes) {
    const double radius = codes.byte();
    const Octants octants(codes.signedByte());
    arc(radius, octants.first * kOctant, octants.turn * octants.count * kOctant);
  }

  // Begins and ends within an octant: by as many 256th parts of it after where the octants begin, and behind
  // the beginning of the last one (0: at its end).
  void fractionalArc(Codes& codes) {
    const double after = codes.byte() / 256.0, before = codes.byte() / 256.0;
    const double radius = codes.twoBytes();
    const Octants octants(codes.signedByte());
    const double covered = octants.count - after - (before == 0 ? 0 : 1 - before);
    arc(radius, (octants.first + octants.turn * after) * kOctant, octants.turn * covered * kOctant);
  }

  // `height` is 127 times the tangent of a quarter of the arc's angle; 0: straight.
  void bulge(Vec by, int height) {
    const double chord = length(by);
    if (height == 0 || chord == 0) return stroke(by);
    const double quarter = std::atan(height / 127.0), sweep = 4 * quarter;
    const double radius = chord / (2 * std::abs(std::sin(sweep / 2)));
    const double outward = angleOf(by) - std::copysign(std::numbers::pi / 2, sweep);
    arc(radius, outward - sweep / 2, sweep);
  }

  const ShapeFile& file_;
  std::vector<ShapeStroke>* strokes_;
  ShapeExtents extents_;
  Vec at_, stretch_{1, 1};
  double scale_ = 1;
  bool down_ = true, skipNext_ = false, isSkipped_ = false;
  std::vector<Vec> places_;
  int commands_ = 0;
};

}  // namespace

ShapeExtents extentsOf(const ShapeFile& file, std::string_view codes, std::vector<ShapeStroke>* strokes) {
  return Pen(file, strokes).draw(codes);
}

}  // namespace cad
