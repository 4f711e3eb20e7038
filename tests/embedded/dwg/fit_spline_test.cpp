#include "embedded/dwg/fit_spline.h"

#include <gtest/gtest.h>

#include <cmath>

#include "embedded/dwg/fields/field.h"

namespace cad::dwg {
namespace {

TEST(FitSpline, OfTwoPointsFollowsTheTangents) {
  const SplineGeometry spline =
      splineThrough({{{0, 0, 0}, {3, 0, 1}}, {3, 6, 0}, {0, -3, 0}, FitSteps::kEven});
  const std::vector<Point> control = {{0, 0, 0}, {1, 2, 0}, {3, 1, 1}, {3, 0, 1}};
  ASSERT_EQ(spline.control.size(), control.size());
  for (std::size_t i = 0; i < control.size(); ++i) EXPECT_TRUE(same(spline.control[i], control[i])) << i;
  EXPECT_EQ(spline.knots, (std::vector<double>{0, 0, 0, 0, 1, 1, 1, 1}));
}

// By de Boor's recursion.
Point at(const SplineGeometry& spline, double t) {
  std::size_t span = 3;
  while (span + 1 < spline.control.size() && spline.knots[span + 1] <= t) ++span;
  Point d[4];
  for (std::size_t j = 0; j < 4; ++j) d[j] = spline.control[span - 3 + j];
  for (std::size_t r = 1; r < 4; ++r)
    for (std::size_t j = 3; j >= r; --j) {
      const double low = spline.knots[span - 3 + j], high = spline.knots[span + 1 + j - r];
      const double share = (t - low) / (high - low);
      d[j] = {d[j - 1].x + share * (d[j].x - d[j - 1].x), d[j - 1].y + share * (d[j].y - d[j - 1].y), 0};
    }
  return d[3];
}

TEST(FitSpline, GoesThroughItsPointsAndBendsNowhereAtFreeEnds) {
  const std::vector<Point> points = {{0, 0}, {4, 3}, {4, 9}, {-5, -3}, {1, 1}};
  for (const FitSteps steps : {FitSteps::kChord, FitSteps::kRootOfChord, FitSteps::kEven}) {
    const SplineGeometry spline = splineThrough({points, {}, {}, steps});
    ASSERT_EQ(spline.control.size(), points.size() + 2);
    ASSERT_EQ(spline.knots.size(), spline.control.size() + 4);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Point there = at(spline, spline.knots[i + 3] - (i + 1 == points.size() ? 1e-12 : 0));
      EXPECT_NEAR(there.x, points[i].x, 1e-9) << i;
      EXPECT_NEAR(there.y, points[i].y, 1e-9) << i;
    }
    const double first = spline.knots[4];
    const Point a = at(spline, 0), b = at(spline, first / 1000), c = at(spline, first / 500);
    EXPECT_NEAR(std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y), 0, 1e-6);
  }
}

TEST(FitSpline, IsNoneWherePointsMeet) {
  EXPECT_TRUE(splineThrough({{{1, 1}, {1, 1}, {2, 2}}, {}, {}, FitSteps::kEven}).control.empty());
  EXPECT_TRUE(splineThrough({{{1, 1}}, {}, {}, FitSteps::kEven}).control.empty());
}

}  // namespace
}  // namespace cad::dwg
