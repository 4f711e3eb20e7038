#pragma once
// What a dialog asks through windows of the system: message boxes, file and folder choosers, menus.
// Each call returns when the person has answered.

#include <optional>
#include <string>
#include <vector>

#include "platform/dialog_window.h"

namespace kiv {

enum class Buttons { kOk, kYesNo };
enum class Icon { kNone, kInformation, kQuestion, kWarning, kStop };
enum class Answer { kOk, kYes, kNo };

struct MessageQuestion {
  std::wstring text;
  std::wstring caption;
  Buttons buttons = Buttons::kOk;
  Icon icon = Icon::kNone;
  bool noIsDefault = false;  // with kYesNo: what Enter gives

  bool operator==(const MessageQuestion&) const = default;
};
// A box that is closed without an answer gives kNo, or kOk where that is the only one.
Answer showMessage(NativeWindow owner, const MessageQuestion& question);

struct FileQuestion {
  bool saving = false;       // a name for a file to write; whoever asks for it asks before he replaces a file
  bool mustExist = true;     // of a file to open
  std::wstring title;        // empty: the system's own
  std::wstring initialName;  // a path; its last part may be a pattern such as *.LIST
  std::wstring defaultExtension;  // appended to a name without one; without its dot; empty: none
  // Pairs of a description and a pattern ("図面 (*.dwg)", "*.dwg").
  std::vector<std::pair<std::wstring, std::wstring>> filters;

  bool operator==(const FileQuestion&) const = default;
};
// The full path; empty when cancelled, or when the chooser fails, which the command line tells. An initial
// name that no file can have is left out. The process's current folder stays.
std::optional<std::wstring> chooseFile(NativeWindow owner, const FileQuestion& question);

struct FilesQuestion {
  std::wstring title;
  std::vector<std::pair<std::wstring, std::wstring>> filters;  // as of a FileQuestion

  bool operator==(const FilesQuestion&) const = default;
};
// Full paths of files that exist, in the chooser's order; none when cancelled, or when the chooser fails,
// which a message or the command line tells: nothing of a choice is lost that comes back. The process's
// current folder stays.
std::vector<std::wstring> chooseFiles(NativeWindow owner, const FilesQuestion& question);

struct FolderQuestion {
  std::wstring title;
  std::wstring start;     // shown as chosen at first when it exists
  bool newStyle = false;  // the sizeable browser, in which folders can be made

  bool operator==(const FolderQuestion&) const = default;
};
std::optional<std::wstring> chooseFolder(NativeWindow owner, const FolderQuestion& question);

struct MenuItem {
  int id = 0;         // 0: a separator or a sub-menu
  std::wstring text;  // empty: a separator
  bool enabled = true;
  std::vector<MenuItem> items;  // of a sub-menu
};
using Menu = std::vector<MenuItem>;

// The items at the top of a menu of the resource script; a context menu is the `items` of its only one.
Menu loadMenu(int resource);
// The item of that id anywhere in the menu; null when there is none.
MenuItem* findMenuItem(Menu& menu, int id);
// The id of the chosen item; 0 when the menu was left.
int showMenu(DialogWindow& owner, const Menu& menu, Place screen);

}  // namespace kiv
