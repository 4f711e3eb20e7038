// Editing the main dialog's tree: menus, deleting, clearing, moving, inverting.

#include <algorithm>

#include "base/fold.h"
#include "platform/questions.h"
#include "ui/context_menus.h"
#include "ui/main_dialog.h"
#include "ui/resource.h"
#include "ui/tree_nodes.h"

namespace kiv {
namespace {

constexpr const wchar_t* kNothingToDelete = L"削除するﾃﾞｰﾀがありません";
constexpr const wchar_t* kAreYouSure = L"\nよろしいですか？";

std::wstring named(const std::wstring& name) { return L"[" + name + L"] "; }

}  // namespace

SpecificationTree CCnvDlg::tree() { return {window().tree(IDC_MAIN_TREE), specification_}; }

bool CCnvDlg::onTreeCommand(int command) {
  switch (command) {
    case IDC_MAIN_DELETE:
      if (const int chosen = deleteCommand(specification_, tree().selected())) window().post(chosen);
      return true;
    case IDC_ADD_SETTING:
      return addSetting(), true;
    case IDC_CLEAR_SETTINGS:
      return clearChildren(L"の設定をすべてｸﾘｱします."), true;
    case IDC_CLEAR_ENTRIES:
      return clearChildren(L"の変換結果をすべてｸﾘｱします."), true;
    case IDC_CLEAR_CONDITIONS:
      return clearItems(Role::kCondition), true;
    case IDC_CLEAR_RESULTS:
      return clearItems(Role::kResult), true;
    case IDC_DELETE_CONDITION:
    case IDC_DELETE_RESULT:
    case IDC_DELETE_SETTING:
      return removeNode(), true;
    case IDC_MAIN_INVERT:
    case IDC_INVERT_CONDITION:
      return invert(), true;
    case IDC_MAIN_UP:
    case IDC_MAIN_DOWN:
      return move(command == IDC_MAIN_UP), true;
    case IDC_COPY_TO_DIMENSION_SETTINGS:
      return copyVariables(), true;
    default:
      return false;
  }
}

bool CCnvDlg::onKey(int id, Key key) {
  if (id != IDC_MAIN_TREE) return false;
  switch (key) {
    case Key::kEnter:
      return openSelected(), true;
    case Key::kDelete:
      return onCommand(IDC_MAIN_DELETE), true;
    case Key::kInsert:
      return addAtSelected(), true;
    default:
      return false;
  }
}

// A section or a setting opens or closes by itself.
void CCnvDlg::onDoubleClicked(int id) {
  if (id == IDC_MAIN_TREE && editCommand(specification_, tree().selected()) != 0) openSelected();
}

// What can be edited is edited; the rest shows what is under it.
void CCnvDlg::openSelected() {
  const Node node = tree().selected();
  const int edit = editCommand(specification_, node);
  if (edit == 0) return tree().toggle(node);
  applyOrOffer(edit, node, window().menuPlace(IDC_MAIN_TREE));
}

// The node's menu shows what there is instead of a command that does not apply.
void CCnvDlg::applyOrOffer(int command, const Node& node, Place screen) {
  if (command != 0 && canApply(specification_, node, command)) return onCommand(command);
  runFromMenu(contextMenu(specification_, node), screen);
}

void CCnvDlg::runFromMenu(const Menu& menu, Place screen) {
  if (menu.empty()) return;
  const int command = showMenu(window(), menu, screen);
  if (command != 0 && hasWindow()) onCommand(command);
}

// The new setting is selected: conditions and results are what it needs next.
void CCnvDlg::addSetting() {
  const Edited edited = specification_.addSetting(tree().selected().section);
  if (!edited.ok()) return;
  tree().added(edited.node);
  tree().select(edited.node);
}

void CCnvDlg::clearChildren(const std::wstring& question) {
  const Node section = Node::ofSection(tree().selected().section);
  if (section.section < 1) return;
  if (specification_.childCount(section) == 0) return tell(kNothingToDelete);
  if (!agrees(named(nodeText(specification_, section)) + question + kAreYouSure)) return;
  specification_.clearSection(section.section);
  tree().cleared(section);
}

void CCnvDlg::clearItems(Role role) {
  const Node selected = tree().selected();
  const Node setting = Node::of(selected.section, selected.index);
  if (!isRuleSection(setting.section) || setting.index < 0) return;
  if (specification_.childCount(setting, role) == 0) return tell(kNothingToDelete);
  const std::wstring what = role == Role::kCondition ? L"条件" : L"変換結果";
  if (!agrees(named(nodeText(specification_, setting)) + L"の" + what + L"をすべてｸﾘｱします." +
              kAreYouSure)) {
    return;
  }
  specification_.clearItems(setting.section, setting.index, role);
  tree().cleared(setting);
}

// A setting is told from a single node only when something goes with it.
void CCnvDlg::removeNode() {
  const Node node = tree().selected();
  if (!specification_.exists(node) || node.index < 0) return;
  const bool hasContent = specification_.childCount(node) > 0;
  const std::wstring question = named(nodeText(specification_, node)) +
                                (hasContent ? L"に含まれる項目をすべて削除します." : L"を削除します.") +
                                kAreYouSure;
  if (!agrees(question)) return;
  specification_.remove(node);
  tree().removed(node);
}

void CCnvDlg::invert() {
  const Edited edited = specification_.invert(tree().selected());
  if (!edited.ok()) return tell(L"ﾂﾘｰの中から反転する条件を選択してください");
  tree().changed(edited.node);
}

void CCnvDlg::move(bool up) {
  const Node node = tree().selected();
  const Edited edited = up ? specification_.moveUp(node) : specification_.moveDown(node);
  if (edited.ok()) return tree().moved(node, edited.node);
  if (edited.refusal != Refusal::kNoNeighbour) tell(L"現在選択中の項目は移動できません");
}

void CCnvDlg::copyVariables() {
  const Node setting = tree().selected();
  if (!assignsVariables(specification_, setting)) return;
  bool areAllKept = true;
  for (const Node& node : specification_.children(setting)) {
    const Item item = *specification_.item(node);
    if (node.role == Role::kResult && !item.variable.empty()) areAllKept &= assignVariable(item);
  }
  if (!areAllKept) tell(kCannotBeKept);
}

// A variable has one value: a later assignment takes the place of the earlier one. False: the section cannot
// hold it.
bool CCnvDlg::assignVariable(const Item& item) {
  const NodeContent assignment{
      section(kDimensionSettingSection).entryKind, Role::kEntry, item.variable, {item.value}};
  const std::vector<Entry>& entries = specification_.entries(kDimensionSettingSection);
  const auto earlier = std::ranges::find_if(
      entries, [&](const Entry& entry) { return base::equalFolded(entry.fields.front(), item.variable); });
  if (earlier == entries.end()) {
    const Edited edited = putContent(specification_, Node::ofSection(kDimensionSettingSection), assignment);
    if (edited.ok()) tree().added(edited.node);
    return edited.ok();
  }
  const Node entry = Node::of(kDimensionSettingSection, static_cast<int>(earlier - entries.begin()));
  const bool isKept = putContent(specification_, entry, assignment).ok();
  if (isKept) tree().changed(entry);
  return isKept;
}

}  // namespace kiv
