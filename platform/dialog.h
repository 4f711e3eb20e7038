#pragma once
// The behaviour of a dialog: what it does when it opens and when a person does something to its controls.
// Its look (controls, captions, order of the tab key) stands in the module's resource script.

#include <memory>

#include "platform/dialog_window.h"

namespace kiv {

// kSelectAll is A with Ctrl.
enum class Key { kEnter, kEscape, kTab, kDelete, kInsert, kUp, kDown, kF2, kF5, kSelectAll };

class Dialog {
 public:
  explicit Dialog(int resource) : resource_(resource) {}
  virtual ~Dialog();  // destroys the window, without onDestroyed()
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  // Modeless: makes the window and runs onInit(), which shows it. False when the resource is missing or
  // windows cannot be shown here.
  bool create(NativeWindow owner);
  // Modal: shows the window, disables its owner, and returns what end() was given. kNotShown as above.
  int runModal(NativeWindow owner);
  static constexpr int kNotShown = -1;

  // Ends runModal(). The controls stay readable until the handler returns.
  void end(int result);
  // A modeless window goes, and first those that it owns. Then onDestroyed() runs, which may delete this
  // object; so nothing of it may be touched after the call.
  void destroy();

  bool hasWindow() const { return window_ != nullptr; }
  DialogWindow& window() { return *window_; }  // only while there is one
  const DialogWindow& window() const { return *window_; }
  int resource() const { return resource_; }

  // --- Called by the backend. None runs while the window is being made, except onInit().
  virtual void onInit() {}  // the window is made but not shown; a modal one is shown afterwards
  // Buttons, check boxes (their mark has changed already), radio buttons, menu and posted commands. Enter
  // gives the default button, Escape and the window's closing box give 2. Unhandled, 1 and 2 end a modal
  // dialog with that result and 2 destroys a modeless one.
  virtual void onCommand(int command);
  virtual void onEdited(int /*id*/) {}  // the person changed the text of an edit or a combo box's field
  // The person chose a list row, combo entry, tree item, grid row. Of a list in which several rows can be
  // selected: once for each row that is selected now, or is not any more.
  virtual void onSelected(int /*id*/) {}
  virtual void onDoubleClicked(int /*id*/) {}  // a list row, an entry of a combo box's list, a tree item
  virtual void onHeaderClicked(int /*id*/, int /*column*/) {}
  virtual void onOpening(int /*id*/, TreeItem /*item*/) {}  // the person opens it; its children can be added
  virtual void onTimer() {}
  // A key in a tree, list or grid, before the control uses it; kF5 wherever the keyboard is. True: done with.
  virtual bool onKey(int /*id*/, Key /*key*/) { return false; }
  // The right button or the menu key; the item or row under the pointer is selected already.
  virtual void onContextMenu(int /*id*/, Place /*screen*/) {}
  virtual void onDestroyed() {}  // the window is gone; modeless dialogs only

 private:
  friend class DialogBackend;
  bool makeWindow(NativeWindow owner, bool modal);

  int resource_;
  bool modal_ = false;
  bool ended_ = false;  // of a modal one: there is a result
  int result_ = kNotShown;
  std::unique_ptr<DialogWindow> window_;
};

// False where nobody could see or use a dialog.
bool canShowDialogs();

// A dialog script (platform/dialog_script.h) is set: no person is there.
bool areDialogsScripted();

// Gives back what the module holds of the system for its windows, before the host unloads its library:
// afterwards its code is not there any more. No dialog may be open. What is used later is made anew.
void releaseDialogs();

}  // namespace kiv
