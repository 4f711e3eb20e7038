#include "cadhost/color_dialog.h"

#include <string>

#include "acedads.h"
#include "base/fold.h"
#include "base/numbers.h"
#include "cadhost/color_grid.h"
#include "cadhost/resource.h"
#include "cadhost/window_support.h"

namespace cadhost {
namespace {

constexpr int kByBlock = 0, kByLayer = 256;
constexpr wchar_t kByBlockText[] = L"ByBlock", kByLayerText[] = L"ByLayer";

bool isIndex(int number) { return number > kByBlock && number < kByLayer; }

std::wstring textOf(int number) {
  if (isIndex(number)) return std::to_wstring(number);
  return number == kByBlock ? kByBlockText : kByLayerText;
}

std::optional<int> numberOf(std::wstring_view text) {
  text = base::trim(text);
  if (base::equalFolded(text, kByBlockText)) return kByBlock;
  if (base::equalFolded(text, kByLayerText)) return kByLayer;
  if (!base::isInteger(text)) return std::nullopt;
  const int number = base::leadingInteger(text);
  return isIndex(number) ? std::optional(number) : std::nullopt;
}

class ColorDialog {
 public:
  explicit ColorDialog(const ColorQuestion& question) : question_(question) {}

  std::optional<int> run(HWND owner) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    ColorGrid::registerClass(instance);
    const INT_PTR ended = DialogBoxParamW(instance, MAKEINTRESOURCEW(IDD_COLOR), owner, procedure,
                                          reinterpret_cast<LPARAM>(this));
    return ended == IDOK ? chosen_ : std::nullopt;
  }

 private:
  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
      reinterpret_cast<ColorDialog*>(lParam)->open(window);
      return FALSE;  // the field has the keyboard
    }
    auto* dialog = reinterpret_cast<ColorDialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (dialog == nullptr || message != WM_COMMAND) return FALSE;
    dialog->command(LOWORD(wParam), HIWORD(wParam));
    return TRUE;
  }

  void open(HWND window) {
    window_ = window;
    for (const int id : {IDC_COLOR_BY_LAYER, IDC_COLOR_BY_BLOCK})
      EnableWindow(GetDlgItem(window_, id), question_.allowsByOther);
    showText(question_.present);
    showInGrid();
    focusField();
  }

  void command(int id, WORD code) {
    if (id == IDC_COLOR_GRID) {
      showText(static_cast<int>(SendDlgItemMessageW(window_, IDC_COLOR_GRID, ColorGrid::kGetColor, 0, 0)));
      if (code == ColorGrid::kConfirmed) confirm();
    } else if (id == IDC_COLOR_NUMBER && code == EN_CHANGE) {
      showInGrid();
    } else if (id == IDC_COLOR_BY_LAYER || id == IDC_COLOR_BY_BLOCK) {
      showText(id == IDC_COLOR_BY_LAYER ? kByLayer : kByBlock);
    } else if (id == IDOK) {
      confirm();
    } else if (id == IDCANCEL) {
      EndDialog(window_, IDCANCEL);
    }
  }

  std::optional<int> typed() const {
    const auto number = numberOf(windowText(GetDlgItem(window_, IDC_COLOR_NUMBER)));
    const bool isAllowed = number && (question_.allowsByOther || isIndex(*number));
    return isAllowed ? number : std::nullopt;
  }

  void showText(int number) { SetDlgItemTextW(window_, IDC_COLOR_NUMBER, textOf(number).c_str()); }

  void showInGrid() {
    const int number = typed().value_or(0);
    SendDlgItemMessageW(window_, IDC_COLOR_GRID, ColorGrid::kSetColor,
                        static_cast<WPARAM>(isIndex(number) ? number : 0), 0);
  }

  void focusField() {
    const HWND field = GetDlgItem(window_, IDC_COLOR_NUMBER);
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(field), TRUE);
    SendMessageW(field, EM_SETSEL, 0, -1);
  }

  void confirm() {
    chosen_ = typed();
    if (chosen_) {
      EndDialog(window_, IDOK);
      return;
    }
    const wchar_t* const text = question_.allowsByOther
                                    ? L"色番号は 1 から 255 までの整数、ByLayer、ByBlock のいずれかです。"
                                    : L"色番号は 1 から 255 までの整数です。";
    MessageBoxW(window_, text, windowText(window_).c_str(), MB_OK | MB_ICONWARNING);
    focusField();
  }

  ColorQuestion question_;
  HWND window_ = nullptr;
  std::optional<int> chosen_;
};

// Nothing when the call is not one of the two forms.
std::optional<ColorQuestion> questionOf(const resbuf* arguments) {
  if (arguments == nullptr || arguments->restype != RTSHORT) return std::nullopt;
  const resbuf* const flag = arguments->rbnext;
  const int present = arguments->resval.rint;
  const bool isComplete = flag == nullptr || flag->rbnext == nullptr;
  if (!isComplete || present < kByBlock || present > kByLayer) return std::nullopt;
  return ColorQuestion{present, flag == nullptr || flag->restype != RTNIL};
}

}  // namespace

std::optional<int> askColor(HWND owner, const ColorQuestion& question) {
  return ColorDialog(question).run(owner);
}

void answerColorCall(HWND owner) {
  const std::optional<ColorQuestion> question = questionOf(acedGetArgs());
  if (!question) return;
  if (const std::optional<int> chosen = askColor(owner, *question)) {
    acedRetInt(*chosen);
  } else {
    acedRetNil();
  }
}

bool askDrawingColor(HWND owner) {
  resbuf value{};
  if (acedGetVar(L"CECOLOR", &value) != RTNORM) return false;
  const int present = numberOf(value.resval.rstring).value_or(kByLayer);
  acutDelString(value.resval.rstring);
  const std::optional<int> chosen = askColor(owner, {present, true});
  if (!chosen) return true;
  std::wstring text = textOf(*chosen);
  resbuf made{};
  made.restype = RTSTR;
  made.resval.rstring = text.data();
  return acedSetVar(L"CECOLOR", &made) == RTNORM;
}

}  // namespace cadhost
