#include "tests/platform/headless/layout.h"

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "platform/headless/placement.h"

namespace kiv::headless {
namespace {

using Faults = std::vector<std::wstring>;

Faults faultsOf(const std::wstring& controls) {
  const auto script = parseResourceScript(L"1 DIALOGEX 0, 0, 100, 50 BEGIN\n" + controls + L"\nEND", L"");
  EXPECT_TRUE(script.ok());
  return script ? layoutFaults(script.value().dialogs.at(0)) : Faults();
}

TEST(Layout, NoFaultInTheDialogsOfTheProgram) {
  ASSERT_FALSE(resourceScript().dialogs.empty());
  for (const DialogResource& dialog : resourceScript().dialogs) {
    EXPECT_FALSE(dialog.caption.empty()) << dialog.id;
    for (const Faults& faults : {layoutFaults(dialog), accessKeyFaults(resourceScript(), dialog)}) {
      for (const std::wstring& fault : faults) ADD_FAILURE() << base::utf8::encode(fault).bytes;
    }
  }
}

TEST(Layout, OverlapsAndEdges) {
  EXPECT_EQ(faultsOf(L"EDITTEXT 5, 0, 0, 20, 10\nEDITTEXT 6, 19, 9, 20, 10"),
            Faults{L"dialog 1, control 6 (line 3) overlaps control 5 (line 2)"});
  EXPECT_EQ(faultsOf(L"EDITTEXT 5, 90, 0, 11, 10\nEDITTEXT 6, -1, 0, 20, 10").size(), 2U);
  // Side by side, in a group box, over a hidden place holder, under a closed combo box.
  EXPECT_EQ(faultsOf(L"EDITTEXT 5, 0, 0, 20, 10\nEDITTEXT 6, 20, 0, 20, 10\nGROUPBOX \"\", -1, 0, 0, 90, 50"),
            Faults{});
  EXPECT_EQ(faultsOf(L"EDITTEXT 5, 0, 0, 20, 10\nLTEXT \"\", 6, 0, 0, 20, 10, NOT WS_VISIBLE"), Faults{});
  EXPECT_EQ(faultsOf(L"COMBOBOX 5, 0, 0, 20, 160, CBS_DROPDOWN\nEDITTEXT 6, 0, 13, 20, 10"), Faults{});
}

TEST(Layout, Captions) {
  EXPECT_EQ(captionWidth(L"図a"), 13);
  EXPECT_EQ(captionWidth(L"ﾃﾞ\n図面の"), 24);
  EXPECT_EQ(faultsOf(L"LTEXT \"図面\", 5, 0, 0, 16, 8"), Faults{});
  EXPECT_EQ(faultsOf(L"PUSHBUTTON \"図面\", 5, 0, 0, 16, 14"),
            Faults{L"dialog 1, control 5 (line 2) is too small for its caption"});
  EXPECT_EQ(faultsOf(L"AUTOCHECKBOX \"図面\", 5, 0, 0, 27, 11").size(), 1U);
  EXPECT_EQ(faultsOf(L"PUSHBUTTON \"a\\nb\", 5, 0, 0, 40, 14").size(), 1U);  // two lines
  EXPECT_EQ(faultsOf(L"LTEXT \"&a&&\", 5, 0, 0, 10, 8"), Faults{});
}

TEST(Layout, Ids) {
  EXPECT_EQ(faultsOf(L"LTEXT \"\", -1, 0, 0, 1, 1\nLTEXT \"\", -1, 5, 0, 1, 1"), Faults{});
  EXPECT_EQ(faultsOf(L"LTEXT \"\", 7, 0, 0, 1, 1\nLTEXT \"\", 7, 5, 0, 1, 1"),
            Faults{L"dialog 1, control 7 (line 3) has the id of control 7 (line 2)"});
}

TEST(Layout, AccessKeys) {
  const auto script = parseResourceScript(
      L"1 DIALOGEX 0, 0, 100, 50 BEGIN\nLTEXT \"\", -1, 0, 0, 1, 1\nEDITTEXT 5, 0, 0, 1, 1\n"
      L"EDITTEXT 6, 0, 0, 1, 1\nPUSHBUTTON \"\", 7, 0, 0, 1, 1\nEND\n1 ACCELERATORS BEGIN\n"
      L"\"A\", 5, VIRTKEY, ALT\n\"A\", 7, VIRTKEY, ALT\n\"B\", 8, VIRTKEY, ALT\nEND",
      L"");
  ASSERT_TRUE(script.ok());
  EXPECT_EQ(accessKeyFaults(script.value(), script.value().dialogs.at(0)),
            (Faults{L"dialog 1, A stands there twice", L"dialog 1, control 6 (line 4) has no access key",
                    L"dialog 1, there is no control 8"}));
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
