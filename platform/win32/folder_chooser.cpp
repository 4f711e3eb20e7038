#include <windows.h>

// Needs what windows.h declares.
#include <objbase.h>
#include <shlobj.h>

#include "platform/dialog_script.h"
#include "platform/paths.h"
#include "platform/questions.h"
#include "platform/win32/folder_hand.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

constexpr DWORD kLongestPath = 32'768;

struct Browsing {
  std::wstring start;
  win32::FolderHand* hand = nullptr;
};

int CALLBACK atBrowser(HWND browser, UINT message, LPARAM, LPARAM data) {
  const auto& browsing = *reinterpret_cast<const Browsing*>(data);
  if (message != BFFM_INITIALIZED) return 0;
  if (!browsing.start.empty())
    SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(browsing.start.c_str()));
  if (browsing.hand) browsing.hand->setBrowser(browser);
  return 0;
}

std::optional<std::wstring> pathOf(PIDLIST_ABSOLUTE chosen) {
  if (!chosen) return std::nullopt;
  std::wstring path(kLongestPath, L'\0');
  const BOOL hasPath = SHGetPathFromIDListEx(chosen, path.data(), kLongestPath, GPFIDL_DEFAULT);
  CoTaskMemFree(chosen);
  if (!hasPath) return std::nullopt;
  path.resize(path.find(L'\0'));
  return path;
}

std::optional<std::wstring> ask(HWND owner, const FolderQuestion& question, win32::FolderHand* hand) {
  Browsing browsing{folderExists(question.start) ? question.start : std::wstring(), hand};
  while (browsing.start.size() > 3 && isSeparator(browsing.start.back())) browsing.start.pop_back();
  BROWSEINFOW browser{};
  browser.hwndOwner = owner;
  browser.lpszTitle = question.title.c_str();
  browser.ulFlags = question.newStyle ? BIF_NEWDIALOGSTYLE : 0u;
  browser.lpfn = atBrowser;
  browser.lParam = reinterpret_cast<LPARAM>(&browsing);
  const HRESULT initialised = OleInitialize(nullptr);  // what the new style is made of
  std::optional<std::wstring> path = pathOf(SHBrowseForFolderW(&browser));
  if (SUCCEEDED(initialised)) OleUninitialize();
  return path;
}

}  // namespace

std::optional<std::wstring> chooseFolder(NativeWindow owner, const FolderQuestion& question) {
  const auto window = static_cast<HWND>(owner);
  if (DialogScript* script = dialogScript()) {
    win32::FolderHand hand(script->answer(question));
    return ask(window, question, &hand);
  }
  if (!win32::somebodyAnswers()) return std::nullopt;
  return ask(window, question, nullptr);
}

}  // namespace kiv
