#include "platform/win32/folder_hand.h"

// Need what windows.h declares.
#include <commctrl.h>
#include <shlobj.h>

#include <vector>

#include "platform/win32/window.h"

namespace kiv::win32 {
namespace {

BOOL CALLBACK noteTree(HWND window, LPARAM found) {
  if (!isOfClass(window, L"SysTreeView32")) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

HWND treeOf(HWND browser) {
  HWND tree = nullptr;
  EnumChildWindows(browser, noteTree, reinterpret_cast<LPARAM>(&tree));
  return tree;
}

// The dialogs of the module are of the same class and may have trees too.
bool isBrowser(HWND window, void*) { return !Window::of(window) && treeOf(window); }

// The parts of a path: "C:", then each folder.
std::vector<std::wstring> partsOf(const std::wstring& path) {
  std::vector<std::wstring> parts(1);
  for (const wchar_t character : path) {
    if (character == L'\\' || character == L'/') {
      if (!parts.back().empty()) parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  if (parts.back().empty()) parts.pop_back();
  return parts;
}

class FolderTree {
 public:
  explicit FolderTree(HWND tree) : tree_(tree) {}

  bool isChosen(const std::wstring& name) const { return hasName(item(TVGN_CARET, nullptr), name); }

  // Opens one folder after the other, as a person does. False when one of them is not there.
  bool choose(const std::vector<std::wstring>& parts) const {
    HTREEITEM at = findDrive(parts.front());
    for (std::size_t part = 1; at && part < parts.size(); ++part) at = childNamed(at, parts[part]);
    return at && SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(at));
  }

 private:
  HTREEITEM item(UINT relation, HTREEITEM from) const {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(from)));
  }

  std::wstring text(HTREEITEM at) const {
    wchar_t text[MAX_PATH] = L"";
    TVITEMW description{};
    description.mask = TVIF_HANDLE | TVIF_TEXT;
    description.hItem = at;
    description.pszText = text;
    description.cchTextMax = MAX_PATH;
    SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&description));
    return text;
  }

  // Drives have a name with their letter after it: "System (C:)".
  bool hasName(HTREEITEM at, const std::wstring& name) const {
    if (!at) return false;
    const std::wstring shown = text(at);
    return lstrcmpiW(shown.c_str(), name.c_str()) == 0 ||
           (name.ends_with(L':') && shown.find(L"(" + name + L")") != std::wstring::npos);
  }

  HTREEITEM childNamed(HTREEITEM parent, const std::wstring& name) const {
    SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
    for (HTREEITEM child = item(TVGN_CHILD, parent); child; child = item(TVGN_NEXT, child))
      if (hasName(child, name)) return child;
    return nullptr;
  }

  // The drives stand under the machine, which stands under the desktop.
  HTREEITEM findDrive(const std::wstring& name) const {
    const HTREEITEM desktop = item(TVGN_ROOT, nullptr);
    for (HTREEITEM machine = item(TVGN_CHILD, desktop); machine; machine = item(TVGN_NEXT, machine))
      if (const HTREEITEM drive = childNamed(machine, name)) return drive;
    return nullptr;
  }

  HWND tree_;
};

}  // namespace

FolderHand::FolderHand(std::optional<std::wstring> folder) : folder_(std::move(folder)) { begin(); }

bool FolderHand::step() {
  if (!browser_) browser_ = findOwnWindow(L"#32770", isBrowser, nullptr);
  if (!browser_) return false;
  if (!folder_) return pressButton(browser_, IDCANCEL);
  if (!chosen_) {
    chosen_ = true;
    SendMessageW(browser_, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(folder_->c_str()));
    return false;
  }
  const std::vector<std::wstring> parts = partsOf(*folder_);
  const FolderTree tree(treeOf(browser_));
  // The browser does not find every folder by its path; a person finds it in the tree.
  if (!parts.empty() && (tree.isChosen(parts.back()) || tree.choose(parts)))
    return pressButton(browser_, IDOK);
  report(L"the folder browser has no \"" + *folder_ + L"\"");
  folder_.reset();
  return false;
}

void FolderHand::giveUp() { PostMessageW(browser_, WM_COMMAND, IDCANCEL, 0); }

std::wstring FolderHand::name() const { return L"the folder browser"; }

}  // namespace kiv::win32
