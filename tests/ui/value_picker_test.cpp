#include "ui/value_picker.h"

#include <memory>

#include "base/paths.h"
#include "embedded/editor/host.h"
#include "siblings/KivDll/interface.h"
#include "spec/item_kinds.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv {
namespace {

// Any window serves as the one that the picker belongs to.
class Owner : public Dialog, public PickerOwner {
 public:
  Owner() : Dialog(IDD_SAVE) {}
  void onInit() override { window().show(true); }

  DialogWindow& ownerWindow() override { return window(); }
  bool take(const NodeContent& content) override {
    EXPECT_EQ(content.fields.size(), 1U);
    given.push_back(std::to_wstring(content.kind) + L"/" + std::to_wstring(static_cast<int>(content.role)) +
                    L": " + content.fields.at(0));
    return true;
  }
  std::vector<std::wstring> namesInSection(int section) const override {
    return {L"名" + std::to_wstring(section)};
  }
  void releasePicker(PickerSlot slot) override {
    EXPECT_EQ(slot, PickerSlot::kValue);
    picker.reset();
  }

  std::vector<std::wstring> given;
  std::unique_ptr<CSelDlg> picker;
};

class ValuePicker : public test_support::TempFolder {
 protected:
  void SetUp() override {
    cad::Host::instance().start();
    lastPickerPlace(PickerSlot::kValue) = {};
    ASSERT_TRUE(owner_.create(nullptr));
  }
  void TearDown() override {
    owner_.picker.reset();
    cad::Host::instance().stop();
  }

  DialogWindow& open(int kind, const std::vector<std::wstring>& present = {}, Role role = Role::kCondition) {
    const std::wstring lists = base::ensureTrailingSeparator(base::pathText(folder_));
    owner_.picker = std::make_unique<CSelDlg>(owner_, pick_,
                                              PickerRequest{kTextSection, {kind, role, {}, present}, lists});
    EXPECT_TRUE(owner_.picker->create(nullptr));
    return owner_.picker->window();
  }
  test::User user_;
  PickHandOver pick_;
  Owner owner_;
};

TEST_F(ValuePicker, SaysWhatItIsForAndShowsThePresentValue) {
  using enum Role;
  struct Case {
    int kind;
    std::vector<std::wstring> present;
    Role role;
    const wchar_t* title;
    const wchar_t* label;
    const wchar_t* value;
    int selected;
  };
  const Case cases[] = {
      {kColorKind, {L"256:BYLAYER"}, kCondition, L"色の指定(変換対象の設定)", L"色 :", L"256:BYLAYER", 1},
      {kColorKind, {L"12"}, kResult, L"色の指定(変換後の設定)", L"色 :", L"12", -1},
      {kPlotKind, {L"off"}, kEntry, L"印刷の指定(変換後の設定)", L"印刷 :", L"off", -1},
      {kLayerKind, {L"A-*,B-*"}, kCondition, L"画層の指定(変換対象の設定)", L"画層 :", L"A-*,B-*", -1},
      {kTextListKind, {}, kCondition, L"文字列の一致の指定(変換対象の設定)", L"文字列の一致 :", L"", -1},
  };
  for (const Case& one : cases) {
    DialogWindow& picker = open(one.kind, one.present, one.role);
    EXPECT_EQ(picker.title(), one.title);
    EXPECT_EQ(picker.text(IDC_VALUE_LABEL), one.label);
    EXPECT_EQ(picker.text(IDC_VALUE_COMBO), one.value);
    EXPECT_EQ(picker.combo(IDC_VALUE_COMBO).selected(), one.selected);
    user_.close(picker);
    EXPECT_EQ(owner_.picker, nullptr);
  }
  EXPECT_TRUE(owner_.given.empty());
}

TEST_F(ValuePicker, OffersSearchListsWhichNoEntityHas) {
  make("A.list", "");
  DialogWindow& picker = open(kTextListKind);
  EXPECT_EQ(picker.combo(IDC_VALUE_COMBO).entries(), std::vector<std::wstring>{L"A.list"});
  user_.cannotClick(picker, IDC_PICK);
}

TEST_F(ValuePicker, PicksOnlyWhatThePickKnows) {
  for (const ItemKind& kind : itemKinds()) {
    const bool picks = open(kind.kind).isEnabled(IDC_PICK);
    EXPECT_TRUE(!picks || kind.kind < static_cast<int>(PickItem::kEnd)) << kind.kind;
    owner_.picker.reset();
  }
}

TEST_F(ValuePicker, AChosenEntryIsTheValue) {
  DialogWindow& picker = open(kLineweightKind, {}, Role::kResult);
  EXPECT_FALSE(user::type(owner_.window(), IDC_SAVE_NAME, L"x"));
  EXPECT_TRUE(user::chooseEntry(picker, IDC_VALUE_COMBO, 4));
  user_.click(picker, IDOK);
  EXPECT_EQ(owner_.given, std::vector<std::wstring>{L"10/2: 0.05 mm"});
  EXPECT_EQ(owner_.picker, nullptr);
  user_.type(owner_.window(), IDC_SAVE_NAME, L"x");

  EXPECT_TRUE(user::doubleClickEntry(open(kFreezeKind), IDC_VALUE_COMBO, 1));
  EXPECT_EQ(owner_.given.back(), L"15/1: OFF");
  EXPECT_EQ(owner_.picker, nullptr);
}

TEST_F(ValuePicker, TypingReplacesAChosenEntry) {
  DialogWindow& picker = open(kLineweightKind, {L"0.25 mm"});
  user_.type(picker, IDC_VALUE_COMBO, L"1");
  user_.press(picker, Key::kEnter);
  EXPECT_EQ(owner_.given, std::vector<std::wstring>{L"10/1: 1.00 mm"});
}

TEST_F(ValuePicker, TypedValuesAreCompletedCheckedOrRefused) {
  DialogWindow& completed = open(kVisibilityKind);
  user_.type(completed, IDC_VALUE_COMBO, L"offf");
  user_.click(completed, IDOK);
  EXPECT_EQ(owner_.given, std::vector<std::wstring>{L"13/1: OFF"});
  DialogWindow& refused = open(kLinetypeScaleKind);
  user_.type(refused, IDC_VALUE_COMBO, L"1.2.3");
  user_.click(refused, IDOK);
  EXPECT_EQ(refused.focused(), IDC_VALUE_COMBO);
  user_.click(refused, IDCANCEL);
  EXPECT_EQ(owner_.given.size(), 1U);
}

TEST_F(ValuePicker, OnePickAtATime) {
  DialogWindow& picker = open(kLayerKind);
  pick_.request = kColorKind;
  pick_.values = {L"1:赤"};
  user_.click(picker, IDC_PICK);
  EXPECT_TRUE(picker.isShown());
  EXPECT_EQ(pick_.request, kColorKind);
  pick_ = {};
  user_.click(picker, IDC_PICK);
  owner_.picker.reset();
  EXPECT_EQ(pick_.request, 0) << "nobody takes the values of a picker that has gone";
}

TEST_F(ValuePicker, OpensWhereTheLastOneStood) {
  DialogWindow& first = open(kLockKind);
  Rect place = first.place();
  place = {place.left + 40, place.top + 30, place.right + 40, place.bottom + 30};
  first.setPlace(place);
  user_.click(first, IDCANCEL);
  EXPECT_EQ(lastPickerPlace(PickerSlot::kValue), place);
  EXPECT_EQ(open(kColorKind).place(), place);
}

}  // namespace
}  // namespace kiv
