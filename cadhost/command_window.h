#pragma once
// The command history and the command line below it.

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace cadhost {

class CommandWindow {
 public:
  struct Hands {
    std::function<void(std::wstring)> enter;  // the line, without its end
    std::function<void(wchar_t)> key;         // a character that was typed into the line
    std::function<void()> cancel;             // Esc
  };

  ~CommandWindow();
  bool create(HWND parent, Hands hands);
  HWND window() const { return window_; }
  int preferredHeight() const;  // pixels

  // Line feeds begin new lines. Shown at the next flush, or soon when much comes.
  void print(std::wstring_view text);
  void flush();

  std::wstring line() const;
  void setLine(const std::wstring& text);  // the caret goes behind it
  void setPrompt(const wchar_t* prompt);
  void focus() { SetFocus(line_); }
  // A character typed while another window has the focus.
  void typeCharacter(wchar_t c) { SendMessageW(line_, WM_CHAR, c, 0); }
  void applyFont();  // again, after the monitor has changed

  void attach(HWND window) { window_ = window; }
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK lineProcedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
  void createControls();
  void layOut();
  bool takeKey(WPARAM key);  // true: the line does not get it
  bool takeCharacter(WPARAM c);
  void enterLine();
  void recall(int step);

  HWND window_ = nullptr, history_ = nullptr, prompt_ = nullptr, line_ = nullptr;
  HFONT font_ = nullptr;
  Hands hands_;
  std::wstring unshown_;
  ULONGLONG shownAt_ = 0;
  std::vector<std::wstring> entered_;  // newest last
  std::size_t recalled_ = 0;           // index into entered_; its size: none
};

}  // namespace cadhost
