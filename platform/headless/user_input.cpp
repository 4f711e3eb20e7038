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
  Reached(DialogWindow& dialogWindow, int id) : window(static_cast<MemoryWindow&>(dialogWindow)) {
    MemoryControl* found = window.takesInput() ? window.find(id) : nullptr;
    if (found && found->isUsable()) control = found;
  }
  explicit operator bool() const { return control != nullptr; }
  Dialog* dialog() const { return window.dialog(); }
  int id() const { return control->id; }
  // A click on a control gives it the keyboard, and its window too.
  void touch() const {
    window.activate();
    window.focus(control->id);
  }

  MemoryWindow& window;
  MemoryControl* control = nullptr;
};

int rowsOf(const MemoryControl& control) {
  if (control.list) return control.list->rowCount();
  return control.grid ? control.grid->rowCount() : 0;
}

bool hasRow(const Reached& reached, int row) { return reached && row >= 0 && row < rowsOf(*reached.control); }

void chooseRow(const Reached& reached, int row) {
  reached.touch();
  headless::chooseRow(reached.window, *reached.control, row);
}

}  // namespace

std::vector<DialogWindow*> shownDialogs() {
  const auto windows = desktop().shown();
  headless::releaseIdleDesktop();
  return {windows.begin(), windows.end()};
}

bool click(DialogWindow& window, int id) {
  const Reached reached(window, id);
  if (!reached || !reached.control->isButton()) return false;
  desktop().run([&] {
    reached.touch();
    headless::pressButton(reached.window, *reached.control);
  });
  return true;
}

bool type(DialogWindow& window, int id, std::wstring_view text) {
  const Reached reached(window, id);
  if (!reached || !reached.control->isEditable()) return false;
  desktop().run([&] {
    reached.touch();
    if (text.empty()) headless::eraseText(reached.window, *reached.control);
    for (const wchar_t character : text) {
      if (!reached.dialog() || !reached.control->isUsable()) return;  // the rest goes nowhere
      headless::typeCharacter(reached.window, *reached.control, character);
    }
  });
  return true;
}

bool chooseEntry(DialogWindow& window, int id, int entry) {
  const Reached reached(window, id);
  if (!reached || !reached.control->combo) return false;
  if (entry < 0 || entry >= reached.control->combo->count()) return false;
  desktop().run([&] {
    reached.touch();
    headless::chooseEntry(reached.window, *reached.control, entry);
  });
  return true;
}

bool doubleClickEntry(DialogWindow& window, int id, int entry) {
  const Reached reached(window, id);
  if (!reached || !reached.control->combo) return false;
  if (entry < 0 || entry >= reached.control->combo->count()) return false;
  desktop().run([&] {
    reached.touch();
    headless::chooseEntry(reached.window, *reached.control, entry);
    if (reached.dialog()) reached.dialog()->onDoubleClicked(id);
  });
  return true;
}

bool clickRow(DialogWindow& window, int id, int row) {
  const Reached reached(window, id);
  if (!hasRow(reached, row)) return false;
  desktop().run([&] { chooseRow(reached, row); });
  return true;
}

bool doubleClickRow(DialogWindow& window, int id, int row) {
  const Reached reached(window, id);
  if (!hasRow(reached, row) || !reached.control->list) return false;
  desktop().run([&] {
    chooseRow(reached, row);
    if (reached.dialog()) reached.dialog()->onDoubleClicked(id);
  });
  return true;
}

bool clickHeader(DialogWindow& window, int id, int column) {
  const Reached reached(window, id);
  if (!reached || !reached.control->list) return false;
  if (column < 0 || column >= reached.control->list->columnCount()) return false;
  desktop().run([&] {
    reached.window.activate();
    reached.dialog()->onHeaderClicked(id, column);
  });
  return true;
}

bool clickItem(DialogWindow& window, int id, TreeItem item) {
  const Reached reached(window, id);
  if (!reached || !reached.control->tree || !reached.control->tree->has(item)) return false;
  desktop().run([&] {
    reached.touch();
    headless::chooseItem(reached.window, *reached.control, item);
  });
  return true;
}

bool rightClickItem(DialogWindow& window, int id, TreeItem item) {
  const Reached reached(window, id);
  if (!reached || !reached.control->tree || !reached.control->tree->has(item)) return false;
  desktop().run([&] {
    reached.touch();
    headless::chooseItem(reached.window, *reached.control, item);
    if (reached.dialog()) reached.dialog()->onContextMenu(id, headless::centre(reached.window));
  });
  return true;
}

// Rows have no height here: there is always room below the last row.
bool rightClickEmpty(DialogWindow& window, int id) {
  const Reached reached(window, id);
  if (!reached || !reached.control->tree) return false;
  desktop().run([&] { reached.touch(); });
  return true;
}

bool rightClickRow(DialogWindow& window, int id, int row) {
  const Reached reached(window, id);
  if (!hasRow(reached, row) || !reached.control->grid) return false;
  desktop().run([&] {
    chooseRow(reached, row);
    if (reached.dialog()) reached.dialog()->onContextMenu(id, headless::centre(reached.window));
  });
  return true;
}

bool typeCell(DialogWindow& window, int id, int row, std::wstring_view text) {
  const Reached reached(window, id);
  if (!hasRow(reached, row) || !reached.control->grid) return false;
  desktop().run([&] {
    chooseRow(reached, row);
    if (reached.dialog()) reached.control->grid->setText(row, text);
  });
  return true;
}

bool press(DialogWindow& window, Key key, bool shift) {
  auto& memory = static_cast<MemoryWindow&>(window);
  if (!memory.takesInput()) return false;
  desktop().run([&] {
    memory.activate();
    headless::pressKey(memory, key, shift);
  });
  return true;
}

bool close(DialogWindow& window) {
  auto& memory = static_cast<MemoryWindow&>(window);
  if (!memory.takesInput() || !headless::canCancel(memory)) return false;
  desktop().run([&] {
    memory.activate();
    headless::cancel(memory);
  });
  return true;
}

void settle() {
  desktop().run([] {});
}

}  // namespace kiv::user
