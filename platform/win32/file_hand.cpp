#include "platform/win32/file_hand.h"

// Needs what windows.h declares.
#include <dlgs.h>

namespace kiv::win32 {
namespace {

HWND theChooser = nullptr;

UINT_PTR CALLBACK watchChooser(HWND child, UINT message, WPARAM, LPARAM data) {
  if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(data)->code == CDN_INITDONE)
    theChooser = GetParent(child);
  if (message == WM_DESTROY) theChooser = nullptr;
  return 0;
}

// The system's own refusal of a name; its owner is the chooser.
bool isOwnedBox(HWND window, void* owner) { return GetWindow(window, GW_OWNER) == owner; }

void typePath(const std::wstring& path) {
  const HWND field = GetDlgItem(theChooser, edt1);
  SendMessageW(theChooser, CDM_SETCONTROLTEXT, field ? edt1 : cmb13, reinterpret_cast<LPARAM>(path.c_str()));
}

}  // namespace

FileHand::FileHand(OPENFILENAMEW& chooser, std::optional<std::wstring> path) : path_(std::move(path)) {
  theChooser = nullptr;
  chooser.Flags |= OFN_ENABLEHOOK;
  chooser.lpfnHook = watchChooser;
  begin();
}

bool FileHand::step() {
  if (!theChooser || !IsWindowVisible(theChooser)) return false;
  if (!path_) return pressButton(theChooser, IDCANCEL);
  if (confirmed_) {
    const HWND box = findOwnWindow(L"#32770", isOwnedBox, theChooser);
    if (!box) return false;
    report(L"the system refuses " + name());
    giveUp();
    return true;
  }
  typePath(*path_);
  confirmed_ = pressButton(theChooser, IDOK);
  return false;
}

void FileHand::giveUp() {
  if (const HWND box = findOwnWindow(L"#32770", isOwnedBox, theChooser)) EndDialog(box, IDNO);
  if (theChooser) PostMessageW(theChooser, WM_COMMAND, IDCANCEL, 0);
}

std::wstring FileHand::name() const { return L"the file chooser, path \"" + path_.value_or(L"") + L"\""; }

}  // namespace kiv::win32
