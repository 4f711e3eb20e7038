#include "platform/headless/keyboard.h"

#include "platform/headless/resource_styles.h"

namespace kiv::headless {
namespace {

constexpr int kOkId = 1;
constexpr int kCancelId = 2;

void command(MemoryWindow& window, int id) {
  if (Dialog* dialog = window.dialog()) dialog->onCommand(id);
}

void selected(MemoryWindow& window, int id) {
  if (Dialog* dialog = window.dialog()) dialog->onSelected(id);
}

void edited(MemoryWindow& window, MemoryControl& control) {
  if (control.combo) control.combo->takeSelectionAway();
  if (Dialog* dialog = window.dialog()) dialog->onEdited(control.id);
}

void pressEnter(MemoryWindow& window) {
  MemoryControl* button = window.defaultButton();
  if (!button) button = window.find(kOkId);
  if (!button) return command(window, kOkId);
  if (button->isUsable()) command(window, button->id);
}

void move(MemoryWindow& window, MemoryControl& control, int direction) {
  if (control.tree) {
    const TreeItem next = control.tree->neighbourRow(control.tree->caret(), direction);
    if (next != 0) chooseItem(window, control, next);
  } else if (control.list) {
    chooseRow(window, control, control.list->focused() + direction);
  } else if (control.grid) {
    chooseRow(window, control, control.grid->currentRow() + direction);
  } else if (control.combo) {
    const int next = control.combo->selected() + direction;
    if (next >= 0 && next < control.combo->count()) chooseEntry(window, control, next);
  } else if (control.kind == ControlKind::kRadioButton) {
    MemoryControl& next = *window.neighbourInGroup(control, direction);
    window.focus(next.id);
    pressButton(window, next);
  }
}

}  // namespace

void pressButton(MemoryWindow& window, MemoryControl& button) {
  if (button.kind == ControlKind::kCheckBox) button.checked = !button.checked;
  if (button.kind == ControlKind::kRadioButton) window.check(button.id, true);
  command(window, button.id);
}

void chooseEntry(MemoryWindow& window, MemoryControl& combo, int entry) {
  combo.combo->select(entry);
  combo.field.selectAll();
  selected(window, combo.id);
}

void chooseItem(MemoryWindow& window, MemoryControl& tree, TreeItem item) {
  if (tree.tree->caret() == item) return;
  tree.tree->select(item);
  selected(window, tree.id);
}

namespace {

void chooseListRow(MemoryWindow& window, MemoryControl& control, int row, user::Held held) {
  MemoryList& list = *control.list;
  if (!list.has(row)) return;
  const std::vector<int> before = list.selectedRows();
  const bool several = !control.resource->has(style::kSingleSelection);
  if (several && held == user::Held::kShift) {
    list.extendTo(row);
  } else if (several && held == user::Held::kControl) {
    list.toggle(row);
  } else {
    list.select(row);
  }
  if (list.selectedRows() != before) selected(window, control.id);
}

}  // namespace

void chooseRow(MemoryWindow& window, MemoryControl& listOrGrid, int row, user::Held held) {
  if (listOrGrid.list) {
    chooseListRow(window, listOrGrid, row, held);
    return;
  }
  if (!listOrGrid.grid->has(row) || listOrGrid.grid->currentRow() == row) return;
  listOrGrid.grid->setCurrentRow(row);
  selected(window, listOrGrid.id);
}

void turnItem(MemoryWindow& window, MemoryControl& tree, TreeItem item) {
  MemoryTree& items = *tree.tree;
  if (items.isExpanded(item)) return items.collapse(item);
  if (!items.canOpen(item)) return;
  const int id = tree.id;
  window.dialog()->onOpening(id, item);
  if (window.dialog() && items.has(item)) items.expand(item);
}

void typeCharacter(MemoryWindow& window, MemoryControl& control, wchar_t character) {
  control.field.insert(character);
  edited(window, control);
}

void eraseText(MemoryWindow& window, MemoryControl& control) {
  if (control.field.erase()) edited(window, control);
}

void pressKey(MemoryWindow& window, Key key, bool shift) {
  MemoryControl* control = window.focusedControl();
  const bool asksDialog = control && (control->tree || control->list || control->grid);
  if ((asksDialog || key == Key::kF5) && window.dialog()->onKey(control ? control->id : 0, key)) return;
  if (!window.dialog()) return;
  if (key == Key::kEnter) return pressEnter(window);
  if (key == Key::kEscape) return cancel(window);
  if (key == Key::kTab) return window.focusNext(shift);
  if (!control || !control->isUsable()) return;
  if (key == Key::kUp || key == Key::kDown) return move(window, *control, key == Key::kUp ? -1 : 1);
  if (key == Key::kDelete && control->isEditable()) eraseText(window, *control);
}

void pressAccessKey(MemoryWindow& window, wchar_t letter) {
  MemoryControl* control = window.findByAccessKey(letter);
  if (!control || !control->isUsable()) return;
  window.focus(control->id);
  if (control->isButton()) pressButton(window, *control);
}

bool canCancel(const MemoryWindow& window) {
  const MemoryControl* button = window.find(kCancelId);
  return !button || button->enabled;
}

void cancel(MemoryWindow& window) {
  if (canCancel(window)) command(window, kCancelId);
}

}  // namespace kiv::headless
