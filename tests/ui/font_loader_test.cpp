// Text styles to set up, with fonts of the system and of the support folders.

#include "embedded/editor/host.h"
#include "platform/font_families.h"
#include "tests/ui/main_dialog_fixture.h"
#include "ui/font_files.h"

namespace kiv::testing {
namespace {

TEST(ShapeFonts, ABigFontSaysSoInItsFirstLine) {
  const std::string long_(255, '-');
  for (const std::string& big :
       {std::string("bigfont 1.0\r\n\x1A"), std::string("bigfont"), long_.substr(7) + "bigfont"})
    EXPECT_TRUE(isBigFont(big)) << big;
  for (const std::string& ordinary :
       {std::string(), std::string("unifont 1.0\r\nbigfont"), std::string("BIGFONT Bigfont\n"),
        long_.substr(6) + "bigfont", std::string("x\x1A bigfont"), std::string("x\0bigfont", 9)})
    EXPECT_FALSE(isBigFont(ordinary)) << ordinary;
}

TEST(FontFamilies, StandOnceEach) {
  std::vector<std::wstring> names;
  for (const FontFamily& family : fontFamilies(nullptr)) {
    EXPECT_FALSE(family.name.empty() || family.style.empty()) << base::toUtf8(family.name);
    names.push_back(family.name);
  }
#if defined(_WIN32)
  EXPECT_NE(std::ranges::find(names, L"Tahoma"), names.end());
#endif
  std::ranges::sort(names);
  EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
}

class FontLoader : public MainDialog {
 protected:
  void SetUp() override {
    MainDialog::SetUp();
    for (const char* name : {"first", "second"}) std::filesystem::create_directory(folder_ / name);
    make("first/ROMANS.SHX", "unifont 1.0\r\n");
    make("first/extfont2.shx", "bigfont 1.0\r\n");
    make("second/ROMANS.SHX", "");
    make("second/txt.shx", "");
    cad::Host::instance().setSupportPath({folder_ / "first", folder_ / "second", folder_ / "first"});
    open();
  }
  void TearDown() override {
    MainDialog::TearDown();
    cad::Host::instance().setSupportPath({});
  }
  DialogWindow& loader() { return *user_.shown(IDD_FONT); }
  void add() { chooseFromMenu(section_, IDC_ADD_ENTRY); }
  void type(int id, const wchar_t* text) { user_.type(loader(), id, text); }
  void click(int id) { user_.click(loader(), id); }
  // Confirms in vain; where the keyboard goes.
  int refused() {
    click(IDOK);
    return loader().focused();
  }
  // "mode|style|font|second"; with "+" when a big font is used, "!" when the second can be chosen.
  std::wstring shown() {
    DialogWindow& window = loader();
    const bool isShapes = window.isChecked(IDC_FONT_SHAPES);
    EXPECT_NE(isShapes, window.isChecked(IDC_FONT_TRUETYPE));
    EXPECT_EQ(window.isEnabled(IDC_FONT_USE_BIG), isShapes);
    EXPECT_EQ(window.text(IDC_FONT_MAIN_LABEL), isShapes ? L"SHXﾌｫﾝﾄ" : L"ﾌｫﾝﾄ名");
    EXPECT_EQ(window.text(IDC_FONT_SECOND_LABEL), isShapes ? L"ﾋﾞｯｸﾞﾌｫﾝﾄ" : L"ｽﾀｲﾙ名");
    return std::wstring(isShapes ? L"SHX" : L"TT") + (window.isChecked(IDC_FONT_USE_BIG) ? L"+" : L"") +
           (window.isEnabled(IDC_FONT_SECOND) ? L"!|" : L"|") + window.text(IDC_FONT_STYLE) + L"|" +
           window.text(IDC_FONT_MAIN) + L"|" + window.text(IDC_FONT_SECOND);
  }

