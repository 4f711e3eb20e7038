#include "spec/item_tag.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(ItemTag, FieldsStandInTheirBits) {
  const ItemTag tag = ItemTag::pack(6, Level::kItem, Role::kCondition, Sense::kInverted, 16);
  EXPECT_EQ(tag.value(), 0x06031210U);
  EXPECT_EQ(tag.section(), 6);
  EXPECT_EQ(tag.level(), Level::kItem);
  EXPECT_EQ(tag.role(), Role::kCondition);
  EXPECT_EQ(tag.sense(), Sense::kInverted);
  EXPECT_EQ(tag.kind(), 16);
}

TEST(ItemTag, AllOnesLeavesAField) {
  ItemTag tag(0x06031210);
  tag.set(ItemTag::kKeep, ItemTag::kKeep, 2, ItemTag::kKeep, -1);
  EXPECT_EQ(tag.value(), 0x06032210U);
  tag.set(10, 2, ItemTag::kKeep, 1, 55);
  EXPECT_EQ(tag.value(), 0x0A022137U);
  tag.set(0x101, 0, 0, 0, 0);
  EXPECT_EQ(tag.value(), 0x01000000U);
}

}  // namespace
}  // namespace kiv
