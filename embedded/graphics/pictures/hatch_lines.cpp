#include "embedded/graphics/pictures/hatch_lines.h"

#include <algorithm>
#include <cmath>

namespace cad {
namespace {

// Pixels from where the pattern begins. Farther off a dash is less than what numbers can tell.
constexpr double kFarthest = 1e9;

// One family of parallel lines, in pixels.
class Family {
 public:
  Family(const SceneHatchLine& line, const PixelView& view) : base_(view.point(line.base.x, line.base.y)) {
    const PixelPoint along = view.vector(line.along.x, line.along.y);
    const PixelPoint offset = view.vector(line.offset.x, line.offset.y);
    const double length = std::hypot(along.x, along.y);
    if (!(length > 0)) return;
    along_ = {along.x / length, along.y / length};
    step_ = across(offset);
    shift_ = alongOf(offset);
    if (step_ < 0) step_ = -step_, shift_ = -shift_;
    for (const double dash : line.dashes) {
      dashes_.push_back(dash * length);
      period_ += std::abs(dash) * length;
    }
    if (period_ < kLeastHatchStep) dashes_.clear();
    if (!dashes_.empty()) shift_ = std::fmod(shift_, period_);
  }

  bool canBeTold() const { return step_ >= kLeastHatchStep; }

  // Where each line crosses the boundary; false when there are too many lines, or the pattern begins too far
  // off.
  bool cross(std::span<const std::vector<PixelPoint>> boundary) {
    double least = 0, most = 0;
    bool any = false;
    for (const auto& loop : boundary) {
      for (const PixelPoint& at : loop) {
        if (!(std::hypot(at.x - base_.x, at.y - base_.y) <= kFarthest)) return false;
        const double place = across(at, base_);
        least = any ? std::min(least, place) : place;
        most = any ? std::max(most, place) : place;
        any = true;
      }
    }
    if (!any) return true;
    first_ = std::ceil(least / step_);
    const double count = std::floor(most / step_) - first_ + 1;
    if (count < 1) return true;
    if (count > static_cast<double>(kMostHatchPieces)) return false;
    crossings_.resize(static_cast<std::size_t>(count));
    for (const auto& loop : boundary)
      for (std::size_t i = 0; i < loop.size(); ++i) crossEdge(loop[i], loop[(i + 1) % loop.size()]);
    return true;
  }

  // How many pieces there will be, about.
  double pieces() const {
    double sum = 0;
    for (const std::vector<double>& line : crossings_) {
      if (line.size() < 2) continue;
      const auto [least, most] = std::ranges::minmax(line);
      const double each = dashes_.empty() ? 1 : static_cast<double>(dashes_.size());
      sum += dashes_.empty() ? static_cast<double>(line.size()) : each * (1 + (most - least) / period_);
    }
    return sum;
  }

  void draw(const std::function<void(std::span<const PixelPoint>)>& sink) {
    for (std::size_t i = 0; i < crossings_.size(); ++i) {
      std::vector<double>& line = crossings_[i];
      std::ranges::sort(line);
      const double number = first_ + static_cast<double>(i);
      const PixelPoint origin{base_.x + number * (shift_ * along_.x - step_ * along_.y),
                              base_.y + number * (shift_ * along_.y + step_ * along_.x)};
      const double begin = alongOf({origin.x - base_.x, origin.y - base_.y});
      for (std::size_t k = 0; k + 1 < line.size(); k += 2)
        drawPiece(origin, line[k] - begin, line[k + 1] - begin, sink);
    }
  }

 private:
  double alongOf(PixelPoint of) const { return of.x * along_.x + of.y * along_.y; }
  double across(PixelPoint of) const { return of.y * along_.x - of.x * along_.y; }
  double across(PixelPoint at, PixelPoint from) const { return across({at.x - from.x, at.y - from.y}); }

  void crossEdge(PixelPoint from, PixelPoint to) {
    double low = across(from, base_), high = across(to, base_);
    if (low > high) {
      std::swap(low, high);
      std::swap(from, to);
    }
    for (double line = std::ceil(low / step_); line * step_ < high; ++line) {
      const double share = (line * step_ - low) / (high - low);
      const PixelPoint at{from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
      const auto place = static_cast<std::ptrdiff_t>(line - first_);
      if (place >= 0 && static_cast<std::size_t>(place) < crossings_.size())
        crossings_[static_cast<std::size_t>(place)].push_back(alongOf({at.x - base_.x, at.y - base_.y}));
    }
  }

  // From one place to another on the line whose dashes begin at `origin`.
  void drawPiece(PixelPoint origin, double from, double to,
                 const std::function<void(std::span<const PixelPoint>)>& sink) const {
    const auto at = [&](double place) {
      return PixelPoint{origin.x + place * along_.x, origin.y + place * along_.y};
    };
    if (dashes_.empty()) {
      const PixelPoint ends[] = {at(from), at(to)};
      sink(ends);
      return;
    }
    double place = std::floor(from / period_) * period_;
    for (std::size_t i = 0; place <= to; ++i) {
      const double dash = dashes_[i % dashes_.size()];
      const double begin = std::max(place, from), end = std::min(place + dash, to);
      place += std::abs(dash);
      const PixelPoint ends[] = {at(begin), at(end)};
      if (dash > 0 && begin < end) sink(ends);
      if (dash == 0 && begin <= end) sink(std::span(ends).first(1));
    }
  }

  PixelPoint base_, along_{1, 0};
  double step_ = 0, shift_ = 0, period_ = 0, first_ = 0;
  std::vector<double> dashes_;
  std::vector<std::vector<double>> crossings_;  // by line, along it from the base
};

}  // namespace

bool drawHatchLines(std::span<const SceneHatchLine> lines, std::span<const std::vector<PixelPoint>> boundary,
                    const PixelView& view, const std::function<void(std::span<const PixelPoint>)>& draw) {
  std::vector<Family> families;
  double pieces = 0;
  for (const SceneHatchLine& line : lines) {
    Family& family = families.emplace_back(line, view);
    if (!family.canBeTold() || !family.cross(boundary)) return false;
    pieces += family.pieces();
    if (!(pieces <= static_cast<double>(kMostHatchPieces))) return false;
  }
  for (Family& family : families) family.draw(draw);
  return true;
}

}  // namespace cad
