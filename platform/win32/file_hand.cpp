#include "platform/win32/file_hand.h"

// Needs what windows.h declares.
#include <dlgs.h>

#include <utility>

#include "base/paths.h"

namespace kiv::win32 {
namespace {

HWND theChooser = nullptr;
bool folderShown = false;  // since the last confirmation

UINT_PTR CALLBACK watchChooser(HWND child, UINT message, WPARAM, LPARAM data) {
  if (message == WM_NOTIFY) {
    const UINT code = reinterpret_cast<const NMHDR*>(data)->code;
    if (code == CDN_INITDONE) theChooser = GetParent(child);
    if (code == CDN_FOLDERCHANGE) folderShown = true;
  }
  if (message == WM_DESTROY) theChooser = nullptr;
  return 0;
}

// The system's own refusal of a name; its owner is the chooser.
bool isOwnedBox(HWND window, void* owner) { return GetWindow(window, GW_OWNER) == owner; }

void typePath(const std::wstring& path) {
  const HWND field = GetDlgItem(theChooser, edt1);
  SendMessageW(theChooser, CDM_SETCONTROLTEXT, field ? edt1 : cmb13, reinterpret_cast<LPARAM>(path.c_str()));
}

// What several names in one folder are typed as.
std::wstring quotedNames(const std::vector<std::wstring>& paths) {
  std::wstring text;
  for (const std::wstring& path : paths) {
    const base::PathParts parts = base::splitPath(path);
    text += L"\"" + parts.name + parts.extension + L"\" ";
  }
  return text;
}

}  // namespace

FileHand::FileHand(OPENFILENAMEW& chooser, std::vector<std::wstring> paths) : paths_(std::move(paths)) {
  theChooser = nullptr;
  chooser.Flags |= OFN_ENABLEHOOK;
  chooser.lpfnHook = watchChooser;
  begin();
}

bool FileHand::confirm(const std::wstring& typed) {
  folderShown = false;
  typePath(typed);
  return pressButton(theChooser, IDOK);
}

bool FileHand::step() {
  if (!theChooser || !IsWindowVisible(theChooser)) return false;
  if (paths_.empty()) return pressButton(theChooser, IDCANCEL);
  if (confirmed_) {
    const HWND box = findOwnWindow(L"#32770", isOwnedBox, theChooser);
    if (!box) return false;
    report(L"the system refuses " + name());
    giveUp();
    return true;
  }
  if (paths_.size() == 1) {
    confirmed_ = confirm(paths_.front());
  } else if (!isInFolder_) {
    const base::PathParts first = base::splitPath(paths_.front());
    isInFolder_ = confirm(first.drive + first.folder);
  } else if (folderShown) {
    confirmed_ = confirm(quotedNames(paths_));
  }
  return false;
}

void FileHand::giveUp() {
  if (const HWND box = findOwnWindow(L"#32770", isOwnedBox, theChooser)) EndDialog(box, IDNO);
  if (theChooser) PostMessageW(theChooser, WM_COMMAND, IDCANCEL, 0);
}

std::wstring FileHand::name() const {
  return L"the file chooser, path \"" + (paths_.empty() ? L"" : paths_.front()) + L"\"";
}

}  // namespace kiv::win32
