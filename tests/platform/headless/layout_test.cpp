#include "tests/platform/headless/layout.h"

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "platform/headless/placement.h"

namespace kiv::headless {
namespace {

using Faults = std::vector<std::wstring>;

TEST(Layout, NoFaultInTheDialogsOfTheProgram) {
  ASSERT_FALSE(resourceScript().dialogs.empty());
  for (const DialogResource& dialog : resourceScript().dialogs) {
    EXPECT_FALSE(dialog.caption.empty()) << dialog.id;
    for (const Faults& faults : {layoutFaults(dialog), accessKeyFaults(resourceScript(), dialog)}) {
      for (const std::wstring& fault : faults) ADD_FAILURE() << base::utf8::encode(fault).bytes;
    }
  }
}

// One dialog with a fault of each kind. In a group box, over a hidden place holder and under a closed combo
// box there is none.
TEST(Layout, FaultsAreNamed) {
  const auto script = parseResourceScript(
      L"1 DIALOGEX 0, 0, 100, 50 BEGIN\nEDITTEXT 5, 0, 0, 20, 10\nEDITTEXT 6, 19, 9, 20, 10\n"
      L"PUSHBUTTON \"図面\", 7, 90, 0, 11, 14\nLTEXT \"\", 7, 0, 30, 1, 1\nLTEXT \"\", 8, 0, 0, 20, 10, NOT "
      L"WS_VISIBLE\n"
      L"COMBOBOX 9, 50, 0, 20, 160, CBS_DROPDOWN\nLTEXT \"図a\", -1, 50, 13, 13, 8\n"
      L"GROUPBOX \"\", -1, 0, 0, 90, 50\nEND\n"
      L"1 ACCELERATORS BEGIN\n\"A\", 5, VIRTKEY, ALT\n\"A\", 6, VIRTKEY, ALT\n\"C\", 7, VIRTKEY, ALT\n"
      L"\"B\", 10, VIRTKEY, ALT\nEND",
      L"");
  ASSERT_TRUE(script.ok());
  const DialogResource& dialog = script.value().dialogs.at(0);
  EXPECT_EQ(layoutFaults(dialog), (Faults{L"dialog 1, control 6 (line 3) overlaps control 5 (line 2)",
                                          L"dialog 1, control 7 (line 4) reaches out of the dialog",
                                          L"dialog 1, control 7 (line 4) is too small for its caption",
                                          L"dialog 1, control 7 (line 5) has the id of control 7 (line 4)"}));
  EXPECT_EQ(accessKeyFaults(script.value(), dialog),
            (Faults{L"dialog 1, A stands there twice", L"dialog 1, control 9 (line 7) has no access key",
                    L"dialog 1, there is no control 10"}));
}

TEST(Placement, DialogUnitsBecomePixels) {
  EXPECT_EQ(horizontalPixels(226), 339);
  EXPECT_EQ(horizontalPixels(1), 2);  // 1.5 rounds up
  EXPECT_EQ(horizontalPixels(-1), -2);
  EXPECT_EQ(verticalPixels(7), 11);  // 10.5
  DialogResource dialog;
  dialog.x = 10;
  dialog.width = 100;
  dialog.height = 50;
  const Rect alone = initialPlace(dialog, Rect());
  EXPECT_EQ(alone.left, 15);
  const Rect over = initialPlace(dialog, Rect{100, 200, 500, 500});
  EXPECT_GT(over.left, 115);
  EXPECT_GT(over.top, 200);
  EXPECT_EQ(over.right - over.left, alone.right - alone.left);
}

}  // namespace
}  // namespace kiv::headless
