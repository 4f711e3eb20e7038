#include "cadhost/command_window.h"

#include <commctrl.h>

#include <algorithm>

#include "cadhost/resource.h"
#include "cadhost/window_support.h"

namespace cadhost {
namespace {

constexpr wchar_t kClass[] = L"CadhostCommands";
constexpr int kHistoryLines = 7, kFontSize = 100;  // tenths of a point
constexpr LRESULT kLongestHistory = 400000;        // characters
constexpr ULONGLONG kShowEvery = 150;              // milliseconds
constexpr std::size_t kMostRecalled = 200;

int lineHeight(HWND window, HFONT font) {
  HDC dc = GetDC(window);
  const HGDIOBJ former = SelectObject(dc, font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  SelectObject(dc, former);
  ReleaseDC(window, dc);
  return metrics.tmHeight;
}

std::wstring withLineEnds(std::wstring_view text) {
  std::wstring out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) out += L'\r';
    out += text[i];
  }
  return out;
}

}  // namespace

CommandWindow::~CommandWindow() {
  if (font_ != nullptr) DeleteObject(font_);
}

bool CommandWindow::create(HWND parent, Hands hands) {
  hands_ = std::move(hands);
  const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(parent, GWLP_HINSTANCE));
  if (!registerWindow<CommandWindow>(instance, kClass, LoadCursorW(nullptr, IDC_ARROW),
                                     reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1)))
    return false;
  CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 0, 0,
                  parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_COMMANDS)), instance, this);
  if (window_ == nullptr) return false;
  createControls();
  return line_ != nullptr;
}

void CommandWindow::createControls() {
  const auto control = [&](const wchar_t* kind, int id, DWORD style, DWORD outer) {
    return CreateWindowExW(outer, kind, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  };
  history_ =
      control(L"EDIT", IDC_HISTORY, WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | ES_NOHIDESEL,
              WS_EX_CLIENTEDGE);
  prompt_ = control(L"STATIC", -1, SS_LEFT | SS_CENTERIMAGE, 0);
  line_ = control(L"EDIT", IDC_COMMAND_LINE, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
  SendMessageW(history_, EM_SETLIMITTEXT, 0, 0);
  SetWindowSubclass(line_, lineProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
  setPrompt(L"コマンド:");
  applyFont();
}

void CommandWindow::applyFont() {
  if (font_ != nullptr) DeleteObject(font_);
  font_ = makeFont(window_, L"MS Gothic", kFontSize);
  for (HWND control : {history_, prompt_, line_})
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
  layOut();
}

int CommandWindow::preferredHeight() const {
  return lineHeight(window_, font_) * (kHistoryLines + 1) + scaled(window_, 22);
}

void CommandWindow::layOut() {
  RECT area{};
  GetClientRect(window_, &area);
  const int lineTop = std::max<int>(area.bottom - lineHeight(window_, font_) - scaled(window_, 10), 0);
  const int promptWidth = scaled(window_, 80), gap = scaled(window_, 4);
  MoveWindow(history_, 0, 0, area.right, lineTop, TRUE);
  MoveWindow(prompt_, gap, lineTop, promptWidth, area.bottom - lineTop, TRUE);
  MoveWindow(line_, promptWidth + gap, lineTop, std::max<int>(area.right - promptWidth - gap, 0),
             area.bottom - lineTop, TRUE);
}

LRESULT CommandWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (line_ != nullptr) layOut();
      return 0;
    case WM_SETFOCUS:
      focus();
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void CommandWindow::print(std::wstring_view text) {
  unshown_ += text;
  if (GetTickCount64() - shownAt_ < kShowEvery) return;
  flush();
  UpdateWindow(history_);
}

void CommandWindow::flush() {
  if (unshown_.empty()) return;
  int length = GetWindowTextLengthW(history_);
  if (length == 0) unshown_.erase(0, unshown_.find_first_not_of(L"\n"));
  if (length > kLongestHistory) {
    const LRESULT line = SendMessageW(history_, EM_LINEFROMCHAR, length / 2, 0);
    SendMessageW(history_, EM_SETSEL, 0, SendMessageW(history_, EM_LINEINDEX, line, 0));
    SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    length = GetWindowTextLengthW(history_);
  }
  SendMessageW(history_, EM_SETSEL, length, length);
  SendMessageW(history_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(withLineEnds(unshown_).c_str()));
  unshown_.clear();
  shownAt_ = GetTickCount64();
}

std::wstring CommandWindow::line() const { return windowText(line_); }

void CommandWindow::setLine(const std::wstring& text) {
  SetWindowTextW(line_, text.c_str());
  SendMessageW(line_, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

void CommandWindow::setPrompt(const wchar_t* prompt) {
  if (windowText(prompt_) != prompt) SetWindowTextW(prompt_, prompt);
}

LRESULT CALLBACK CommandWindow::lineProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                              UINT_PTR, DWORD_PTR object) {
  auto* self = reinterpret_cast<CommandWindow*>(object);
  if (message == WM_KEYDOWN && self->takeKey(wParam)) return 0;
  if (message == WM_CHAR && self->takeCharacter(wParam)) return 0;
  return DefSubclassProc(window, message, wParam, lParam);
}

bool CommandWindow::takeKey(WPARAM key) {
  if (key != VK_UP && key != VK_DOWN) return false;
  recall(key == VK_UP ? -1 : 1);
  return true;
}

bool CommandWindow::takeCharacter(WPARAM c) {
  if (c == VK_RETURN) {
    enterLine();
    return true;
  }
  if (c == VK_ESCAPE) {
    setLine(L"");
    hands_.cancel();
    return true;
  }
  if (c == VK_SPACE && line().empty()) {  // a name may hold blanks, but none begins with one
    hands_.key(L' ');
    return true;
  }
  if (c > VK_SPACE) hands_.key(static_cast<wchar_t>(c));
  return false;
}

void CommandWindow::enterLine() {
  std::wstring text = line();
  setLine(L"");
  if (!text.empty() && (entered_.empty() || entered_.back() != text)) entered_.push_back(text);
  if (entered_.size() > kMostRecalled) entered_.erase(entered_.begin());
  recalled_ = entered_.size();
  hands_.enter(std::move(text));
}

void CommandWindow::recall(int step) {
  if (step < 0 && recalled_ > 0) --recalled_;
  if (step > 0 && recalled_ < entered_.size()) ++recalled_;
  setLine(recalled_ < entered_.size() ? entered_[recalled_] : L"");
}

}  // namespace cadhost
