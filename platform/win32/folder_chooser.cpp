#include <windows.h>

// Needs what windows.h declares.
#include <objbase.h>
#include <shlobj.h>

#include "base/paths.h"
#include "platform/questions.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

constexpr DWORD kLongestPath = 32'768;

int CALLBACK chooseStart(HWND browser, UINT message, LPARAM, LPARAM start) {
  if (message == BFFM_INITIALIZED && start) SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, start);
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

std::optional<std::wstring> ask(HWND owner, const FolderQuestion& question) {
  std::wstring start = base::folderExists(question.start) ? question.start : std::wstring();
  while (start.size() > 3 && base::isSeparator(start.back())) start.pop_back();
  BROWSEINFOW browser{};
  browser.hwndOwner = owner;
  browser.lpszTitle = question.title.c_str();
  browser.ulFlags = question.newStyle ? BIF_NEWDIALOGSTYLE : 0u;
  browser.lpfn = chooseStart;
  browser.lParam = start.empty() ? 0 : reinterpret_cast<LPARAM>(start.c_str());
  const HRESULT initialised = OleInitialize(nullptr);  // what the new style is made of
  std::optional<std::wstring> path = pathOf(SHBrowseForFolderW(&browser));
  if (SUCCEEDED(initialised)) OleUninitialize();
  return path;
}

}  // namespace

std::optional<std::wstring> chooseFolder(NativeWindow owner, const FolderQuestion& question) {
  if (!win32::somebodyAnswers()) return std::nullopt;
  const auto attendance = win32::attended(question);
  return ask(static_cast<HWND>(owner), question);
}

}  // namespace kiv
