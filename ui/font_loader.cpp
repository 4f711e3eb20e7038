#include "ui/font_loader.h"

#include <algorithm>
#include <utility>

#include "base/fold.h"
#include "base/paths.h"
#include "base/shape_fonts.h"
#include "spec/item_kinds.h"
#include "ui/resource.h"

namespace kiv {

CSelFont::CSelFont(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_FONT, PickerSlot::kFont, owner, pick), content_(std::move(request.present)) {}

void CSelFont::onInit() {
  families_ = fontFamilies(window().native());
  shapeFonts_ = shapeFonts();
  const std::vector<std::wstring>& values = content_.fields;
  const bool isShape = values.size() >= 2 && base::isShapeFont(values[1]);
  switchTo(isShape ? Mode::kShapes : Mode::kTrueType);
  useBigFont(isShape && values.size() == 3);
  if (values.size() >= 2) showValues(values);
  CSelBase::onInit();
  window().focus(IDC_FONT_STYLE);
}

int CSelFont::pickItem() const { return kFontKind; }

void CSelFont::onCommand(int command) {
  if (initialising()) return CSelBase::onCommand(command);
  const Mode chosen = command == IDC_FONT_SHAPES ? Mode::kShapes : Mode::kTrueType;
  switch (command) {
    case IDC_FONT_TRUETYPE:
    case IDC_FONT_SHAPES:
      if (chosen != mode_) switchTo(chosen);
      return;
    case IDC_FONT_USE_BIG:
      return useBigFont(window().isChecked(IDC_FONT_USE_BIG));
    default:
      return CSelBase::onCommand(command);
  }
}

void CSelFont::onEdited(int id) {
  if (id == IDC_FONT_MAIN) showStyleOfFace();
}

void CSelFont::onSelected(int id) {
  if (id == IDC_FONT_MAIN) showStyleOfFace();
}

void CSelFont::switchTo(Mode mode) {
  mode_ = mode;
  window().check(mode == Mode::kShapes ? IDC_FONT_SHAPES : IDC_FONT_TRUETYPE, true);
  fillLists();
}

void CSelFont::fillLists() {
  const bool isShapes = mode_ == Mode::kShapes;
  window().setText(IDC_FONT_MAIN_LABEL, isShapes ? L"SHXﾌｫﾝﾄ" : L"ﾌｫﾝﾄ名");
  window().setText(IDC_FONT_SECOND_LABEL, isShapes ? L"ﾋﾞｯｸﾞﾌｫﾝﾄ" : L"ｽﾀｲﾙ名");
  for (const int id : {IDC_FONT_MAIN, IDC_FONT_SECOND}) {
    window().combo(id).clear();
    window().setText(id, L"");
  }
  if (isShapes) {
    addEntries(window().combo(IDC_FONT_MAIN), shapeFonts_.ordinary);
    addEntries(window().combo(IDC_FONT_SECOND), shapeFonts_.big);
  } else {
    for (const FontFamily& family : families_) window().combo(IDC_FONT_MAIN).add(family.name);
  }
  window().enable(IDC_FONT_USE_BIG, isShapes);
  window().enable(IDC_FONT_SECOND, isShapes && usesBigFont_);
}

void CSelFont::useBigFont(bool uses) {
  usesBigFont_ = uses;
  window().check(IDC_FONT_USE_BIG, uses);
  window().enable(IDC_FONT_SECOND, mode_ == Mode::kShapes && uses);
}

void CSelFont::showValues(const std::vector<std::wstring>& values) {
  window().setText(IDC_FONT_STYLE, values[0]);
  if (values.size() > 1) {
    chooseOrType(window(), IDC_FONT_MAIN, values[1]);
    showStyleOfFace();
  }
  if (values.size() > 2) chooseOrType(window(), IDC_FONT_SECOND, values[2]);
}

void CSelFont::showStyleOfFace() {
  if (mode_ != Mode::kTrueType) return;
  ComboBox& styles = window().combo(IDC_FONT_SECOND);
  styles.clear();
  window().setText(IDC_FONT_SECOND, L"");
  // A file has the names in capital letters.
  const auto family = std::ranges::find_if(
      families_,
      [face = window().text(IDC_FONT_MAIN)](const auto& each) { return base::equalFolded(each.name, face); });
  if (family == families_.end()) return;
  styles.add(family->style);
  styles.select(0);
}

void CSelFont::confirm() {
  const auto given = [this](int id) { return std::wstring(base::trim(window().text(id))); };
  const std::wstring style = given(IDC_FONT_STYLE), font = given(IDC_FONT_MAIN);
  if (style.empty()) return window().focus(IDC_FONT_STYLE);
  if (font.empty()) return window().focus(IDC_FONT_MAIN);
  // Asked for in either mode, as it was left; a face that is chosen from the list has the style that is
  // wanted then.
  const std::wstring second = usesBigFont_ ? given(IDC_FONT_SECOND) : std::wstring();
  if (usesBigFont_ && second.empty())
    return window().focus(mode_ == Mode::kShapes ? IDC_FONT_SECOND : IDC_FONT_MAIN);
  // A file is called by its whole name, or it would be a typeface.
  const bool lacksExtension = mode_ == Mode::kShapes && base::splitPath(font).extension.empty();
  content_.fields = {style, lacksExtension ? font + L".shx" : font, second};
  if (owner().take(content_)) close();
}

// A style is often named as its font's file.
void CSelFont::pickCompleted() {
  const std::vector<std::wstring>& values = pick().values;
  if (!values.empty() && hasWindow()) {
    const bool isShape = std::any_of(
        values.begin(), values.begin() + std::min<std::ptrdiff_t>(2, std::ssize(values)), base::isShapeFont);
    const Mode mode = isShape ? Mode::kShapes : Mode::kTrueType;
    if (mode != mode_) switchTo(mode);
    if (isShape) useBigFont(values.size() == 3);
    showValues(values);
  }
  CSelBase::pickCompleted();
}

}  // namespace kiv
