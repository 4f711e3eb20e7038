#include "platform/dialog.h"

#include <utility>

#include "platform/dialog_backend.h"

namespace kiv {
namespace {

constexpr int kOkCommand = 1;
constexpr int kCancelCommand = 2;

}  // namespace

Dialog::~Dialog() {
  if (window_) DialogBackend::destroyWindow(std::move(window_));
}

bool Dialog::makeWindow(NativeWindow owner, bool modal) {
  if (window_ || !DialogBackend::canShow()) return false;
  modal_ = modal;
  ended_ = false;
  result_ = kNotShown;
  window_ = DialogBackend::createWindow(*this, owner);
  return window_ != nullptr;
}

bool Dialog::create(NativeWindow owner) {
  if (!makeWindow(owner, false)) return false;
  onInit();  // may destroy the window and delete this object
  return true;
}

int Dialog::runModal(NativeWindow owner) {
  if (!makeWindow(owner, true)) return kNotShown;
  onInit();
  if (!ended_) DialogBackend::runModal(*this, owner);
  if (window_) DialogBackend::destroyWindow(std::move(window_));
  modal_ = false;
  return result_;
}

void Dialog::end(int result) {
  if (!modal_ || ended_) return;
  ended_ = true;
  result_ = result;
}

void Dialog::destroy() {
  if (!window_ || modal_) return;
  DialogBackend::destroyWindow(std::move(window_));
  onDestroyed();
}

void Dialog::onCommand(int command) {
  if (modal_) {
    if (command == kOkCommand || command == kCancelCommand) end(command);
  } else if (command == kCancelCommand) {
    destroy();
  }
}

void DialogBackend::abandon(Dialog& dialog) { dialog.end(Dialog::kNotShown); }

void DialogBackend::ownerGoes(Dialog& dialog) {
  if (dialog.modal_) {
    dialog.end(kCancelCommand);
  } else {
    dialog.destroy();
  }
}

bool canShowDialogs() { return DialogBackend::canShow(); }

bool areDialogsScripted() { return DialogBackend::isScripted(); }

void releaseDialogs() { DialogBackend::release(); }

}  // namespace kiv
