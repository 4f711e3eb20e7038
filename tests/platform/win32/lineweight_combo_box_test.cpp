// A host that lends its own list, in its own words and order.
#include "platform/win32/lineweight_combo_box.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/ui/test_dialog.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv::test {
namespace {

using win32::HostLineweights;
using win32::LineweightComboBox;

struct Record {
  std::vector<UINT> messages;
  bool isLent = true;
};

class FakeList final : public HostLineweights {
 public:
  FakeList(HWND comboBox, Record& record) : comboBox_(comboBox), record_(record) {
    for (const wchar_t* text : {L"画層どおり", L"0.50 ﾐﾘ", L"0.25 ﾐﾘ", L"既定"})
      SendMessageW(comboBox, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
  }
  ~FakeList() override { record_.isLent = false; }
  int entryOf(int lineweight) override {
    const auto found = std::ranges::find(kWeights, lineweight);
    return found == std::end(kWeights) ? -1 : static_cast<int>(found - std::begin(kWeights));
  }
  int lineweightOfChosen() override { return kWeights[SendMessageW(comboBox_, CB_GETCURSEL, 0, 0)]; }
  void take(UINT message, WPARAM, LPARAM) override { record_.messages.push_back(message); }

 private:
  static constexpr int kWeights[] = {-1, 50, 25, -3};
  HWND comboBox_;
  Record& record_;
};

class LentLineweights : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dialog_.create(nullptr));
    control_ = GetDlgItem(static_cast<HWND>(dialog_.window().native()), IDC_LAYER_LINEWEIGHT);
    box_.emplace(control_, quiet_, std::make_unique<FakeList>(control_, record_));
    for (const wchar_t* text : {L"Default", L"0.25 mm", L"0.50 mm"}) box_->add(text);
  }
  void choose(int entry) { SendMessageW(control_, CB_SETCURSEL, static_cast<WPARAM>(entry), 0); }

  Record record_;
  int quiet_ = 0;
  User person_;
  TestDialog dialog_{IDD_LAYER};
  HWND control_ = nullptr;
  std::optional<LineweightComboBox> box_;
};

TEST_F(LentLineweights, ReadAsTheTextsOfSpecifications) {
  EXPECT_EQ(box_->entries(), (std::vector<std::wstring>{L"Default", L"0.25 mm", L"0.50 mm"}));
  EXPECT_EQ(box_->selected(), -1);
  EXPECT_EQ(box_->text(), L"");
  choose(2);
  EXPECT_EQ(box_->selected(), 1);
  EXPECT_EQ(box_->text(), L"0.25 mm");
  box_->select(0);
  EXPECT_EQ(SendMessageW(control_, CB_GETCURSEL, 0, 0), 3);
  EXPECT_EQ(box_->text(), L"Default");
  choose(0);  // the host offers more than the dialog asked for, and no layer can have it
  EXPECT_EQ(box_->selected(), -1);
  EXPECT_EQ(box_->text(), L"");
  DRAWITEMSTRUCT item{};
  box_->draw(item);
  box_->takeNotice(MAKEWPARAM(IDC_LAYER_LINEWEIGHT, CBN_SELENDOK));
  EXPECT_EQ(record_.messages, (std::vector<UINT>{WM_DRAWITEM, WM_COMMAND}));
}

TEST_F(LentLineweights, AreGivenBackForATextThatTheyLack) {
  for (const wchar_t* lacking : {L"0.30 mm", L"太線"}) {
    choose(1);
    box_->add(lacking);
    EXPECT_FALSE(record_.isLent);
    EXPECT_EQ(box_->entries(), (std::vector<std::wstring>{L"Default", L"0.25 mm", L"0.50 mm", lacking}));
    EXPECT_EQ(box_->text(), L"0.50 mm") << "the choice stays";
    box_->select(3);
    EXPECT_EQ(box_->text(), lacking);
    box_.reset();
    SendMessageW(control_, CB_RESETCONTENT, 0, 0);
    record_ = {};
    box_.emplace(control_, quiet_, std::make_unique<FakeList>(control_, record_));
    for (const wchar_t* text : {L"Default", L"0.25 mm", L"0.50 mm"}) box_->add(text);
  }
}

}  // namespace
}  // namespace kiv::test
