#pragma once
// A raster for pictures that are looked at from afar: lines and areas at twice the resolution, which averages
// them when it is shown. It takes a hundredth of the time of a painter that knows the exact share of each
// pixel.

#include <cstdint>
#include <utility>
#include <vector>

#include "cli/reports/indexed_png.h"
#include "embedded/graphics/pictures/picture.h"

namespace kivcli {

class Sketch {
 public:
  static constexpr int kFineness = 2;  // pixels of the sketch to one of the picture, each way

  explicit Sketch(const cad::Picture& picture);

  void paint(const std::vector<cad::PictureShape>& shapes);
  // As one sheet, where shapes of it overlap the last one counts. Ends and corners are square, the width of
  // one colour is that of its first line: bands around thousands of lines take as long as those around a few.
  void paintSheet(const std::vector<cad::PictureShape>& shapes, std::uint8_t opacity);

  // Each pixel the average of `step` by `step` of the sketch.
  ColorImage shown(int step) const;

 private:
  struct Point {
    double x = 0, y = 0;
  };
  struct Crossing {  // of an edge with the middle of a row
    int row = 0;
    double x = 0;
    int direction = 0;
  };

  void paint(const cad::PictureShape& shape);
  void takePoints(const cad::PictureRun& run);
  template <class Paint>
  void eachSpan(const cad::PictureShape& area, Paint paint);
  void stroke(double width, bool closed);
  void thinLine(Point from, Point to, int width);
  void thickLine(Point from, Point to, double radius);
  bool cut(Point& from, Point& to, double margin) const;
  void paintSpan(int row, int from, int to);
  void takeClip(std::uint32_t clip);

  const cad::Picture& picture_;
  int width_, height_;
  std::vector<std::uint32_t> pixels_, sheet_, layer_;  // the last: of one colour of the sheet
  std::vector<std::uint32_t>* to_ = &pixels_;
  std::uint32_t color_ = 0;
  unsigned opacity_ = 255;
  std::uint32_t clip_ = cad::kNoClip;
  std::vector<std::uint8_t> isClear_;  // where the clip lets something show
  std::vector<Point> points_;          // of the run that is painted
  std::vector<Crossing> crossings_;
  std::vector<std::pair<int, int>> rows_;  // of a thick line
};

}  // namespace kivcli
