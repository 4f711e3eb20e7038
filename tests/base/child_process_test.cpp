#include "base/child_process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <thread>

namespace base {
namespace {

using std::chrono::milliseconds;

#if !defined(_WIN32)  // there a child is the program itself, which tests/cli starts

// "double 4" is answered, what else there is ends or stops the child.
int serve(RequestChannel& channel) {
  while (const auto request = channel.receive()) {
    if (*request == "crash") std::raise(SIGKILL);
    if (*request == "leave") return 7;
    if (*request == "hang") {
      while (true) std::this_thread::sleep_for(milliseconds(50));
    }
    if (!channel.answer(*request + *request)) return 1;
  }
  return 3;
}

class ChildProcess : public ::testing::Test {
 protected:
  int start() {
    const Result<int> child = group_->start();
    EXPECT_TRUE(child.ok());
    return child.ok() ? child.value() : -1;
  }
  ChildMessage next() {
    auto message = group_->wait(milliseconds(20'000));
    EXPECT_TRUE(message.has_value());
    return message.value_or(ChildMessage{});
  }

  std::unique_ptr<ChildGroup> group_ = ChildGroup::create({serve, {}});
};

TEST_F(ChildProcess, AnswersComeFromTheChildThatWasAskedWhateverTheyHold) {
  const int first = start(), second = start();
  EXPECT_NE(group_->processOf(first), group_->processOf(second));
  const std::string large(3'000'000, 'x');  // more than the system keeps between two processes
  group_->send(first, large);
  group_->send(second, "壁");
  group_->send(second, "");
  std::map<int, std::vector<std::string>> answers;
  for (int i = 0; i < 3; ++i) {
    ChildMessage message = next();
    EXPECT_FALSE(message.end);
    answers[message.child].push_back(std::move(message.line));
  }
  ASSERT_EQ(answers[first].size(), 1U);
  EXPECT_TRUE(answers[first][0] == large + large);
  EXPECT_EQ(answers[second], (std::vector<std::string>{"壁壁", ""}));
}

TEST_F(ChildProcess, EachEndIsToldOnceAndTheOthersGoOn) {
  const int crashing = start(), leaving = start(), hanging = start(), good = start();
  group_->send(crashing, "crash");
  group_->send(leaving, "leave");
  group_->send(hanging, "hang");
  std::map<int, ChildEnd> ends;
  for (int i = 0; i < 2; ++i) {
    const ChildMessage message = next();
    ASSERT_TRUE(message.end) << message.line;
    ends[message.child] = *message.end;
  }
  EXPECT_EQ(ends[crashing].signal, SIGKILL);
  EXPECT_FALSE(ends[crashing].signalName.empty());
  EXPECT_EQ(ends[leaving].signal, 0);
  EXPECT_EQ(ends[leaving].exitStatus, 7U);

  EXPECT_FALSE(group_->wait(milliseconds(50))) << "nobody has anything to tell";
  group_->kill(hanging);
  EXPECT_EQ(next().child, hanging);
  group_->send(crashing, "too late");
  group_->send(good, "a");
  EXPECT_EQ(next().line, "aa");
}

#endif

}  // namespace
}  // namespace base
