// A person's hands on windows in memory.

#include "platform/user_input.h"

#include "platform/headless/desktop.h"
#include "platform/headless/keyboard.h"

namespace kiv::user {
namespace {

using headless::ControlKind;
using headless::desktop;
using headless::MemoryControl;
using headless::MemoryWindow;

// The control when a person can get at it.
struct Reached {
  Reached(DialogWindow& dialogWindow, int controlId)
      : window(static_cast<MemoryWindow&>(dialogWindow)), id(controlId) {
    MemoryControl* found = window.takesInput() ? window.find(id) : nullptr;
    if (found && found->isUsable()) control = found;
  }
  explicit operator bool() const { return control != nullptr; }
  Dialog* dialog() const { return window.dialog(); }
  // A click on a control gives it the keyboard, and its window too.
  void touch() const {
    window.activate();
    window.focus(id);
  }

  MemoryWindow& window;
  int id;
  MemoryControl* control = nullptr;
};

int rowsOf(const MemoryControl& control) {
  if (control.list) return control.list->rowCount();
  return control.grid ? control.grid->rowCount() : 0;
}

bool hasRow(const Reached& reached, int row) { return reached && row >= 0 && row < rowsOf(*reached.control); }

bool hasEntry(const Reached& reached, int entry) {
  return reached && reached.control->combo && entry >= 0 && entry < reached.control->combo->count();
}

bool hasItem(const Reached& reached, TreeItem item) {
  return reached && reached.control->tree && reached.control->tree->has(item);
}

void chooseRow(const Reached& reached, int row, Held held = Held::kNothing) {
  reached.touch();
  headless::chooseRow(reached.window, *reached.control, row, held);
}

void chooseEntry(const Reached& reached, int entry) {
  reached.touch();
  headless::chooseEntry(reached.window, *reached.control, entry);
}

void chooseItem(const Reached& reached, TreeItem item) {
  reached.touch();
  headless::chooseItem(reached.window, *reached.control, item);
}

// What was chosen first may have ended the dialog.
void doubleClick(const Reached& reached) {
  if (reached.dialog()) reached.dialog()->onDoubleClicked(reached.id);
}

void openMenu(const Reached& reached) {
  if (reached.dialog()) reached.dialog()->onContextMenu(reached.id, reached.window.menuPlace(reached.id));
}

template <class Action>
bool does(bool possible, Action action) {
  if (possible) desktop().run(action);
  return possible;
}

}  // namespace

std::vector<DialogWindow*> shownDialogs() {
  const auto windows = desktop().shown();
  headless::releaseIdleDesktop();
  return {windows.begin(), windows.end()};
}

bool click(DialogWindow& window, int id) {
  const Reached reached(window, id);
  return does(reached && reached.control->isButton(), [&] {
    reached.touch();
    headless::pressButton(reached.window, *reached.control);
  });
}

bool type(DialogWindow& window, int id, std::wstring_view text) {
  const Reached reached(window, id);
  return does(reached && reached.control->isEditable(), [&] {
    reached.touch();
    if (text.empty()) headless::eraseText(reached.window, *reached.control);
    for (const wchar_t character : text) {
      if (!reached.dialog() || !reached.control->isUsable()) return;  // the rest goes nowhere
      headless::typeCharacter(reached.window, *reached.control, character);
    }
  });
}

bool chooseEntry(DialogWindow& window, int id, int entry) {
  const Reached reached(window, id);
  return does(hasEntry(reached, entry), [&] { chooseEntry(reached, entry); });
}

bool doubleClickEntry(DialogWindow& window, int id, int entry) {
  const Reached reached(window, id);
  return does(hasEntry(reached, entry), [&] {
    chooseEntry(reached, entry);
    doubleClick(reached);
  });
}

bool clickRow(DialogWindow& window, int id, int row, Held held) {
  const Reached reached(window, id);
  return does(hasRow(reached, row), [&] { chooseRow(reached, row, held); });
}

bool doubleClickRow(DialogWindow& window, int id, int row) {
  const Reached reached(window, id);
  return does(hasRow(reached, row) && reached.control->list, [&] {
    chooseRow(reached, row);
    doubleClick(reached);
  });
}

bool clickHeader(DialogWindow& window, int id, int column) {
  const Reached reached(window, id);
  return does(
      reached && reached.control->list && column >= 0 && column < reached.control->list->columnCount(), [&] {
        reached.window.activate();
        reached.dialog()->onHeaderClicked(id, column);
      });
}

bool clickItem(DialogWindow& window, int id, TreeItem item) {
  const Reached reached(window, id);
  return does(hasItem(reached, item), [&] { chooseItem(reached, item); });
}

bool doubleClickItem(DialogWindow& window, int id, TreeItem item) {
  const Reached reached(window, id);
  return does(hasItem(reached, item), [&] {
    chooseItem(reached, item);
    if (!reached.dialog()) return;
    headless::turnItem(reached.window, *reached.control, item);
    doubleClick(reached);
  });
}

bool rightClickItem(DialogWindow& window, int id, TreeItem item) {
  const Reached reached(window, id);
  return does(hasItem(reached, item), [&] {
    chooseItem(reached, item);
    openMenu(reached);
  });
}

// Rows have no height here: there is always room below the last row.
bool rightClickEmpty(DialogWindow& window, int id) {
  const Reached reached(window, id);
  return does(reached && reached.control->tree, [&] { reached.touch(); });
}

bool rightClickRow(DialogWindow& window, int id, int row) {
  const Reached reached(window, id);
  return does(hasRow(reached, row) && reached.control->grid, [&] {
    chooseRow(reached, row);
    openMenu(reached);
  });
}

bool typeCell(DialogWindow& window, int id, int row, std::wstring_view text) {
  const Reached reached(window, id);
  return does(hasRow(reached, row) && reached.control->grid, [&] {
    chooseRow(reached, row);
    if (reached.dialog()) reached.control->grid->setText(row, text);
  });
}

bool press(DialogWindow& window, Key key, bool shift) {
  auto& memory = static_cast<MemoryWindow&>(window);
  return does(memory.takesInput(), [&] {
    memory.activate();
    headless::pressKey(memory, key, shift);
  });
}

bool pressWithAlt(DialogWindow& window, wchar_t letter) {
  auto& memory = static_cast<MemoryWindow&>(window);
  return does(memory.takesInput(), [&] {
    memory.activate();
    headless::pressAccessKey(memory, letter);
  });
}

bool close(DialogWindow& window) {
  auto& memory = static_cast<MemoryWindow&>(window);
  return does(memory.takesInput() && headless::canCancel(memory), [&] {
    memory.activate();
    headless::cancel(memory);
  });
}

void settle() {
  desktop().run([] { desktop().runTimers(); });
}

}  // namespace kiv::user