  const Texts section_{L"字体のﾛｰﾄﾞ"};
};

TEST_F(FontLoader, AStyleIsAddedWithEitherKindOfFont) {
  add();
  EXPECT_EQ(shown(), L"TT|||");
  EXPECT_EQ(refused(), IDC_FONT_STYLE);
  type(IDC_FONT_STYLE, L"注記");
  EXPECT_EQ(refused(), IDC_FONT_MAIN);
  const std::vector<FontFamily> families = fontFamilies(nullptr);
  EXPECT_EQ(loader().combo(IDC_FONT_MAIN).entries().size(), families.size());
  if (!families.empty()) {
    user_.chooseEntry(loader(), IDC_FONT_MAIN, families.back().name);
    EXPECT_EQ(shown(), L"TT|注記|" + families.back().name + L"|" + families.back().style);
  }
  type(IDC_FONT_MAIN, L"MS Gothic 2");
  EXPECT_EQ(shown(), L"TT|注記|MS Gothic 2|") << "a face that the system does not have";
  click(IDOK);
  EXPECT_EQ(rows(section_), Texts{L"<注記> を作成 （MS Gothic 2）"});

  add();
  type(IDC_FONT_STYLE, L"図");
  click(IDC_FONT_SHAPES);
  EXPECT_EQ(loader().combo(IDC_FONT_MAIN).entries(), (Texts{L"ROMANS.SHX", L"txt.shx"}));
  EXPECT_EQ(loader().combo(IDC_FONT_SECOND).entries(), Texts{L"extfont2.shx"});
  EXPECT_EQ(refused(), IDC_FONT_MAIN);
  user_.chooseEntry(loader(), IDC_FONT_MAIN, L"txt.shx");
  click(IDC_FONT_SHAPES);
  EXPECT_EQ(shown(), L"SHX|図|txt.shx|") << "the same kind again";
  click(IDC_FONT_USE_BIG);
  EXPECT_EQ(shown(), L"SHX+!|図|txt.shx|");
  EXPECT_EQ(refused(), IDC_FONT_SECOND);
  user_.chooseEntry(loader(), IDC_FONT_SECOND, L"extfont2.shx");
  click(IDC_FONT_USE_BIG);
  EXPECT_EQ(shown(), L"SHX|図|txt.shx|extfont2.shx");
  click(IDC_FONT_USE_BIG);
  click(IDOK);
  EXPECT_EQ(rows(section_).back(), L"<図> を作成 （txt.shx,extfont2.shx）");

  select({section_[0], L"<図> を作成 （txt.shx,extfont2.shx）"});
  this->MainDialog::click(IDC_MAIN_EDIT);
  type(IDC_FONT_MAIN, L"romans");
  click(IDOK);
  EXPECT_EQ(rows(section_).back(), L"<図> を作成 （romans.shx,extfont2.shx）") << "a shape font all the same";
}

TEST_F(FontLoader, ThatABigFontIsUsedCountsInEitherMode) {
  add();
  type(IDC_FONT_STYLE, L"A");
  click(IDC_FONT_SHAPES);
  click(IDC_FONT_USE_BIG);
  click(IDC_FONT_TRUETYPE);
  EXPECT_EQ(shown(), L"TT+|A||");
  type(IDC_FONT_MAIN, L"MS Gothic 2");
  EXPECT_EQ(refused(), IDC_FONT_MAIN) << "the face has no style to stand for it";
  if (const std::vector<FontFamily> families = fontFamilies(nullptr); !families.empty()) {
    user_.chooseEntry(loader(), IDC_FONT_MAIN, families.front().name);
    click(IDOK);
    EXPECT_EQ(rows(section_), Texts{L"<A> を作成 （" + families.front().name + L"）"});
  } else {
    user_.close(loader());
  }
}

TEST_F(FontLoader, EditingShowsWhatIsThere) {
  makeConfig(L"A.CVT",
             L"[備考]\r\n\r\n\r\n[字体のﾛｰﾄﾞ]\r\nA, NO SUCH FACE, ----------\r\nB, ROMANS.SHX, ----------\r\n"
             L"C, OTHER.SHX, EXTFONT2.SHX\r\nD, NO SUCH FACE, EXTFONT2.SHX\r\n---End---\r\n");
  load(L"A.CVT");
  const Texts entries = rows(section_),
              wanted = {L"TT|A|NO SUCH FACE|", L"SHX|B|ROMANS.SHX|", L"SHX+!|C|OTHER.SHX|EXTFONT2.SHX",
                        L"TT|D|NO SUCH FACE|EXTFONT2.SHX"};
  ASSERT_EQ(entries.size(), wanted.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    user_.doubleClickItem(window(), IDC_MAIN_TREE, item({section_[0], entries[i]}));
    EXPECT_EQ(shown(), wanted[i]);
    click(IDOK);
  }
  EXPECT_EQ(rows(section_),
            (Texts{L"<A> を作成 （NO SUCH FACE）", L"<B> を作成 （ROMANS.SHX）",
                   L"<C> を作成 （OTHER.SHX,EXTFONT2.SHX）", L"<D> を作成 （NO SUCH FACE）"}));
}

TEST_F(FontLoader, APickedStyleFillsTheFields) {
  lastPickerPlace(PickerSlot::kFont) = {};
  add();
  const auto picked = [this](const Texts& values) {
    click(IDC_PICK);
    EXPECT_EQ(pick_.request, kFontKind);
    pick_.values = values;
    dialog().pickCompleted();
    return shown();
  };
  EXPECT_EQ(picked({L"A", L"Txt.Shx", L"extfont2.shx"}), L"SHX+!|A|Txt.Shx|extfont2.shx");
  EXPECT_EQ(picked({}), L"SHX+!|A|Txt.Shx|extfont2.shx");
  EXPECT_EQ(picked({L"B", L"ROMANS.SHX"}), L"SHX|B|ROMANS.SHX|extfont2.shx");
  EXPECT_EQ(picked({L"C", L"NO SUCH FACE"}), L"TT|C|NO SUCH FACE|");
  EXPECT_EQ(picked({L"ROMANS.SHX"}), L"SHX|ROMANS.SHX||");
  const Rect place = loader().place();
  click(IDCANCEL);
  EXPECT_EQ(rows(section_), Texts());
  EXPECT_EQ(lastPickerPlace(PickerSlot::kFont), place);
}

}  // namespace
}  // namespace kiv::testing
