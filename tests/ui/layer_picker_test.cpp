// Layers to create: what the picker shows, takes and refuses.

#include "acedads.h"
#include "embedded/editor/host.h"
#include "tests/ui/main_dialog_fixture.h"

namespace kiv::testing {
namespace {

constexpr int kStates[] = {IDC_LAYER_DISPLAY, IDC_LAYER_LOCK, IDC_LAYER_FREEZE, IDC_LAYER_PLOT};
constexpr const wchar_t* kColorDialog = L"ACAD_COLORDLG";

class LayerPicker : public MainDialog {
 protected:
  void SetUp() override {
    MainDialog::SetUp();
    lastPickerPlace(PickerSlot::kLayer) = {};
    makeConfig(L"L.CVT",
               L"[備考]\r\n\r\n\r\n[画層の作成]\r\nold, 12, DOT\r\n"
               L"WALL, 3, Dashed,OFF,ON,ON,OFF,0.25 mm,30\r\nODD, 1, X,ON,OFF,OFF,ON,ByLayer,ByBlock\r\n"
               L"---End---\r\n[線種のﾛｰﾄﾞ]\r\nA.LIN, DOT\r\nB.LIN, continuous\r\n---End---\r\n");
    makeConfig(L"KivCvtInit.dat", L"L.CVT\r\n");
    open();
  }
  void TearDown() override {
    cad::Host::instance().setFunction(kColorDialog, {});
    MainDialog::TearDown();
  }
  DialogWindow& layer() { return *user_.shown(IDD_LAYER); }
  void add() { chooseFromMenu(section_, IDC_ADD_ENTRY); }
  void edit(size_t row) {
    select({section_[0], rows(section_).at(row)});
    click(IDC_MAIN_EDIT);
  }
  // The nine values as the person sees them, the states as they stand beside their buttons.
  std::wstring shown() {
    std::wstring all;
    for (const int id :
         {IDC_LAYER_NAME, IDC_LAYER_COLOR, IDC_LAYER_LINETYPE, IDC_LAYER_DISPLAY_STATE, IDC_LAYER_LOCK_STATE,
          IDC_LAYER_FREEZE_STATE, IDC_LAYER_PLOT_STATE, IDC_LAYER_LINEWEIGHT, IDC_LAYER_TRANSPARENCY})
      all += layer().text(id) + L"|";
    return all.substr(0, all.size() - 1);
  }
  // What the colour dialog is opened with; it then answers as `answer` does.
  std::vector<int> calls_;
  void haveColorDialog(std::function<void()> answer) {
    cad::Host::instance().setFunction(kColorDialog, [this, answer] {
      const resbuf* arguments = acedGetArgs();
      ASSERT_EQ(arguments->restype, RTSHORT);
      calls_.push_back(arguments->resval.rint);
      EXPECT_EQ(arguments->rbnext->restype, RTNIL);
      EXPECT_EQ(arguments->rbnext->rbnext, nullptr);
      EXPECT_FALSE(layer().isWindowEnabled());
      answer();
    });
  }

