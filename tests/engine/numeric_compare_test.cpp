#include "engine/numeric_compare.h"

#include <gtest/gtest.h>

namespace {

TEST(NumericCompare, SixDecimalsDecide) {
  EXPECT_TRUE(kiv::equalNumbers(2.5, 2.5000004));
  EXPECT_FALSE(kiv::equalNumbers(2.5, 2.500002));
  EXPECT_TRUE(kiv::equalNumbers(0.1 + 0.2, 0.3));
  EXPECT_FALSE(kiv::equalNumbers(1e15, 1e15 + 2));
}

TEST(NumericCompare, AnglesPointTheSameWay) {
  EXPECT_TRUE(kiv::equalAngles(360, 0));
  EXPECT_TRUE(kiv::equalAngles(-90, 270));
  EXPECT_TRUE(kiv::equalAngles(359.99999999, 0));
  EXPECT_TRUE(kiv::equalAngles(-1e-9, 0));
  EXPECT_FALSE(kiv::equalAngles(90, 270));
  EXPECT_DOUBLE_EQ(kiv::normalisedDegrees(725), 5);
}

}  // namespace
