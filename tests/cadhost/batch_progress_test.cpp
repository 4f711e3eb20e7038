#include "cadhost/batch_progress.h"

#include <gtest/gtest.h>

namespace cadhost {
namespace {

using State = cad::ScriptProgress::State;

TEST(BatchProgressTest, TellsTheDrawingAndTheTimeLeftByThoseDone) {
  BatchProgress batch;
  const auto said = [&](const cad::ScriptProgress& now, int second) {
    batch.update(now, BatchProgress::Time(std::chrono::seconds(second)));
    return batch.text();
  };
  EXPECT_EQ(said({State::kRunning, 0, 0, L""}, 0), L"") << "a script without drawings";
  EXPECT_FALSE(batch.isRunning());
  EXPECT_EQ(said({State::kEnded, 0, 0, L""}, 5), L"");
  EXPECT_EQ(said({State::kRunning, 0, 900, L""}, 100), L"図面 0/900  ");
  EXPECT_EQ(said({State::kRunning, 1, 900, L"a.dxf"}, 100), L"図面 1/900  a.dxf");
  EXPECT_EQ(said({State::kRunning, 2, 900, L"b.dxf"}, 105), L"図面 2/900  b.dxf  残り約1時間15分");
  EXPECT_EQ(said({State::kSuspended, 2, 900, L"b.dxf"}, 110), L"中断  図面 2/900 まで  RESUME で再開");
  EXPECT_FALSE(batch.isRunning());
  EXPECT_EQ(said({State::kRunning, 2, 900, L"b.dxf"}, 900), L"図面 2/900  b.dxf  残り約2時間30分");
  EXPECT_EQ(said({State::kRunning, 881, 900, L"c.dxf"}, 1770), L"図面 881/900  c.dxf  残り約20秒");
  EXPECT_TRUE(batch.isRunning());
  EXPECT_EQ(said({State::kEnded, 900, 900, L"d.dxf"}, 1800), L"");
}

}  // namespace
}  // namespace cadhost
