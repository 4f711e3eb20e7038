#pragma once
// What a person's hands do to a shown dialog, for tests and scripted sessions. With real windows the
// controls get the messages that mouse and keyboard would give them.
//
// Each returns false and does nothing where a person could not do it: the dialog or the control is hidden or
// disabled, or there is no such row. It returns when everything that follows from it, posted commands
// included, is done; questions and modal dialogs in between are answered by the dialog script.

#include <string_view>
#include <vector>

#include "platform/dialog.h"

namespace kiv::user {

enum class Held { kNothing, kShift, kControl };

std::vector<DialogWindow*> shownDialogs();  // the newest first

bool click(DialogWindow& window, int id);                         // a button, check box or radio button
bool type(DialogWindow& window, int id, std::wstring_view text);  // replaces the field's text, a character
                                                                  // at a time
bool chooseEntry(DialogWindow& window, int id, int entry);        // of a combo box
bool doubleClickEntry(DialogWindow& window, int id, int entry);
bool clickRow(DialogWindow& window, int id, int row, Held held = Held::kNothing);  // of a list or grid
bool doubleClickRow(DialogWindow& window, int id, int row);
bool clickHeader(DialogWindow& window, int id, int column);
bool clickItem(DialogWindow& window, int id, TreeItem item);
bool doubleClickItem(DialogWindow& window, int id, TreeItem item);  // opens or closes it, too
bool rightClickItem(DialogWindow& window, int id,
                    TreeItem item);                  // a menu that opens is answered by the script
bool rightClickEmpty(DialogWindow& window, int id);  // of a tree, below its rows; false: it is full of them
bool rightClickRow(DialogWindow& window, int id, int row);                     // of a grid
bool typeCell(DialogWindow& window, int id, int row, std::wstring_view text);  // of a grid
bool press(DialogWindow& window, Key key, bool shift = false);  // in the control that has the focus
bool pressWithAlt(DialogWindow& window, wchar_t letter);        // A to Z
bool close(DialogWindow& window);                               // by its closing box

// Lets everything happen that is under way. Without real windows the timers run once.
void settle();

}  // namespace kiv::user
