#include "spec/item_tag.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(ItemTag, AFieldIsSetWithoutTouchingTheOthersOrLeftByAllOnes) {
  ItemTag tag(0x06031210);
  tag.set(ItemTag::kKeep, ItemTag::kKeep, 2, ItemTag::kKeep, -1);
  EXPECT_EQ(tag, ItemTag::pack(6, Level::kItem, Role::kResult, Sense::kInverted, 16));
  tag.set(10, 2, ItemTag::kKeep, 1, 55);
  EXPECT_EQ(tag.value(), 0x0A022137U);
  tag.set(0x101, 0, 0, 0, 0);
  EXPECT_EQ(tag.value(), 0x01000000U);
}

}  // namespace
}  // namespace kiv
