#include <deque>

#include "acdb.h"
#include "acdocman.h"
#include "afxwin.h"
#include "embedded/drawing/drawing.h"
#include "embedded/graphics/scene.h"
#include "rxmfcapi.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad::InputEvent;
using test_support::inCommand;

class PickingTest : public cad_test::HostTest {
 protected:
  void TearDown() override {
    host().setInputSource(nullptr);
    host().setHighlightObserver(nullptr);
    HostTest::TearDown();
  }
  int pickWith(std::deque<InputEvent> events) {
    host().setInputSource([this, events]() mutable -> std::optional<InputEvent> {
      EXPECT_TRUE(host().isPicking());
      if (events.empty()) return std::nullopt;
      const InputEvent next = events.front();
      events.pop_front();
      return next;
    });
    const int outcome = acedEntSel(L"\n線種を指示:", entity_, point_);
    EXPECT_FALSE(host().isPicking());
    return outcome;
  }
  int errorNumber() {
    resbuf value{};
    return acedGetVar(L"ERRNO", &value) == RTNORM ? value.resval.rint : -1;
  }
  static InputEvent click(double x, double y, double radius) { return {3, 0, x, y, radius}; }

  ads_name entity_{};
  ads_point point_{};
};

TEST_F(PickingTest, TheEntityAtThePointIsPicked) {
  open();
  ASSERT_EQ(pickWith({click(3.5, 3.1, 0.2)}), RTNORM);
  EXPECT_TRUE(printedHas(L"\n線種を指示:"));
  EXPECT_EQ(point_[0], 3.5);
  EXPECT_EQ(point_[1], 3.1);
  AcDbObjectId id;
  ASSERT_EQ(acdbGetObjectId(id, entity_), Acad::eOk);
  EXPECT_EQ(id.database(), acDocManager->curDocument()->database());
  // The newest of the two lines and the text that lie here.
  ASSERT_EQ(pickWith({click(0.5, 0, 0)}), RTNORM);
}

TEST_F(PickingTest, FailuresTellTheirReason) {
  open();
  EXPECT_EQ(pickWith({click(50, 50, 1)}), RTERROR);
  EXPECT_EQ(errorNumber(), 7);
  EXPECT_TRUE(ads_name_nil(entity_));
  EXPECT_EQ(pickWith({{2, 13}}), RTERROR);
  EXPECT_EQ(errorNumber(), 52);
  EXPECT_EQ(pickWith({{2, 27}}), RTCAN);
  EXPECT_EQ(pickWith({{2, 3}}), RTCAN);
  EXPECT_EQ(pickWith({{2, 'x'}}), RTERROR) << "the input ended while the pick was still waiting";
  EXPECT_EQ(pickWith({{2, 'x'}, click(3.5, 3, 0.2)}), RTNORM);
}

TEST_F(PickingTest, TheCursorHighlightsWhatAClickWouldPick) {
  open();
  std::vector<cad::RecordId> seen;
  host().setHighlightObserver([&](cad::RecordId entity) { seen.push_back(entity); });
  ASSERT_EQ(pickWith({{5, 0, 50, 50, 1}, {5, 0, 3.5, 3, 1}, {5, 0, 3.6, 3, 1}, click(3.6, 3, 1)}), RTNORM);
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(drawing().typeName(seen[0]), "INSERT");
  EXPECT_EQ(acedRedraw(entity_, 4), RTNORM);
  EXPECT_EQ(seen.back(), cad::kNoRecord);
  EXPECT_EQ(acedRedraw(entity_, 3), RTNORM);
  EXPECT_EQ(drawing().typeName(seen.back()), "INSERT");
  EXPECT_EQ(pickWith({{2, 27}}), RTCAN);
  EXPECT_EQ(seen.back(), cad::kNoRecord);
  const ads_name strange = {12345678, 0};
  EXPECT_EQ(acedRedraw(strange, 3), RTERROR);
  EXPECT_EQ(acedRedraw(entity_, 5), RTERROR);
}

TEST_F(PickingTest, TheSceneFollowsTheDrawing) {
  open();
  const cad::Scene* first = &host().scene();
  const std::size_t shown = first->items.size();
  EXPECT_EQ(first, &host().scene());
  ASSERT_TRUE(drawing().setErased(drawing().lastEntity(), true).ok());
  ASSERT_EQ(pickWith({click(3.5, 3, 0.2)}), RTNORM);
  inCommand([&] { EXPECT_EQ(acdbEntDel(entity_), RTNORM); });
  EXPECT_EQ(host().scene().items.size(), shown - 1);
  EXPECT_EQ(pickWith({click(3.5, 3, 0.2)}), RTERROR);
  ASSERT_TRUE(host().closeDocument().ok());
  EXPECT_TRUE(host().scene().items.empty());
}

int asked = 0;
int answer = 0;
BOOL countMessages(MSG*) {
  ++asked;
  return answer;
}
BOOL removeItself(MSG*) {
  acedRemoveFilterWinMsg(removeItself);
  return 0;
}

TEST_F(PickingTest, ModulesFilterMessages) {
  EXPECT_FALSE(host().filterMessage(nullptr));
  EXPECT_TRUE(acedRegisterFilterWinMsg(countMessages));
  EXPECT_FALSE(acedRegisterFilterWinMsg(countMessages));
  EXPECT_FALSE(acedRegisterFilterWinMsg(nullptr));
  EXPECT_TRUE(acedRegisterFilterWinMsg(removeItself));
  asked = answer = 0;
  EXPECT_FALSE(host().filterMessage(nullptr));
  answer = 1;
  EXPECT_TRUE(host().filterMessage(nullptr));
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(acedRemoveFilterWinMsg(countMessages));
  EXPECT_FALSE(acedRemoveFilterWinMsg(countMessages));
  EXPECT_FALSE(acedRemoveFilterWinMsg(removeItself)) << "it removed itself";
  EXPECT_FALSE(host().filterMessage(nullptr));
}

TEST_F(PickingTest, TheMainWindowIsHandedToModules) {
  EXPECT_EQ(acedGetAcadFrame(), nullptr);
  int window = 0;
  host().setMainWindow(&window);
  ASSERT_NE(acedGetAcadFrame(), nullptr);
  EXPECT_EQ(static_cast<void*>(acedGetAcadFrame()->GetSafeHwnd()), &window);
  EXPECT_EQ(static_cast<void*>(adsw_acadMainWnd()), &window);
  host().setMainWindow(nullptr);
}

}  // namespace
