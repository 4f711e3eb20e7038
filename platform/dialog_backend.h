#pragma once
// What Dialog needs of a backend. Each backend (win32/, headless/) defines the functions of the first part;
// the second part is common (platform/dialog.cpp) and is all that a backend may do to a dialog besides
// calling its handlers.

#include <memory>

#include "platform/dialog.h"

namespace kiv {

class DialogBackend {
 public:
  // --- Defined by each backend

  static bool canShow();
  static bool isScripted();

  // The window with its controls, not shown; no handler of the dialog runs. Null when the resource is
  // missing or the system refuses. The owner's window lies behind the new one and takes it along when it
  // goes. The window refers to the dialog until it is passed to destroyWindow().
  static std::unique_ptr<DialogWindow> createWindow(Dialog& dialog, NativeWindow owner);

  // A script that has acted so often in a modal dialog without ending it never will.
  static constexpr int kMostActs = 2000;

  // Disables the owner unless it is disabled already, shows the dialog's window, gives it the keyboard and
  // serves it until hasEnded(); then enables the owner, if it was disabled here, and activates it. The window
  // stays. A dialog script's act() is called whenever nothing else is under way.
  static void runModal(Dialog& dialog, NativeWindow owner);

  // The window goes: windows of dialogs that it owns first, each as by the dialog's destroy(), then itself.
  // May be called inside a handler of the window's own dialog: the object must then outlive the handler, but
  // from now on it calls no handler, and its posted commands are lost.
  static void destroyWindow(std::unique_ptr<DialogWindow> window);

  // While there is no window: what belongs to all of them goes, and is made again with the next one.
  static void release();

  // --- Common

  // A modal dialog has been given its result, or its window has gone.
  static bool hasEnded(const Dialog& dialog) { return dialog.ended_; }
  // Nobody can end the modal dialog: runModal() of the dialog returns kNotShown.
  static void abandon(Dialog& dialog);
  // A window goes because its owner goes. A modal dialog ends with 2 when it has not ended yet, a modeless
  // one is destroyed, which may delete it.
  static void ownerGoes(Dialog& dialog);
};

}  // namespace kiv
