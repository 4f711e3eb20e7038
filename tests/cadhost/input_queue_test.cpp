#include "cadhost/input_queue.h"

#include <gtest/gtest.h>

namespace cadhost {
namespace {

using Lines = std::vector<std::wstring>;

Lines linesOf(InputQueue& queue) {
  Lines out;
  while (const auto line = queue.takeLine()) out.push_back(*line);
  return out;
}

TEST(InputQueue, TypedTextBecomesLines) {
  InputQueue queue;
  const std::wstring rest = queue.type(L"T\r\nOPEN\nC:\\a b.dxf\rUT2", L"U");
  EXPECT_EQ(rest, L"UT2");
  EXPECT_EQ(linesOf(queue), (Lines{L"UT", L"OPEN", L"C:\\a b.dxf"}));
}

TEST(InputQueue, TheCancelCharacterDropsTheUnfinishedLineAndKeepsItsPlace) {
  InputQueue queue;
  EXPECT_EQ(queue.type(L"UNDO\n1\x03KIV_TOACAD\nX", L""), L"X");
  EXPECT_EQ(linesOf(queue), (Lines{L"UNDO", L"\x03", L"KIV_TOACAD"}));
}

TEST(InputQueue, ALineWaitsForTheCommandThatRuns) {
  InputQueue queue;
  queue.beginCommand();
  {
    const InputQueue::Waiting waiting(queue);
    queue.type(L"UT2\n", L"");
  }
  EXPECT_FALSE(queue.takeLine());
  EXPECT_TRUE(queue.hasLine());
  queue.endCommand();
  EXPECT_EQ(linesOf(queue), Lines{L"UT2"});
}

TEST(InputQueue, CancelEndsWhatWaitsAndForgetsWhatWasTypedBefore) {
  InputQueue queue;
  queue.beginCommand();
  const InputQueue::Waiting waiting(queue);
  queue.pressKey('a');
  queue.click(1, 2);
  queue.type(L"\x03", L"");
  const auto event = queue.takeEvent(false);
  ASSERT_TRUE(event);
  EXPECT_EQ(event->kind, 2);
  EXPECT_EQ(event->key, 3);
  EXPECT_FALSE(queue.takeEvent(false));
  EXPECT_FALSE(queue.isBreakWanted());
}

TEST(InputQueue, ACancelThatCameWhileNothingWaitedDoesNotEndTheNextWait) {
  InputQueue queue;
  queue.beginCommand();
  queue.type(L"\x03KIV_TOACAD\n", L"");
  EXPECT_FALSE(queue.isBreakWanted());
  const InputQueue::Waiting waiting(queue);
  EXPECT_FALSE(queue.takeEvent(false));
}

TEST(InputQueue, EscapeAsksARunningCommandToStopUntilItHasEnded) {
  InputQueue queue;
  queue.cancel();
  EXPECT_FALSE(queue.isBreakWanted());
  EXPECT_EQ(linesOf(queue), Lines{L"\x03"}) << "for a prompt";
  queue.beginCommand();
  queue.cancel();
  EXPECT_TRUE(queue.isBreakWanted());
  queue.forgetBreak();
  EXPECT_FALSE(queue.isBreakWanted()) << "what the command does next is not meant";
  queue.cancel();
  queue.endCommand();
  EXPECT_FALSE(queue.isBreakWanted());
}

TEST(InputQueue, OnlyTheLatestPlaceOfThePointerCounts) {
  InputQueue queue;
  queue.setPickRadius(0.5);
  queue.moveTo(9, 9);
  queue.click(9, 9);  // nobody waits yet
  const InputQueue::Waiting waiting(queue);
  queue.moveTo(1, 1);
  queue.moveTo(2, 3);
  queue.click(4, 5);
  queue.moveTo(6, 7);
  const auto moved = queue.takeEvent(false), clicked = queue.takeEvent(false), after = queue.takeEvent(false);
  ASSERT_TRUE(moved && clicked && after);
  EXPECT_EQ(moved->kind, 5);
  EXPECT_EQ(moved->x, 2);
  EXPECT_EQ(clicked->kind, 3);
  EXPECT_EQ(clicked->y, 5);
  EXPECT_EQ(clicked->pickRadius, 0.5);
  EXPECT_EQ(after->x, 6);
  EXPECT_FALSE(queue.takeEvent(false));
}

TEST(InputQueue, WakingTellsTheLastPlaceOfThePointer) {
  InputQueue queue;
  queue.moveTo(3, 4);
  const InputQueue::Waiting waiting(queue);
  queue.wake();
  const auto event = queue.takeEvent(false);
  ASSERT_TRUE(event);
  EXPECT_EQ(event->kind, 5);
  EXPECT_EQ(event->x, 3);
  EXPECT_EQ(event->y, 4);
}

TEST(InputQueue, TypedPointsPickWhileAnEntityIsPicked) {
  InputQueue queue;
  queue.setPickRadius(2);
  queue.beginCommand();
  const InputQueue::Waiting waiting(queue);
  queue.enter(L"10.5,-20");
  EXPECT_FALSE(queue.takeEvent(false));
  const auto picked = queue.takeEvent(true);
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->kind, 3);
  EXPECT_EQ(picked->x, 10.5);
  EXPECT_EQ(picked->y, -20);
  EXPECT_EQ(picked->pickRadius, 2);
  queue.enter(L"UT2");
  EXPECT_FALSE(queue.takeEvent(true));
  queue.endCommand();
  EXPECT_EQ(linesOf(queue), Lines{L"UT2"});
}

TEST(InputQueue, EnterAloneGoesToWhatWaits) {
  InputQueue queue;
  queue.beginCommand();
  queue.enter(L"");  // typed ahead
  const InputQueue::Waiting waiting(queue);
  queue.enter(L"");
  const auto now = queue.takeEvent(true), ahead = queue.takeEvent(true);
  ASSERT_TRUE(now && ahead);
  EXPECT_EQ(now->key, 13);
  EXPECT_EQ(ahead->key, 13);
  EXPECT_FALSE(queue.hasLine());
}

}  // namespace
}  // namespace cadhost
