#include "tests/platform/headless/layout.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/headless/resource_styles.h"

namespace kiv::headless {
namespace {

// Dialog units
constexpr int kFullWidth = 8;
constexpr int kHalfWidth = 5;  // the widest of those in use
constexpr int kLineHeight = 8;
constexpr int kButtonMargin = 8;
constexpr int kMarkWidth = 12;    // of a check box or radio button, with its distance from the caption
constexpr int kClosedCombo = 13;  // the height that a combo box has on the dialog

bool isHalfWidth(wchar_t c) { return c < 0x2000 || (c >= 0xFF61 && c <= 0xFFDC); }

int shownHeight(const ResourceControl& control) {
  return control.kind == ControlKind::kComboBox ? std::min(control.height, kClosedCombo) : control.height;
}

bool takesSpace(const ResourceControl& control) {
  return control.kind != ControlKind::kGroupBox && control.has(style::kVisible);
}

bool overlap(const ResourceControl& a, const ResourceControl& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + shownHeight(b) &&
         b.y < a.y + shownHeight(a);
}

bool standsInside(const ResourceControl& control, const DialogResource& dialog) {
  return control.x >= 0 && control.y >= 0 && control.x + control.width <= dialog.width &&
         control.y + shownHeight(control) <= dialog.height;
}

bool heedsPrefix(const ResourceControl& control) {
  return control.kind != ControlKind::kLabel || !control.has(style::kNoPrefix);
}

std::wstring withoutPrefixes(std::wstring_view caption) {
  std::wstring result;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == L'&' && ++i == caption.size()) break;
    result += caption[i];
  }
  return result;
}

// What a control of this kind needs beside its caption; -1: its caption is not shown in the box.
int captionMargin(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
      return 0;
    case ControlKind::kPushButton:
    case ControlKind::kGroupBox:
      return kButtonMargin;
    case ControlKind::kCheckBox:
    case ControlKind::kRadioButton:
      return kMarkWidth;
    default:
      return -1;
  }
}

bool captionFits(const ResourceControl& control) {
  const int margin = captionMargin(control.kind);
  const bool hasPicture = control.kind == ControlKind::kCheckBox && control.has(style::kPicture);
  if (margin < 0 || hasPicture || control.caption.empty()) return true;
  const std::wstring caption = heedsPrefix(control) ? withoutPrefixes(control.caption) : control.caption;
  const auto lines = static_cast<int>(std::count(caption.begin(), caption.end(), L'\n')) + 1;
  return captionWidth(caption) + margin <= control.width && lines * kLineHeight <= control.height;
}

std::wstring name(const ResourceControl& control) {
  return L"control " + std::to_wstring(control.id) + L" (line " + std::to_wstring(control.line) + L")";
}

bool takesKeyboard(const ResourceControl& control) {
  return control.has(style::kVisible) && control.kind != ControlKind::kLabel &&
         control.kind != ControlKind::kGroupBox && control.kind != ControlKind::kIcon;
}

class Check {
 public:
  explicit Check(const DialogResource& dialog) : dialog_(dialog) {}

  std::vector<std::wstring> run() {
    for (std::size_t i = 0; i < dialog_.controls.size(); ++i) {
      const ResourceControl& control = dialog_.controls[i];
      if (!standsInside(control, dialog_)) fault(control, L"reaches out of the dialog");
      if (!captionFits(control)) fault(control, L"is too small for its caption");
      checkOverlaps(i);
      checkNames(control);
    }
    return std::move(faults_);
  }

 private:
  void fault(const ResourceControl& control, const std::wstring& what) {
    faults_.push_back(L"dialog " + std::to_wstring(dialog_.id) + L", " + name(control) + L" " + what);
  }

  void checkOverlaps(std::size_t index) {
    const ResourceControl& control = dialog_.controls[index];
    if (!takesSpace(control)) return;
    for (std::size_t i = 0; i < index; ++i) {
      const ResourceControl& other = dialog_.controls[i];
      if (takesSpace(other) && overlap(control, other)) fault(control, L"overlaps " + name(other));
    }
  }

  void checkNames(const ResourceControl& control) {
    if (control.id != -1) {
      const auto [known, isNew] = ids_.emplace(control.id, &control);
      if (!isNew) fault(control, L"has the id of " + name(*known->second));
    }
  }

  const DialogResource& dialog_;
  std::vector<std::wstring> faults_;
  std::map<int, const ResourceControl*> ids_;
};

}  // namespace

int captionWidth(std::wstring_view caption) {
  int widest = 0;
  int width = 0;
  for (const wchar_t c : caption) {
    width = c == L'\n' ? 0 : width + (isHalfWidth(c) ? kHalfWidth : kFullWidth);
    widest = std::max(widest, width);
  }
  return widest;
}

std::vector<std::wstring> layoutFaults(const DialogResource& dialog) { return Check(dialog).run(); }

std::vector<std::wstring> accessKeyFaults(const ResourceScript& script, const DialogResource& dialog) {
  std::vector<std::wstring> faults;
  const std::wstring start = L"dialog " + std::to_wstring(dialog.id) + L", ";
  std::set<wchar_t> letters;
  std::set<int> reached;
  for (const AccessKey& key : script.accessKeys) {
    if (key.dialog != dialog.id) continue;
    if (!letters.insert(key.letter).second) faults.push_back(start + key.letter + L" stands there twice");
    reached.insert(key.control);
  }
  for (const ResourceControl& control : dialog.controls) {
    const bool hasKey = reached.erase(control.id) != 0;
    if (takesKeyboard(control) && !hasKey) faults.push_back(start + name(control) + L" has no access key");
  }
  for (const int id : reached) faults.push_back(start + L"there is no control " + std::to_wstring(id));
  return faults;
}

}  // namespace kiv::headless
