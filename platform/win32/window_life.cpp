// How a dialog's window comes and goes.
#include "platform/win32/window.h"

// Needs what windows.h declares.
#include <commctrl.h>

#include <algorithm>

#include "platform/dialog_backend.h"
#include "platform/win32/control_keys.h"
#include "platform/win32/dialog_keys.h"
#include "platform/win32/dialog_template.h"
#include "platform/win32/grid.h"
#include "platform/win32/lineweight_list.h"
#include "platform/win32/messages.h"

namespace kiv::win32 {
namespace {

std::vector<Window*>& windows() {
  static auto& list = *new std::vector<Window*>;  // dialogs may go while the library's statics go
  return list;
}

void prepareControlClasses() {
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC = ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES;
  InitCommonControlsEx(&classes);
  registerGridClass();
}

BOOL CALLBACK prepareChild(HWND child, LPARAM) {
  for (const wchar_t* windowClass : {WC_TREEVIEWW, WC_LISTVIEWW, kGridClass})
    if (isOfClass(child, windowClass)) watchControl(child);
  if (isLineweightList(child)) prepareLineweightList(child);
  return TRUE;
}

// Over the middle of its owner, within the monitor's usable part.
void putInMiddle(HWND window, HWND owner) {
  const RECT usable = usablePartOfMonitor(owner ? owner : window);
  if (IsRectEmpty(&usable)) return;
  RECT around = usable, own{};
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
  GetWindowRect(window, &own);
  const LONG width = own.right - own.left, height = own.bottom - own.top;
  const LONG left = (around.left + around.right - width) / 2;
  const LONG top = (around.top + around.bottom - height) / 2;
  SetWindowPos(window, nullptr, std::max(usable.left, std::min(left, usable.right - width)),
               std::max(usable.top, std::min(top, usable.bottom - height)), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

Window::Window(Dialog& dialog)
    : dialog_(&dialog), resource_(dialog.resource()), accessKeys_(dialog.resource()) {}

std::unique_ptr<Window> Window::make(Dialog& dialog, HWND owner) {
  prepareControlClasses();
  const std::vector<std::uint32_t> description = dialogTemplate(dialog.resource());
  if (description.empty()) return nullptr;
  const HWND top = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
  const HWND handle = CreateDialogIndirectParamW(
      moduleInstance(), reinterpret_cast<LPCDLGTEMPLATEW>(description.data()), top, dialogProcedure, 0);
  if (!handle) return nullptr;
  std::unique_ptr<Window> window(new Window(dialog));
  window->window_ = handle;
  if (windows().empty()) listenToHostMessages(true);
  windows().insert(windows().begin(), window.get());
  EnumChildWindows(handle, prepareChild, 0);
  putInMiddle(handle, top);
  window->rememberFirstSize();
  return window;
}

Window::~Window() = default;

Window* Window::of(HWND handle) {
  for (Window* window : windows())
    if (window->window_ == handle) return window;
  return nullptr;
}

const std::vector<Window*>& Window::all() { return windows(); }

bool Window::leaveHandler() {
  --handling_;
  if (dialog_) return true;
  if (handling_ == 0) delete this;
  return false;
}

void Window::takeOwnedAlong() {
  const auto firstOwned = [this]() -> Window* {
    for (Window* window : windows())
      if (window->dialog_ && GetWindow(window->window_, GW_OWNER) == window_ &&
          !DialogBackend::hasEnded(*window->dialog_))
        return window;
    return nullptr;
  };
  while (Window* owned = firstOwned()) DialogBackend::ownerGoes(*owned->dialog_);
}

// No message reaches the dialog any more.
void Window::forget() {
  dialog_ = nullptr;
  windows().erase(std::remove(windows().begin(), windows().end(), this), windows().end());
  if (windows().empty()) listenToHostMessages(false);
}

void Window::goAway() {
  if (window_) takeOwnedAlong();
  const HWND handle = window_;
  forget();
  if (handling_ == 0) {
    if (handle) DestroyWindow(handle);
    delete this;
    return;
  }
  // One of its controls may be in the middle of telling about a click: it must live on until that is over.
  // The object goes in leaveHandler().
  if (!handle) return;
  ShowWindow(handle, SW_HIDE);
  PostMessageW(handle, kGoNow, 0, 0);
}

void Window::windowVanishes() {
  takeOwnedAlong();
  window_ = nullptr;
  focusWhenActive_ = nullptr;
  if (dialog_) DialogBackend::ownerGoes(*dialog_);
}

}  // namespace kiv::win32
