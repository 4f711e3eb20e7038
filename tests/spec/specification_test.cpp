#include "spec/specification.h"

#include <gtest/gtest.h>

#include "tests/spec/sample_specification.h"

namespace kiv {
namespace {

const Node kLastCondition = Node::ofItem(1, 0, Role::kCondition, 1);
const Node kFirstResult = Node::ofItem(1, 0, Role::kResult, 0);

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

}  // namespace
}  // namespace kiv
