#include "ui/value_picker.h"

#include <utility>

#include "spec/item_kinds.h"
#include "ui/item_inputs.h"
#include "ui/resource.h"

namespace kiv {
namespace {

constexpr size_t kLongestValue = 255;

}  // namespace

CSelDlg::CSelDlg(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_VALUE, PickerSlot::kValue, owner, pick), request_(std::move(request)) {}

void CSelDlg::onInit() {
  const NodeContent& present = request_.present;
  const ItemInput* input = itemInput(present.kind);
  const std::wstring label = input ? input->label : L"";
  window().setText(IDC_VALUE_LABEL, label + L" :");
  const bool isCondition = present.role == Role::kCondition;
  window().setTitle(label + (isCondition ? L"の指定(変換対象の設定)" : L"の指定(変換後の設定)"));
  fillChoices();
  if (!present.fields.empty()) chooseOrType(window(), IDC_VALUE_COMBO, present.fields.front());
  CSelBase::onInit();
  window().focus(IDC_VALUE_COMBO);
}

// A list's name stands nowhere in a drawing, nor does the value of one variable.
int CSelDlg::pickItem() const {
  const int kind = request_.present.kind;
  return kind != kTextListKind && kind != kVariableKind ? kind : 0;
}

void CSelDlg::fillChoices() {
  const int section = sectionOfNames(request_.present.kind);
  std::vector<std::wstring> used;
  if (section != 0) used = owner().namesInSection(section);
  ComboBox& combo = window().combo(IDC_VALUE_COMBO);
  combo.clear();
  addEntries(combo, offeredValues(request_.present.kind, request_.section, used, request_.listFolder));
}

void CSelDlg::onEdited(int id) {
  if (id != IDC_VALUE_COMBO || initialising()) return;
  showCompleted(window(), id, completedValue(request_.present.kind, window().text(id)));
}

void CSelDlg::onDoubleClicked(int id) {
  if (id == IDC_VALUE_COMBO) onCommand(IDOK);
}

void CSelDlg::confirm() {
  const ComboBox& combo = window().combo(IDC_VALUE_COMBO);
  const std::vector<std::wstring> entries = combo.entries();
  const std::wstring typed = window().text(IDC_VALUE_COMBO).substr(0, kLongestValue);
  // A list may keep its mark while something else is typed; then the field is what the person sees.
  const int selected = combo.selected();
  const bool isChosen = selected >= 0 && entries[static_cast<size_t>(selected)] == typed;
  const auto value = isChosen ? typed : checkedValue(request_.present.kind, typed);
  if (!value || value->empty()) return window().focus(IDC_VALUE_COMBO);
  request_.present.fields = {*value};
  if (owner().take(request_.present)) close();
}

void CSelDlg::pickCompleted() {
  if (!pick().values.empty() && hasWindow()) chooseOrType(window(), IDC_VALUE_COMBO, pick().values.front());
  CSelBase::pickCompleted();
}

}  // namespace kiv