  const Texts section_{L"画層の作成"};
};

TEST_F(LayerPicker, ANewLayerIsMade) {
  add();
  EXPECT_EQ(shown(), L"|7:白|CONTINUOUS|表示 ON|ロック OFF|フリーズ OFF|印刷 ON|Default|0");
  EXPECT_EQ(layer().combo(IDC_LAYER_COLOR).entries(),
            (Texts{L"1:赤", L"2:黄", L"3:緑", L"4:水色", L"5:青", L"6:紫", L"7:白"}));
  EXPECT_EQ(layer().combo(IDC_LAYER_LINETYPE).entries(), (Texts{L"Continuous", L"DOT"}));
  const Texts weights = layer().combo(IDC_LAYER_LINEWEIGHT).entries();
  EXPECT_EQ(weights.size(), 25U);
  EXPECT_EQ(weights.at(1), L"0.00 mm");
  EXPECT_EQ(layer().combo(IDC_LAYER_TRANSPARENCY).entries(),
            (Texts{L"0", L"10", L"20", L"30", L"40", L"50", L"60", L"70", L"80", L"90"}));
  EXPECT_EQ(layer().focused(), IDC_LAYER_NAME);
  user_.type(layer(), IDC_LAYER_NAME, L"壁-1");
  user_.chooseEntry(layer(), IDC_LAYER_COLOR, L"2:黄");
  user_.chooseEntry(layer(), IDC_LAYER_LINETYPE, L"DOT");
  for (const int state : kStates) user_.click(layer(), state);
  user_.pressWithAlt(layer(), L'W');
  EXPECT_EQ(layer().focused(), IDC_LAYER_LINEWEIGHT);
  user_.press(layer(), Key::kDown);
  user_.press(layer(), Key::kDown);
  for (const auto& [typed, kept] :
       {std::pair(L"120", L"12"), std::pair(L"095", L"90"), std::pair(L"B5", L"5")}) {
    user_.type(layer(), IDC_LAYER_TRANSPARENCY, typed);
    EXPECT_EQ(layer().text(IDC_LAYER_TRANSPARENCY), kept);
  }
  EXPECT_EQ(shown(), L"壁-1|2:黄|DOT|表示 OFF|ロック ON|フリーズ ON|印刷 OFF|0.05 mm|5");
  user_.pressWithAlt(layer(), L'F');
  user_.click(layer(), IDOK);
  EXPECT_EQ(rows(section_).back(),
            L"<壁-1> を <2:黄, DOT,表示 OFF,ロック ON,フリーズ OFF,印刷 OFF,線幅値 0.05 mm,透過性 5> で作成");
}

TEST_F(LayerPicker, EditingShowsWhatTheEntryHas) {
  edit(0);  // three values: the rest is as the controls begin
  EXPECT_EQ(shown(), L"OLD|12|DOT|表示 ON|ロック OFF|フリーズ OFF|印刷 ON||");
  user_.click(layer(), IDOK);
  EXPECT_EQ(selectedText(),
            L"<OLD> を <12, DOT,表示 ON,ロック OFF,フリーズ OFF,印刷 ON,線幅値 ,透過性 > で作成");
  edit(1);
  EXPECT_EQ(shown(), L"WALL|3:緑|DASHED|表示 OFF|ロック ON|フリーズ ON|印刷 OFF|0.25 mm|30");
  user_.close(layer());
  edit(2);  // no weight of a layer, and kept all the same
  EXPECT_EQ(shown(), L"ODD|1:赤|X|表示 ON|ロック OFF|フリーズ OFF|印刷 ON|BYLAYER|BYBLOCK");
  user_.click(layer(), IDOK);
  EXPECT_EQ(
      selectedText(),
      L"<ODD> を <1:赤, X,表示 ON,ロック OFF,フリーズ OFF,印刷 ON,線幅値 BYLAYER,透過性 BYBLOCK> で作成");
}

TEST_F(LayerPicker, RefusalsLeaveItOpen) {
  add();
  const auto refused = [this](int id, const wchar_t* text) {
    user_.type(layer(), id, text);
    user_.click(layer(), IDOK);
    EXPECT_EQ(layer().focused(), id);
  };
  refused(IDC_LAYER_NAME, L"");
  for (const wchar_t* name : {L"A|B", L"A*"}) {
    user_.answersMessage({L"画層名に無効な文字があります。\r\n 画層名に次の文字は使用できません:\r\n"
                          L" <>/\\\"\":;?*|,='",
                          L"画層", Buttons::kOk, Icon::kStop},
                         Answer::kOk);
    refused(IDC_LAYER_NAME, name);
  }
  user_.type(layer(), IDC_LAYER_NAME, L"A");
  for (const wchar_t* color : {L"", L"赤", L"256:BYLAYER", L"300"}) refused(IDC_LAYER_COLOR, color);
  user_.type(layer(), IDC_LAYER_COLOR, L"7");
  refused(IDC_LAYER_LINETYPE, L"");
  const Rect place = layer().place();
  user_.click(layer(), IDCANCEL);
  EXPECT_EQ(rows(section_).size(), 3U);
  EXPECT_EQ(lastPickerPlace(PickerSlot::kLayer), place);
}

TEST_F(LayerPicker, TheColorDialogIsTheHosts) {
  add();
  const auto chosen = [this](const wchar_t* present) {
    user_.type(layer(), IDC_LAYER_COLOR, present);
    user_.click(layer(), IDC_LAYER_COLOR_DIALOG);
    EXPECT_TRUE(layer().isWindowEnabled());
    return layer().text(IDC_LAYER_COLOR);
  };
  EXPECT_EQ(chosen(L"33"), L"33") << "a host without one";
  int answer = 5;
  haveColorDialog([&answer] { acedRetInt(answer); });
  EXPECT_EQ(chosen(L"33"), L"5:青");
  for (const auto& [number, text] :
       {std::pair(0, L"0:BYBLOCK"), std::pair(256, L"256:BYLAYER"), std::pair(200, L"200")}) {
    answer = number;
    EXPECT_EQ(chosen(L"0:BYBLOCK"), text);
  }
  haveColorDialog([] { acedRetNil(); });
  EXPECT_EQ(chosen(L"256"), L"256");
  haveColorDialog([] {});
  EXPECT_EQ(chosen(L"2:黄"), L"2:黄");
  EXPECT_EQ(calls_, (std::vector<int>{33, 7, 7, 7, 7, 2}));
  user_.click(layer(), IDCANCEL);
}

TEST_F(LayerPicker, APickedLayerIsShown) {
  add();
  const auto picked = [this](const Texts& values) {
    user_.click(layer(), IDC_PICK);
    EXPECT_EQ(pick_.request, kLayerKind);
    pick_.values = values;
    dialog().pickCompleted();
    return shown();
  };
  EXPECT_EQ(picked({L"A", L"40", L"Dashed", L"表示 OFF", L"ロック ON", L"フリーズ ON", L"印刷 OFF",
                    L"線幅値 0.35 mm", L"透過性 20"}),
            L"A|40|Dashed|表示 OFF|ロック ON|フリーズ ON|印刷 OFF|0.35 mm|20");
  EXPECT_EQ(picked({L"B", L"1:赤", L"Continuous", L"表示 ON"}),
            L"B|1:赤|Continuous|表示 ON|ロック ON|フリーズ ON|印刷 OFF|0.35 mm|20");
  EXPECT_EQ(picked({}), shown());
  user_.click(layer(), IDCANCEL);
}

}  // namespace
}  // namespace kiv::testing
