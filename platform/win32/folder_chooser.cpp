#include <windows.h>

// Needs what windows.h declares.
#include <objbase.h>
#include <shlobj.h>

#include "platform/dialog_script.h"
#include "platform/paths.h"
#include "platform/questions.h"
#include "platform/win32/hand.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

// Chooses a folder in the browser and confirms it.
class FolderHand final : public win32::Hand {
 public:
  explicit FolderHand(std::optional<std::wstring> folder) : folder_(std::move(folder)) { begin(); }

  void setBrowser(HWND browser) { browser_ = browser; }

 private:
  bool step() override {
    if (!browser_ || !IsWindowVisible(browser_)) return false;
    if (folder_ && !chosen_) {
      chosen_ = true;  // it is confirmed in a later step: the browser opens the tree in between
      SendMessageW(browser_, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(folder_->c_str()));
      return false;
    }
    return win32::pressButton(browser_, folder_ ? IDOK : IDCANCEL);
  }

  void giveUp() override { PostMessageW(browser_, WM_COMMAND, IDCANCEL, 0); }
  std::wstring name() const override { return L"the folder browser"; }

  std::optional<std::wstring> folder_;
  HWND browser_ = nullptr;
  bool chosen_ = false;
};

struct Browsing {
  std::wstring start;
  FolderHand* hand = nullptr;
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
  wchar_t path[MAX_PATH] = L"";
  const BOOL hasPath = SHGetPathFromIDListW(chosen, path);
  CoTaskMemFree(chosen);
  if (!hasPath) return std::nullopt;
  return path;
}

std::optional<std::wstring> ask(HWND owner, const FolderQuestion& question, FolderHand* hand) {
  Browsing browsing{folderExists(question.start) ? question.start : std::wstring(), hand};
  while (browsing.start.size() > 3 && isSeparator(browsing.start.back())) browsing.start.pop_back();
  BROWSEINFOW browser{};
  browser.hwndOwner = owner;
  browser.lpszTitle = question.title.c_str();
  browser.ulFlags = BIF_RETURNONLYFSDIRS | (question.newStyle ? BIF_NEWDIALOGSTYLE : 0u);
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
    FolderHand hand(script->answer(question));
    return ask(window, question, &hand);
  }
  if (!win32::somebodyAnswers()) return std::nullopt;
  return ask(window, question, nullptr);
}

}  // namespace kiv
