#include "ui/row_edit.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

using Rows = std::vector<std::wstring>;

struct Case {
  RowCommand command;
  int current;
  Rows rows;
  int row;  // current afterwards
};

TEST(RowEdit, EachCommandFromEachPlace) {
  const Rows start = {L"a", L"b", L"c"};
  const Case cases[] = {
      {RowCommand::kInsert, 0, {L"", L"a", L"b", L"c"}, 0},
      {RowCommand::kInsert, 2, {L"a", L"b", L"", L"c"}, 2},
      {RowCommand::kInsert, -1, start, -1},
      {RowCommand::kDelete, 1, {L"a", L"c"}, 1},
      {RowCommand::kDelete, 2, {L"a", L"b"}, 1},
      {RowCommand::kDelete, 3, start, 3},
      {RowCommand::kAppend, 0, {L"a", L"b", L"c", L""}, 3},
      {RowCommand::kAppend, -1, {L"a", L"b", L"c", L""}, 3},
      {RowCommand::kUp, 1, {L"b", L"a", L"c"}, 0},
      {RowCommand::kUp, 0, start, 0},
      {RowCommand::kDown, 1, {L"a", L"c", L"b"}, 2},
      {RowCommand::kDown, 2, start, 2},
  };
  for (const Case& one : cases) {
    Rows rows = start;
    EXPECT_EQ(editRows(one.command, rows, one.current), one.row);
    EXPECT_EQ(rows, one.rows);
    EXPECT_EQ(canEditRows(one.command, 3, one.current), one.rows != start);
  }
}

TEST(RowEdit, TheOnlyRowBecomesEmpty) {
  Rows rows = {L"a"};
  EXPECT_EQ(editRows(RowCommand::kDelete, rows, 0), 0);
  EXPECT_EQ(rows, Rows{L""});
}

}  // namespace
}  // namespace kiv
