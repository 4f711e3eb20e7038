// Objects on locked layers.

#include "tests/engine/run_fixture.h"

namespace {

using namespace engine_test;
using cad::Property;

// Two lines and an insert on a locked layer, a line beside them.
std::string lockedDrawing() {
  const auto line = [](const char* handle, const char* layer) {
    return std::string("0 LINE\n5 ") + handle + "\n100 AcDbEntity\n8 " + layer +
           "\n62 1\n100 AcDbLine\n10 0.0\n20 0.0\n11 1.0\n21 1.0\n";
  };
  return drawing(line("A1", "LOCKED") + line("A2", "LOCKED") + line("A3", "ALL") +
                 "0 INSERT\n5 A4\n100 AcDbEntity\n8 LOCKED\n62 1\n100 AcDbBlockReference\n2 DOOR\n10 0.0\n"
                 "20 0.0\n");
}

class LockedLayers : public RunTest {
 protected:
  void convert(const std::wstring& setting) {
    open(lockedDrawing());
    before_ = savedBytes();
    run({{L"その他の図形", setting}});
  }
  bool isLocked(const wchar_t* layerName) {
    return (drawing().integer(layer(layerName), Property::kStandardFlags).value_or(0) & 4) != 0;
  }
  std::string before_;
};

TEST_F(LockedLayers, ObjectsAreLeftAloneAndCounted) {
  convert(L"[***]\n{\n[色] = 5\n}");
  EXPECT_EQ(color(0xA1), 1);
  EXPECT_EQ(color(0xA3), 5);
  EXPECT_EQ(color(0xA4), 1);
  // The reference counts once, though it is in the selection too.
  EXPECT_EQ(
      sink_.problems,
      (std::vector<std::wstring>{L"その他の図形 ロックされた画層上にあるため 3件変換できませんでした"}));
}

TEST_F(LockedLayers, EachSettingCounts) {
  convert(L"[***]\n{\n[色] = 5\n}\n[色] = 1\n{\n[色] = 6\n}");
  ASSERT_EQ(sink_.problems.size(), 1U);
  EXPECT_NE(sink_.problems[0].find(L" 6件"), std::wstring::npos);
}

TEST_F(LockedLayers, IgnoredLocksAreBackAfterTheRun) {
  set(L"MorluxIgnoreLocks", 1);
  convert(L"[画層] = LOCKED\n{\n[色] = 5\n}");
  EXPECT_EQ(color(0xA1), 5);
  EXPECT_EQ(color(0xA4), 5);
  EXPECT_TRUE(sink_.problems.empty());
  EXPECT_TRUE(isLocked(L"LOCKED"));
  EXPECT_FALSE(isLocked(L"ALL"));
  undo();
  EXPECT_EQ(savedBytes(), before_);
}

TEST_F(LockedLayers, UnlockingAndLockingAgainIsNoChange) {
  set(L"MorluxIgnoreLocks", 1);
  convert(L"[画層] = NONE\n{\n[色] = 5\n}");
  EXPECT_EQ(savedBytes(), before_);
}

}  // namespace
