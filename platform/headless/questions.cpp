// Questions without windows of the system: the dialog script answers, or nobody does.

#include "platform/questions.h"

#include <algorithm>

#include "base/paths.h"
#include "platform/dialog_script.h"
#include "platform/headless/desktop.h"
#include "platform/headless/resource_script.h"

namespace kiv {
namespace {

DialogScript* theScript = nullptr;

bool isAbsolute(std::wstring_view path) {
  return !base::splitPath(path).drive.empty() || (!path.empty() && base::isSeparator(path.front()));
}

// What a chooser makes of the name that was typed into it.
std::optional<std::wstring> chosenPath(const FileQuestion& question, std::wstring path) {
  if (path.empty()) return std::nullopt;
  if (!isAbsolute(path)) {
    const base::PathParts initial = base::splitPath(question.initialName);
    path = base::joinPath(initial.drive + initial.folder, path);
  }
  if (!question.defaultExtension.empty() && base::splitPath(path).extension.empty()) {
    path += L"." + question.defaultExtension;
  }
  if (!question.saving && question.mustExist && !base::fileExists(path)) return std::nullopt;
  return path;
}

// By way of sub-menus that open.
bool canChoose(const Menu& menu, int id) {
  for (const MenuItem& item : menu) {
    if (item.enabled && (item.id == id || canChoose(item.items, id))) return true;
  }
  return false;
}

}  // namespace

void setDialogScript(DialogScript* script) { theScript = script; }

DialogScript* dialogScript() { return theScript; }

Answer showMessage(NativeWindow owner, const MessageQuestion& question) {
  const Answer unanswered = question.buttons == Buttons::kOk ? Answer::kOk : Answer::kNo;
  if (!dialogScript()) return unanswered;
  const headless::OwnerDisabled disabled(owner);
  const Answer answer = dialogScript()->answer(question);
  const bool isOffered = (answer == Answer::kOk) == (question.buttons == Buttons::kOk);
  return isOffered ? answer : unanswered;
}

std::optional<std::wstring> chooseFile(NativeWindow owner, const FileQuestion& question) {
  if (!dialogScript()) return std::nullopt;
  const headless::OwnerDisabled disabled(owner);
  const auto answer = dialogScript()->answer(question);
  return answer ? chosenPath(question, *answer) : std::nullopt;
}

std::vector<std::wstring> chooseFiles(NativeWindow owner, const FilesQuestion& question) {
  if (!dialogScript()) return {};
  const headless::OwnerDisabled disabled(owner);
  std::vector<std::wstring> paths = dialogScript()->answer(question);
  const bool allExist = std::all_of(paths.begin(), paths.end(),
                                    [](const std::wstring& path) { return base::fileExists(path); });
  return allExist ? paths : std::vector<std::wstring>();
}

std::optional<std::wstring> chooseFolder(NativeWindow owner, const FolderQuestion& question) {
  if (!dialogScript()) return std::nullopt;
  const headless::OwnerDisabled disabled(owner);
  return dialogScript()->answer(question);
}

Menu loadMenu(int resource) {
  const headless::MenuResource* found = headless::resourceScript().findMenu(resource);
  return found ? found->items : Menu();
}

int showMenu(DialogWindow&, const Menu& menu, Place) {
  if (!dialogScript()) return 0;
  const int chosen = dialogScript()->answer(menu);
  return chosen != 0 && canChoose(menu, chosen) ? chosen : 0;
}

}  // namespace kiv
