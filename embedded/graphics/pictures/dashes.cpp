#include "embedded/graphics/pictures/dashes.h"

#include <algorithm>
#include <cmath>

namespace cad {
namespace {

double distance(PixelPoint a, PixelPoint b) { return std::hypot(b.x - a.x, b.y - a.y); }

// A walk along a line.
class Walk {
 public:
  explicit Walk(std::span<const PixelPoint> line) : line_(line), at_(line.front()) {}

  bool atEnd() const { return next_ >= line_.size(); }
  PixelPoint at() const { return at_; }

  PixelPoint direction() const {
    std::size_t to = std::min(next_, line_.size() - 1);
    while (to > 1 && distance(line_[to - 1], line_[to]) == 0) --to;
    const double length = distance(line_[to - 1], line_[to]);
    if (length == 0) return {1, 0};
    return {(line_[to].x - line_[to - 1].x) / length, (line_[to].y - line_[to - 1].y) / length};
  }

  // The way passed is appended to `passed`, without where it begins.
  void advance(double by, std::vector<PixelPoint>& passed) {
    while (!atEnd()) {
      const double rest = distance(at_, line_[next_]);
      if (rest > by) {
        const double share = by / rest;
        at_ = {at_.x + (line_[next_].x - at_.x) * share, at_.y + (line_[next_].y - at_.y) * share};
        passed.push_back(at_);
        return;
      }
      by -= rest;
      at_ = line_[next_++];
      passed.push_back(at_);
    }
  }

 private:
  std::span<const PixelPoint> line_;
  PixelPoint at_;
  std::size_t next_ = 1;
};

}  // namespace

bool drawDashes(std::span<const PixelPoint> line, std::span<const Dash> pattern, double scale,
                const DashSink& sink) {
  double period = 0, length = 0;
  for (const Dash& dash : pattern) period += std::abs(dash.length) * scale;
  for (std::size_t i = 1; i < line.size(); ++i) length += distance(line[i - 1], line[i]);
  if (!(period >= kLeastPeriod) || length / period > kMostPeriods) return false;
  if (line.size() < 2 || length < period) {
    sink.dash(line);
    return true;
  }
  const double first = pattern.front().length * scale;
  const double rest = length - period * std::floor(length / period);
  Walk walk(line);
  std::vector<PixelPoint> passed;
  for (std::size_t i = 0; !walk.atEnd(); ++i) {
    const Dash& dash = pattern[i % pattern.size()];
    double size = std::abs(dash.length) * scale;
    if (i == 0 && first > 0) size = (first + rest) / 2;
    passed.assign(1, walk.at());
    if (size > 0) walk.advance(size, passed);
    if (dash.length >= 0) sink.dash(passed);
    if (dash.symbol && !walk.atEnd()) sink.symbol(*dash.symbol, walk.at(), walk.direction());
  }
  return true;
}

}  // namespace cad
