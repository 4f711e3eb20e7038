#include "ui/node_content.h"

#include "spec/cvt_reader.h"
#include "spec/cvt_writer.h"
#include "spec/item_kinds.h"
#include "tests/support/temp_folder.h"
#include "ui/tree_nodes.h"

namespace kiv {
namespace {

using Fields = std::vector<std::wstring>;

class NodeContents : public test_support::TempFolder {
 protected:
  Edited put(const Node& target, int kind, Role role, const wchar_t* variable, Fields fields) {
    return putContent(specification_, target, {kind, role, variable, std::move(fields)});
  }
  Specification specification_;
};

TEST_F(NodeContents, EntriesComeBackFromTheirFile) {
  const struct {
    int section;
    const wchar_t* variable;
    Fields added;
    const wchar_t* text;
    Fields edited;
    const wchar_t* reloaded;
  } kRows[] = {
      {5, L"DIMPOST", {L"<>mm"}, L"<DIMPOST> を <<>mm> に変更する", {L"<>"}, L"<DIMPOST> を <<>> に設定"},
      {7,
       L"",
       {L"A", L"7:白", L"CONTINUOUS", L"ON", L"OFF", L"OFF", L"ON", L"Default", L"0"},
       L"<A> を <7:白, CONTINUOUS,表示 ON,ロック OFF,フリーズ OFF,印刷 ON,線幅値 Default,透過性 0> で作成",
       {L"B", L"1:赤", L"HIDDEN", L"OFF", L"ON", L"ON", L"OFF", L"0.25 mm", L"30"},
       L"<B> 画層を <1:赤, HIDDEN,OFF,ON,ON,OFF,0.25 MM,30> で作成"},
      {8,
       L"",
       {L"DASHED", L"A.LIN"},
       L"<DASHED> をﾛｰﾄﾞ（A.LIN）",
       {L"DOT", L"B.LIN"},
       L"<DOT> を <B.LIN> からﾛｰﾄﾞ"},
      {9,
       L"",
       {L"NOTES", L"MS Gothic", L"big.shx"},
       L"<NOTES> を作成 （MS Gothic）",
       {L"NOTES", L"txt.shx", L"extfont.shx"},
       L"<NOTES> を <TXT.SHX, EXTFONT.SHX> で設定"},
      {10, L"", {L"_DOT"}, L"<_DOT>", {L"_OPEN"}, L"<_OPEN> をﾛｰﾄﾞ"},
  };
  for (const auto& row : kRows) {
    const int kind = section(row.section).entryKind;
    const Edited added = put(Node::ofSection(row.section), kind, Role::kEntry, row.variable, row.added);
    ASSERT_TRUE(added.ok()) << row.section;
    EXPECT_EQ(nodeText(specification_, added.node), row.text);
    ASSERT_TRUE(put(added.node, kind, Role::kEntry, row.variable, row.edited).ok());
    const NodeContent content = contentOf(specification_, added.node);
    EXPECT_EQ(content.variable, row.variable);
    EXPECT_EQ(content.fields, row.edited);
  }
  ASSERT_TRUE(writeSpecification(specification_, folder_ / "lists.cvt").ok());
  const Specification loaded = loadSpecification(folder_, L"lists.cvt").specification;
  for (const auto& row : kRows) EXPECT_EQ(nodeText(loaded, Node::of(row.section, 0)), row.reloaded);
}

TEST_F(NodeContents, WhatALineWouldLoseOrChangeIsRefused) {
  const Node setting = specification_.addSetting(1).node;
  const std::wstring half(130, L'x'), whole(255, L'x');
  const struct {
    const Node& target;
    int kind;
    Role role;
    const wchar_t* variable;
    Fields fields;
    bool isKept;
  } kRows[] = {
      {Node::ofSection(8), 53, Role::kEntry, L"", {L"A", L""}, false},
      {Node::ofSection(8), 53, Role::kEntry, L"", {L"A", L" "}, false},
      {Node::ofSection(8), 53, Role::kEntry, L"", {L"A,B", L"C"}, false},
      {Node::ofSection(8), 53, Role::kEntry, L"", {half, half}, false},
      {Node::ofSection(5), 51, Role::kEntry, L"DIMPOST", {L"R="}, false},
      {setting, kVariableKind, Role::kCondition, L"DIMPOST", {L"<> mm"}, false},
      {setting, kVariableKind, Role::kResult, L"DIMPOST", {L"<> mm"}, true},
      {setting, kVariableKind, Role::kResult, L"DIMDSEP", {L","}, true},
      {setting, kLayerKind, Role::kResult, L"", {L" "}, false},
      {setting, kLayerKind, Role::kCondition, L"", {whole}, false},
  };
  for (const auto& row : kRows) {
    const std::string what = base::toUtf8(row.fields.front());
    EXPECT_EQ(put(row.target, row.kind, row.role, row.variable, row.fields).ok(), row.isKept) << what;
  }
}

}  // namespace
}  // namespace kiv
