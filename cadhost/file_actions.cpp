#include "cadhost/file_actions.h"

#include <commdlg.h>

#include <cderr.h>

#include <utility>
#include <vector>

#include "base/files.h"
#include "cadhost/drawing_kinds.h"

namespace cadhost {
namespace {

constexpr wchar_t kProgram[] = L"CADHOST";
constexpr DWORD kLongestChoice = 32768;  // characters of all the names together

// With several files the answer is the folder, then each name; with one it is the path.
std::vector<std::wstring> chosenPaths(const std::vector<wchar_t>& answer) {
  std::vector<std::wstring> parts;
  for (const wchar_t* at = answer.data(); *at != 0; at += parts.back().size() + 1) parts.emplace_back(at);
  if (parts.size() < 2) return parts;
  const std::wstring folder = parts.front().back() == L'\\' ? parts.front() : parts.front() + L'\\';
  parts.erase(parts.begin());
  for (std::wstring& name : parts) name = folder + name;
  return parts;
}

// `filter` stays the caller's.
OPENFILENAMEW chooser(HWND owner, std::vector<wchar_t>& answer, const wchar_t* title,
                      const std::wstring& filter) {
  OPENFILENAMEW out{};
  out.lStructSize = sizeof out;
  out.hwndOwner = owner;
  out.lpstrFilter = filter.c_str();
  out.lpstrFile = answer.data();
  out.nMaxFile = static_cast<DWORD>(answer.size());
  out.lpstrTitle = title;
  return out;
}

}  // namespace

void FileActions::complain(const std::wstring& text) const {
  MessageBoxW(owner_, text.c_str(), kProgram, MB_OK | MB_ICONWARNING);
}

bool FileActions::hasChosen(BOOL answer) const {
  if (answer) return true;
  const DWORD error = CommDlgExtendedError();
  if (error == FNERR_BUFFERTOOSMALL)
    complain(L"選択したファイルが多すぎます。");
  else if (error != 0)
    complain(L"ファイルの選択画面を表示できませんでした。\n\nエラー " + std::to_wstring(error));
  return false;
}

void FileActions::open() {
  std::vector<wchar_t> answer(kLongestChoice, L'\0');
  const std::wstring filter = openFilter();
  OPENFILENAMEW asked = chooser(owner_, answer, L"図面を開く", filter);
  asked.lpstrDefExt = L"dwg";
  asked.Flags = OFN_EXPLORER | OFN_ALLOWMULTISELECT | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST |
                OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (!hasChosen(GetOpenFileNameW(&asked))) return;
  for (const std::wstring& path : chosenPaths(answer)) {
    const base::Status opened = host_.openDocument(base::pathFromText(path));
    if (!opened) complain(L"図面を開けませんでした。\n\n" + opened.failure().text());
  }
}

bool FileActions::saveInto(const std::wstring& path) {
  const base::Status saved = run_(saveLine(path, host_.currentDrawing()));
  if (!saved) complain(L"図面を保存できませんでした。\n\n" + saved.failure().text());
  return saved.ok();
}

bool FileActions::save() {
  const cad::DocumentInfo document = host_.currentDocument();
  if (document.path.empty() || document.isReadOnly) return saveAs();
  const base::Status saved = run_(L"_.QSAVE");
  if (!saved) complain(L"図面を保存できませんでした。\n\n" + saved.failure().text());
  return saved.ok();
}

bool FileActions::saveAs() {
  const cad::DocumentInfo document = host_.currentDocument();
  std::filesystem::path proposed = document.path;
  if (proposed.empty()) proposed = base::pathFromText(document.name);
  proposed = proposedFile(std::move(proposed), host_.currentDrawing());
  const std::wstring name = base::pathText(proposed);
  const std::wstring extension = base::pathText(proposed.extension()).substr(1);
  std::vector<wchar_t> answer(kLongestChoice, L'\0');
  if (name.size() < answer.size()) std::copy(name.begin(), name.end(), answer.begin());
  const std::wstring filter = saveFilter(host_.currentDrawing());
  OPENFILENAMEW asked = chooser(owner_, answer, L"名前を付けて保存", filter);
  asked.lpstrDefExt = extension.c_str();
  asked.Flags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  return hasChosen(GetSaveFileNameW(&asked)) && saveInto(answer.data());
}

bool FileActions::mayClose(const cad::DocumentInfo& document) {
  if (!document.isModified || !host_.activateDocument(document.number)) return true;
  const std::wstring question = L"「" + document.name + L"」は変更されています。\n保存しますか？";
  const int answer = MessageBoxW(owner_, question.c_str(), kProgram, MB_YESNOCANCEL | MB_ICONQUESTION);
  return answer == IDNO || (answer == IDYES && save());
}

bool FileActions::closeCurrent() {
  if (!mayClose(host_.currentDocument())) return false;
  const base::Status closed = host_.closeDocument();
  if (!closed) complain(closed.failure().text());
  return closed.ok();
}

bool FileActions::mayCloseAll() {
  for (const cad::DocumentInfo& each : host_.documents())
    if (!mayClose(each)) return false;
  return true;
}

}  // namespace cadhost
