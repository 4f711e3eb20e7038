#include "ui/tree_nodes.h"

#include <gtest/gtest.h>

#include "tests/spec/sample_specification.h"

namespace kiv {
namespace {

TEST(TreeNodes, TagsTextsAndPicturesByTheirPlace) {
  const Specification sample = testing::sampleSpecification();
  const auto expectNode = [&](const Node& node, std::uint32_t tag, const wchar_t* text, int image) {
    EXPECT_EQ(tagOf(sample, node).value(), tag);
    EXPECT_EQ(nodeText(sample, node), text);
    EXPECT_EQ(nodeImage(node), image);
  };
  expectNode(Node{}, 0, L"図面", 0);
  expectNode(Node::ofSection(6), 0x06010000, L"画層の設定", 6);
  expectNode(Node::of(1, 1), 0x01020000, L"設定2", 11);
  expectNode(Node::of(1, 2), 0, L"", 11);
  expectNode(Node::ofItem(1, 0, Role::kCondition, 1), 0x01031203, L"色 が <7:白> 以外のとき", 12);
  expectNode(Node::ofItem(1, 0, Role::kResult, 0), 0x01032101, L"画層 を <TEXT> に変更", 13);
  expectNode(Node::of(8, 0), 0x08023135, L"<DASHED> を <SAMPLE.LIN> からﾛｰﾄﾞ", 14);
}

TEST(TreeNodes, TextsOfItems) {
  EXPECT_EQ(itemText({kLayerKind, false, {}, L"A"}, Role::kCondition), L"画層 が <A> のとき");
  EXPECT_EQ(itemText({kLayerKind, true, {}, L"A"}, Role::kCondition), L"画層 が <A> 以外のとき");
  EXPECT_EQ(itemText({kColorKind, false, {}, L"1:赤"}, Role::kResult), L"色 を <1:赤> に変更");
  EXPECT_EQ(itemText({kVariableKind, false, L"DIMASZ", L"2.5"}, Role::kResult), L"<DIMASZ> を <2.5> に変更");
  EXPECT_EQ(itemText({kLayerKind, true, {}, L"A", Wording::kPicker}, Role::kCondition),
            L"<画層> が <A> 以外のとき");
  EXPECT_EQ(itemText({kColorKind, false, {}, L"8", Wording::kPicker}, Role::kResult),
            L"<色> を <8> に変更する");
}

TEST(TreeNodes, TextsOfEntries) {
  const std::vector<std::wstring> nine = {L"W",   L"1:赤", L"X",       L"ON", L"OFF",
                                          L"OFF", L"ON",   L"0.25 mm", L"30"};
  EXPECT_EQ(entryText({{L"DIMASZ", L"2"}}, 5), L"<DIMASZ> を <2> に設定");
  EXPECT_EQ(entryText({{L"W", L"1:赤", L"X"}}, 7), L"<W> 画層を <1:赤, X> で作成");
  EXPECT_EQ(entryText({nine}, 7), L"<W> 画層を <1:赤, X,ON,OFF,OFF,ON,0.25 mm,30> で作成");
  EXPECT_EQ(entryText({{L"DASHED", L"A.LIN"}}, 8), L"<DASHED> を <A.LIN> からﾛｰﾄﾞ");
  EXPECT_EQ(entryText({{L"S", L"F"}}, 9), L"<S> を <F> で設定");
  EXPECT_EQ(entryText({{L"S", L"F", L"B"}}, 9), L"<S> を <F, B> で設定");
  EXPECT_EQ(entryText({{L"_DOT"}}, 10), L"<_DOT> をﾛｰﾄﾞ");
  constexpr Wording kPicker = Wording::kPicker;
  EXPECT_EQ(entryText({{L"DIMASZ", L"2"}, kPicker}, 5), L"<DIMASZ> を <2> に変更する");
  EXPECT_EQ(entryText({nine, kPicker}, 7),
            L"<W> を <1:赤, X,表示 ON,ロック OFF,フリーズ OFF,印刷 ON,線幅値 0.25 mm,透過性 30> で作成");
  EXPECT_EQ(entryText({{L"DASHED", L"A.LIN"}, kPicker}, 8), L"<DASHED> をﾛｰﾄﾞ（A.LIN）");
  EXPECT_EQ(entryText({{L"S", L"F", L"B"}, kPicker}, 9), L"<S> を作成 （F,B）");
  EXPECT_EQ(entryText({{L"_DOT"}, kPicker}, 10), L"<_DOT>");
}

}  // namespace
}  // namespace kiv
