#include "embedded/graphics/curves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "embedded/graphics/bulge_arc.h"

namespace cad {
namespace {

TEST(Curves, ArcsAreFlattenedWithinTheTolerance) {
  for (const double tolerance : {1.0, 0.01, 0.0001}) {
    const CurvePoints circle = curveOf(ArcGeometry{{3, 4, 0}, 10, 0, 360});
    ASSERT_TRUE(circle.closed);
    std::vector<ScenePoint> pieces;
    flatten(circle.points, true, tolerance, pieces);
    for (std::size_t i = 1; i < pieces.size(); ++i) {
      EXPECT_NEAR(std::hypot(pieces[i].x - 3, pieces[i].y - 4), 10, 1e-9);
      const double x = (pieces[i].x + pieces[i - 1].x) / 2 - 3, y = (pieces[i].y + pieces[i - 1].y) / 2 - 4;
      EXPECT_LE(10 - std::hypot(x, y), tolerance * 1.01);
    }
    EXPECT_NEAR(pieces.front().x, pieces.back().x, 1e-9);
  }
}

TEST(Curves, RationalSplinesAreTheConicsThatTheyStandFor) {
  SplineGeometry quarter;
  quarter.degree = 2;
  quarter.knots = {0, 0, 0, 1, 1, 1};
  quarter.control = {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  quarter.weights = {1, std::sqrt(0.5), 1};
  const CurvePoints curve = curveOf(quarter);
  ASSERT_GT(curve.points.size(), 8u);
  for (const ScenePoint& point : curve.points) EXPECT_NEAR(std::hypot(point.x, point.y), 1, 1e-12);
}

TEST(Curves, SplinesWithBrokenKnotsOrFitPointsAlone) {
  SplineGeometry spline;
  spline.degree = 3;
  spline.knots = {5, 1, 0};
  spline.control = {{0, 0, 0}, {1, 2, 0}, {3, 2, 0}, {4, 0, 0}, {6, 0, 0}};
  const CurvePoints broken = curveOf(spline);
  EXPECT_NEAR(broken.points.front().x, 0, 1e-12);
  EXPECT_NEAR(broken.points.back().x, 6, 1e-12);
  SplineGeometry fitted;
  fitted.fit = {{0, 0, 0}, {1, 1, 0}, {2, 0, 0}};
  const CurvePoints curve = curveOf(fitted);
  EXPECT_EQ(std::ranges::count_if(
                curve.points, [](const ScenePoint& at) { return std::hypot(at.x - 1, at.y - 1) < 1e-12; }),
            1);
  EXPECT_TRUE(curveOf(SplineGeometry{}).points.empty());
}

}  // namespace
}  // namespace cad
