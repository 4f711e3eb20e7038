#include <windows.h>

// Need what windows.h declares.
#include <cderr.h>
#include <commdlg.h>

#include "platform/host_output.h"
#include "platform/questions.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

constexpr std::size_t kLongestPath = 32'768;

// Descriptions and patterns one after another, each with its null, and one more at the end.
std::wstring filterText(const FileQuestion& question) {
  std::wstring text;
  for (const auto& [description, pattern] : question.filters) {
    text += description;
    text += L'\0';
    text += pattern;
    text += L'\0';
  }
  return text + L'\0';
}

// The chooser refuses initial names with folders that do not exist, so folder and name are handed over
// separately.
struct InitialPlace {
  std::wstring folder;
  std::wstring name;
};

InitialPlace initialPlace(const std::wstring& path) {
  const std::size_t last = path.find_last_of(L"\\/");
  if (last == std::wstring::npos) return {L"", path};
  return {path.substr(0, last + 1), path.substr(last + 1)};
}

// Leaves no path when the chooser is cancelled, which gives 0 as a choice does, and when it fails.
DWORD run(OPENFILENAMEW& chooser, bool saving) {
  if (saving ? GetSaveFileNameW(&chooser) : GetOpenFileNameW(&chooser)) return 0;
  chooser.lpstrFile[0] = L'\0';
  return CommDlgExtendedError();
}

std::optional<std::wstring> ask(HWND owner, const FileQuestion& question) {
  const InitialPlace place = initialPlace(question.initialName);
  const std::wstring filters = filterText(question);
  std::wstring path = place.name;
  path.resize(kLongestPath);

  OPENFILENAMEW chooser{};
  chooser.lStructSize = sizeof chooser;
  chooser.hwndOwner = owner;
  chooser.lpstrFilter = question.filters.empty() ? nullptr : filters.c_str();
  chooser.lpstrFile = path.data();
  chooser.nMaxFile = static_cast<DWORD>(path.size());
  chooser.lpstrInitialDir = place.folder.empty() ? nullptr : place.folder.c_str();
  chooser.lpstrTitle = question.title.empty() ? nullptr : question.title.c_str();
  chooser.lpstrDefExt = question.defaultExtension.empty() ? nullptr : question.defaultExtension.c_str();
  chooser.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
  if (!question.saving && question.mustExist) chooser.Flags |= OFN_FILEMUSTEXIST;

  const auto attendance = win32::attended(chooser, question);
  DWORD failure = run(chooser, question.saving);
  if (failure == FNERR_INVALIDFILENAME) failure = run(chooser, question.saving);  // without the initial name
  if (failure != 0) printError(L"ﾌｧｲﾙを選択できません. ｺｰﾄﾞ " + std::to_wstring(failure));
  path.resize(path.find(L'\0'));
  if (path.empty()) return std::nullopt;
  return path;
}

}  // namespace

std::optional<std::wstring> chooseFile(NativeWindow owner, const FileQuestion& question) {
  if (!win32::somebodyAnswers()) return std::nullopt;
  return ask(static_cast<HWND>(owner), question);
}

}  // namespace kiv
