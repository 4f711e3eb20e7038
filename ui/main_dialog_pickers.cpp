// The main dialog's pickers: adding and editing items and entries.

#include <algorithm>
#include <utility>

#include "platform/questions.h"
#include "ui/context_menus.h"
#include "ui/item_inputs.h"
#include "ui/item_pickers.h"
#include "ui/main_dialog.h"
#include "ui/resource.h"

namespace kiv {
namespace {

constexpr const wchar_t* kNothingSelected = L"ﾂﾘｰの中から追加したい項目を選択してください";

}  // namespace

bool CCnvDlg::onPickerCommand(int command) {
  if (const ItemInput* kind = itemInputOfConditionCommand(command)) {
    return addItem(kind->kind, Role::kCondition), true;
  }
  if (const ItemInput* kind = itemInputOfResultCommand(command)) {
    return addItem(kind->kind, Role::kResult), true;
  }
  switch (command) {
    case IDC_MAIN_EDIT:
      return addOrEdit(), true;
    case IDC_ADD_ENTRY:
      return addEntry(), true;
    case IDC_EDIT_CONDITION:
    case IDC_EDIT_RESULT:
      return editSelected(), true;
    default:
      return false;
  }
}

// An item is edited, a section gains what can be added to it. A setting shows what that is in its context
// menu.
void CCnvDlg::addOrEdit() {
  const Node node = tree().selected();
  if (node.section < 1) return tell(kNothingSelected);
  const int edit = editCommand(specification_, node);
  const Rect button = window().placeOf(IDC_MAIN_EDIT);
  applyOrOffer(edit != 0 ? edit : addCommand(specification_, node), node, {button.left, button.bottom});
}

// As the button on a section and on a setting; what is under them gains a neighbour.
void CCnvDlg::addAtSelected() {
  const Node node = tree().selected();
  if (node.section < 1) return tell(kNothingSelected);
  const Place place = window().menuPlace(IDC_MAIN_TREE);
  if (node.role != Role::kNone) return runFromMenu(siblingMenu(specification_, node), place);
  const Node gaining = isRuleSection(node.section) ? node : Node::ofSection(node.section);
  applyOrOffer(addCommand(specification_, gaining), gaining, place);
}

void CCnvDlg::addItem(int kind, Role role) {
  const Node node = tree().selected();
  if (!isRuleSection(node.section) || node.index < 0) return tell(kNothingSelected);
  openPicker(Node::of(node.section, node.index), {kind, role, {}, {}});
}

void CCnvDlg::addEntry() {
  const Node section = Node::ofSection(tree().selected().section);
  if (section.section < 1 || isRuleSection(section.section)) return tell(kNothingSelected);
  openPicker(section, {kiv::section(section.section).entryKind, Role::kEntry, {}, {}});
}

void CCnvDlg::editSelected() {
  const Node node = tree().selected();
  NodeContent present = contentOf(specification_, node);
  if (present.role != Role::kNone) openPicker(node, std::move(present));
}

void CCnvDlg::openPicker(const Node& target, NodeContent present) {
  auto picker = makePicker(*this, pick_, {target.section, std::move(present), folder_});
  if (!picker) return;
  std::unique_ptr<CSelBase>& slot = pickers_[static_cast<size_t>(picker->slot())];
  if (slot) return;
  target_ = target;
  slot = std::move(picker);
  CSelBase* made = slot.get();
  // A window that could not be made leaves the slot to the next one.
  if (!made->create(hostFrame_) && slot.get() == made) slot.reset();
}

bool CCnvDlg::take(const NodeContent& content) {
  const bool isNew = contentOf(specification_, target_).role == Role::kNone;
  const Edited edited = putContent(specification_, target_, content);
  if (!edited.ok()) return tell(kCannotBeKept), false;
  isNew ? tree().added(edited.node) : tree().changed(edited.node);
  return true;
}

std::vector<std::wstring> CCnvDlg::namesInSection(int section) const {
  std::vector<std::wstring> names;
  for (const Entry& entry : specification_.entries(section)) names.push_back(entry.fields.front());
  return names;
}

// The picker may be on its way back from a message or a dialog of the host's.
void CCnvDlg::releasePicker(PickerSlot slot) {
  releasedPicker_ = std::move(pickers_[static_cast<size_t>(slot)]);
}

// One picker is open at a time as each keeps the dialog from input.
void CCnvDlg::pickCompleted() {
  if (!hasWindow()) return pick_.end();
  window().show(true);
  const auto open = std::ranges::find_if(pickers_, [](const auto& slot) { return slot != nullptr; });
  if (open == pickers_.end()) return pick_.end();
  (*open)->pickCompleted();
}

}  // namespace kiv
