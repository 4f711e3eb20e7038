#include <windows.h>

// Need what windows.h declares.
#include <cderr.h>
#include <commdlg.h>

#include <filesystem>
#include <new>
#include <system_error>

#include "base/paths.h"
#include "platform/host_output.h"
#include "platform/questions.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

// Of one path, and of all the names of a choice.
constexpr std::size_t kBufferLength = 32'768;

using Filters = std::vector<std::pair<std::wstring, std::wstring>>;

// Descriptions and patterns one after another, each with its null, and one more at the end.
std::wstring filterText(const Filters& filters) {
  std::wstring text;
  for (const auto& [description, pattern] : filters) {
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

// OFN_NOCHANGEDIR does not keep the chooser for opening from changing it.
class CurrentFolderKept {
 public:
  CurrentFolderKept() : folder_(std::filesystem::current_path(error_)) {}
  CurrentFolderKept(const CurrentFolderKept&) = delete;
  CurrentFolderKept& operator=(const CurrentFolderKept&) = delete;
  ~CurrentFolderKept() {
    if (!error_) std::filesystem::current_path(folder_, error_);
  }

 private:
  std::error_code error_;
  std::filesystem::path folder_;
};

// Everything points to texts of the caller's.
OPENFILENAMEW chooserFor(HWND owner, const std::wstring& title, const std::wstring& filters,
                         std::wstring& buffer) {
  const auto given = [](const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); };
  OPENFILENAMEW chooser{};
  chooser.lStructSize = sizeof chooser;
  chooser.hwndOwner = owner;
  chooser.lpstrFilter = filters.front() == L'\0' ? nullptr : filters.c_str();
  chooser.lpstrFile = buffer.data();
  chooser.nMaxFile = static_cast<DWORD>(buffer.size());
  chooser.lpstrTitle = given(title);
  chooser.Flags = OFN_EXPLORER | OFN_HIDEREADONLY;
  return chooser;
}

// Leaves no path when the chooser is cancelled, which gives 0 as a choice does, and when it fails.
DWORD run(OPENFILENAMEW& chooser, bool saving) {
  const CurrentFolderKept kept;
  if (saving ? GetSaveFileNameW(&chooser) : GetOpenFileNameW(&chooser)) return 0;
  const DWORD failure = CommDlgExtendedError();
  chooser.lpstrFile[0] = chooser.lpstrFile[1] = L'\0';
  return failure;
}

void tellFailure(DWORD failure) {
  if (failure != 0) printError(L"ﾌｧｲﾙを選択できません. ｺｰﾄﾞ " + std::to_wstring(failure));
}

std::optional<std::wstring> ask(HWND owner, const FileQuestion& question) {
  const InitialPlace place = initialPlace(question.initialName);
  const std::wstring filters = filterText(question.filters);
  std::wstring path = place.name;
  path.resize(kBufferLength);

  OPENFILENAMEW chooser = chooserFor(owner, question.title, filters, path);
  chooser.lpstrInitialDir = place.folder.empty() ? nullptr : place.folder.c_str();
  chooser.lpstrDefExt = question.defaultExtension.empty() ? nullptr : question.defaultExtension.c_str();
  if (!question.saving && question.mustExist) chooser.Flags |= OFN_FILEMUSTEXIST;

  const auto attendance = win32::attended(chooser, question);
  DWORD failure = run(chooser, question.saving);
  if (failure == FNERR_INVALIDFILENAME) failure = run(chooser, question.saving);  // without the initial name
  tellFailure(failure);
  path.resize(path.find(L'\0'));
  if (path.empty()) return std::nullopt;
  return path;
}

// The buffer holds a path or, of several files, the folder and then their names; each with its null, and one
// more at the end.
std::vector<std::wstring> pathsIn(const std::wstring& buffer) {
  std::vector<std::wstring> parts;
  for (std::size_t at = 0; at < buffer.size() && buffer[at] != L'\0'; at += parts.back().size() + 1) {
    parts.emplace_back(buffer.c_str() + at);
  }
  if (parts.size() < 2) return parts;
  const std::wstring folder = parts.front();
  parts.erase(parts.begin());
  for (std::wstring& name : parts) name = base::joinPath(folder, name);
  return parts;
}

std::vector<std::wstring> askForSeveral(HWND owner, const FilesQuestion& question) {
  const auto tell = [&](const wchar_t* text) {
    static_cast<void>(showMessage(owner, {text, question.title, Buttons::kOk, Icon::kStop}));
  };
  std::wstring buffer;
  try {
    buffer.resize(kBufferLength);
  } catch (const std::bad_alloc&) {
    tell(L"ﾒﾓﾘの確保に失敗しました。");
    return {};
  }
  const std::wstring filters = filterText(question.filters);
  OPENFILENAMEW chooser = chooserFor(owner, question.title, filters, buffer);
  chooser.Flags |= OFN_ALLOWMULTISELECT | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
  DWORD failure = 0;
  {
    const auto attendance = win32::attended(chooser, question);
    failure = run(chooser, false);
  }
  if (failure == FNERR_BUFFERTOOSMALL) {
    tell(L"選択したﾌｧｲﾙが多すぎます。\n何回かに分けて選択してください。");
  } else {
    tellFailure(failure);
  }
  return pathsIn(buffer);
}

}  // namespace

std::optional<std::wstring> chooseFile(NativeWindow owner, const FileQuestion& question) {
  if (!win32::somebodyAnswers()) return std::nullopt;
  return ask(static_cast<HWND>(owner), question);
}

std::vector<std::wstring> chooseFiles(NativeWindow owner, const FilesQuestion& question) {
  if (!win32::somebodyAnswers()) return {};
  return askForSeveral(static_cast<HWND>(owner), question);
}

}  // namespace kiv
