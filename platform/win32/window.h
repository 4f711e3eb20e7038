#pragma once
// A dialog's real window.

#include <map>
#include <memory>

#include "platform/dialog.h"
#include "platform/win32/access_keys.h"
#include "platform/win32/control.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

class LineweightComboBox;

class Window final : public DialogWindow {
 public:
  // Null when there is no such resource or the system refuses.
  static std::unique_ptr<Window> make(Dialog& dialog, HWND owner);
  ~Window() override;

  // The object of a dialog's window; null for any other window and for one that is going.
  static Window* of(HWND window);
  // Every dialog's window, the newest first.
  static const std::vector<Window*>& all();

  int resource() const override { return resource_; }
  NativeWindow native() const override { return window_; }
  HWND handle() const { return window_; }
  Dialog* dialog() const { return dialog_; }

  std::wstring title() const override;
  void setTitle(std::wstring_view title) override;
  void show(bool shown) override;
  bool isShown() const override;
  void enableWindow(bool enabled) override;
  bool isWindowEnabled() const override;
  void activate() override;
  Rect place() const override;
  void setPlace(const Rect& place) override;
  void moveTo(Place topLeft) override;
  void setSize(int width, int height) override;
  void holdTo(int id, unsigned edges) override;
  void post(int command) override;
  void setTimer(int milliseconds) override;

  Rect placeOf(int id) const override;
  Place menuPlace(int id) const override;
  std::wstring text(int id) const override;
  void setText(int id, std::wstring_view text) override;
  bool isEnabled(int id) const override;
  void enable(int id, bool enabled) override;
  bool isVisible(int id) const override;
  void showControl(int id, bool visible) override;
  void focus(int id) override;
  int focused() const override;
  bool isChecked(int id) const override;
  void check(int id, bool checked) override;
  void setPicture(int id, int resource) override;

  ComboBox& combo(int id) override;
  TreeView& tree(int id) override;
  ListView& list(int id) override;
  TextGrid& grid(int id) override;

  // Runs `action(Dialog&)`, in which the dialog may end, be destroyed and deleted. False when the window has
  // gone by the end: nothing of it may be touched then.
  template <class Action>
  bool tell(Action action) {
    if (!dialog_) return false;
    bool isThere = false;
    {
      const Handling handling(*this, isThere);
      action(*dialog_);
    }
    return isThere;
  }

  // Something that the program does to a control, so nothing that the person did, is under way.
  bool isQuiet() const { return quiet_ > 0; }

  AccessKeys& accessKeys() { return accessKeys_; }
  // As a click for a button, else the control gets the keyboard; nothing where a click would do nothing.
  void reach(int id);

  LineweightComboBox* lineweights(int id);  // null for any other control

  void rememberFocus();
  void giveKeyboard();
  void draw(const DRAWITEMSTRUCT& item);  // an owner-drawn button, an entry of a list of lineweights

  void takeSize();                     // the controls that are held to an edge go along
  void limitSize(MINMAXINFO& limits);  // the first size is the least one

  // The system destroys the window without having been asked by goAway().
  void windowVanishes();
  // The window goes, and with it this object: at once, or after the handler at work.
  void goAway();

 private:
  // A handler of the dialog is at work, which may fail.
  class Handling {
   public:
    Handling(Window& window, bool& isThere) : window_(window), isThere_(isThere) { ++window_.handling_; }
    ~Handling() { isThere_ = window_.leaveHandler(); }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

   private:
    Window& window_;
    bool& isThere_;
  };

  explicit Window(Dialog& dialog);

  HWND control(int id) const { return GetDlgItem(window_, id); }
  // The control when it is one of that window class; null otherwise.
  HWND controlOfClass(int id, const wchar_t* windowClass) const;
  template <class Adapter>
  Adapter& adapter(int id, const wchar_t* windowClass);
  void leaveControl(HWND handle);
  void takeKeyboardTo(HWND handle);
  bool leaveHandler();
  void takeOwnedAlong();
  void rememberFirstSize();
  void forget();

  Dialog* dialog_;
  int resource_;
  HWND window_ = nullptr;
  HWND focusWhenActive_ = nullptr;
  AccessKeys accessKeys_;
  int handling_ = 0;
  int quiet_ = 0;
  Place firstSize_;    // of the window
  Place firstInside_;  // of what is inside its frame
  struct Held {
    unsigned edges;
    Rect first;  // its place inside
  };
  std::map<int, Held> held_;
  std::map<int, std::unique_ptr<Control>> controls_;
};

}  // namespace kiv::win32
