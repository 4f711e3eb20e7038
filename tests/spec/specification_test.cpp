#include "spec/specification.h"

#include <gtest/gtest.h>

#include "tests/spec/sample_specification.h"

namespace kiv {
namespace {

const Node kFirstCondition = Node::ofItem(1, 0, Role::kCondition, 0);
const Node kLastCondition = Node::ofItem(1, 0, Role::kCondition, 1);
const Node kFirstResult = Node::ofItem(1, 0, Role::kResult, 0);

TEST(Specification, CountsOfTheTree) {
  const Specification sample = testing::sampleSpecification();
  EXPECT_EQ(sample.childCount(Node{}), 10);
  EXPECT_EQ(sample.childCount(Node::of(1, 0)), 4);
  EXPECT_EQ(sample.childCount(Node::of(1, 0), Role::kResult), 2);
}

TEST(Specification, NumbersOfNewSettingsCountWhatIsThere) {
  Specification sample = testing::sampleSpecification();
  ASSERT_TRUE(sample.remove(Node::of(1, 0)).ok());
  EXPECT_EQ(sample.settings(1)[0].name, L"設定2");
  const Edited added = sample.addSetting(1);
  EXPECT_EQ(sample.settings(1)[1].name, L"設定2");
  EXPECT_EQ(added.node, Node::of(1, 1));
  EXPECT_EQ(sample.addSetting(5).refusal, Refusal::kWrongSection);
}

TEST(Specification, ConditionsStayAheadOfResults) {
  Specification sample = testing::sampleSpecification();
  EXPECT_EQ(sample.addCondition(1, 0, {kLinetypeKind, false, {}, L"X"}).node,
            Node::ofItem(1, 0, Role::kCondition, 2));
  const auto children = sample.children(Node::of(1, 0));
  EXPECT_EQ(children[2].role, Role::kCondition);
  EXPECT_EQ(children[3], kFirstResult);
}

TEST(Specification, InvariantsOfItemsAndEntries) {
  Specification sample = testing::sampleSpecification();
  EXPECT_EQ(sample.addResult(1, 0, {kTextListKind, false, {}, L"A.LIST"}).refusal, Refusal::kWrongKind);
  EXPECT_EQ(sample.addResult(1, 0, {50, false, {}, L"A"}).refusal, Refusal::kWrongKind);
  EXPECT_EQ(sample.addResult(1, 0, {kVariableKind, false, L"DIMFOO", L"1"}).refusal, Refusal::kWrongKind);
  const Edited added = sample.addResult(1, 0, {kVariableKind, true, L"dimasz", L"1"});
  EXPECT_FALSE(sample.item(added.node)->inverted);
  EXPECT_EQ(sample.item(added.node)->variable, L"DIMASZ");
  EXPECT_EQ(sample.addEntry(7, {{L"A", L"1", L"X", L"ON"}}).refusal, Refusal::kWrongFields);
  EXPECT_EQ(sample.addEntry(1, {{L"A"}}).refusal, Refusal::kWrongSection);
}

TEST(Specification, ReplacingKeepsTheSense) {
  Specification sample = testing::sampleSpecification();
  ASSERT_TRUE(sample.replaceItem(kLastCondition, {kLayerKind, false, {}, L"NEW", Wording::kPicker}).ok());
  EXPECT_EQ(sample.item(kLastCondition)->value, L"NEW");
  EXPECT_TRUE(sample.item(kLastCondition)->inverted);
  ASSERT_TRUE(sample.replaceEntry(Node::of(8, 0), {{L"DOT", L"B.LIN"}}).ok());
  EXPECT_EQ(sample.entries(8)[0].fields[0], L"DOT");
  EXPECT_EQ(sample.replaceEntry(Node::of(8, 1), {{L"DOT", L"B.LIN"}}).refusal, Refusal::kNoSuchNode);
}

TEST(Specification, InvertingTwiceRestores) {
  Specification sample = testing::sampleSpecification();
  for (const bool inverted : {true, false}) {
    ASSERT_TRUE(sample.invert(kFirstCondition).ok());
    EXPECT_EQ(sample.item(kFirstCondition)->inverted, inverted);
  }
  for (const Node& node : {kFirstResult, Node::of(1, 0), Node::ofSection(1)}) {
    EXPECT_EQ(sample.invert(node).refusal, Refusal::kNotACondition);
  }
}

TEST(Specification, MovesAndTheirRefusals) {
  Specification sample = testing::sampleSpecification();
  EXPECT_EQ(sample.moveUp(kFirstCondition).refusal, Refusal::kNoNeighbour);
  EXPECT_EQ(sample.moveDown(kLastCondition).refusal, Refusal::kOtherRole);
  EXPECT_EQ(sample.moveUp(kFirstResult).refusal, Refusal::kOtherRole);
  EXPECT_EQ(sample.moveUp(Node::of(8, 0)).refusal, Refusal::kNotMovable);
  EXPECT_EQ(sample.moveUp(Node::ofSection(2)).refusal, Refusal::kNotMovable);
  EXPECT_EQ(sample.moveDown(kFirstCondition).node, kLastCondition);
  EXPECT_EQ(sample.item(kFirstCondition)->kind, kColorKind);
  EXPECT_EQ(sample.moveDown(Node::of(1, 0)).node, Node::of(1, 1));
  EXPECT_EQ(sample.settings(1)[0].name, L"設定2");
  EXPECT_EQ(sample.settings(1)[1].conditions.size(), 2U);
  EXPECT_EQ(sample.moveDown(Node::of(1, 1)).refusal, Refusal::kNoNeighbour);
}

TEST(Specification, RemovingAndClearing) {
  Specification sample = testing::sampleSpecification();
  ASSERT_TRUE(sample.remove(kFirstCondition).ok());
  EXPECT_EQ(sample.settings(1)[0].conditions[0].kind, kColorKind);
  ASSERT_TRUE(sample.clearItems(1, 0, Role::kResult).ok());
  EXPECT_TRUE(sample.settings(1)[0].results.empty());
  EXPECT_EQ(sample.settings(1)[0].conditions.size(), 1U);
  ASSERT_TRUE(sample.clearSection(1).ok());
  EXPECT_EQ(sample.childCount(Node::ofSection(1)), 0);
  ASSERT_TRUE(sample.remove(Node::of(8, 0)).ok());
  EXPECT_EQ(sample.remove(Node::of(8, 0)).refusal, Refusal::kNoSuchNode);
  EXPECT_EQ(sample.remove(Node::ofSection(6)).refusal, Refusal::kNoSuchNode);
  EXPECT_EQ(sample.settings(6).size(), 1U);
}

}  // namespace
}  // namespace kiv
