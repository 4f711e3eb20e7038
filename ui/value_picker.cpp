#include "ui/value_picker.h"

#include <algorithm>
#include <utility>

#include "spec/item_kinds.h"
#include "ui/item_inputs.h"
#include "ui/resource.h"

namespace kiv {
namespace {

constexpr size_t kLongestValue = 255;

}  // namespace

CSelDlg::CSelDlg(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_VALUE, owner, kValuePickerSlot, pick), request_(std::move(request)) {}

void CSelDlg::onInit() {
  const ItemInput* input = itemInput(request_.kind);
  const std::wstring label = input ? input->label : L"";
  window().setText(IDC_VALUE_LABEL, label + L" :");
  const bool isCondition = request_.role == Role::kCondition;
  window().setTitle(label + (isCondition ? L"の指定(変換対象の設定)" : L"の指定(変換後の設定)"));
  fillChoices();
  const size_t index = request_.kind == kVariableKind ? 1 : 0;
  if (index < request_.present.size()) showValue(request_.present[index]);
  CSelBase::onInit();
  window().focus(IDC_VALUE_COMBO);
}

// A list's name stands nowhere in a drawing, nor does the value of one variable.
int CSelDlg::pickItem() const {
  const bool isInDrawings = request_.kind != kTextListKind && request_.kind != kVariableKind;
  return isInDrawings ? request_.kind : 0;
}

void CSelDlg::fillChoices() {
  const int section = sectionOfNames(request_.kind);
  std::vector<std::wstring> used;
  if (section != 0) used = owner().namesInSection(section);
  ComboBox& combo = window().combo(IDC_VALUE_COMBO);
  combo.clear();
  for (const std::wstring& value : offeredValues(request_.kind, request_.section, used, request_.listFolder))
    combo.add(value);
}

void CSelDlg::showValue(const std::wstring& value) {
  ComboBox& combo = window().combo(IDC_VALUE_COMBO);
  const std::vector<std::wstring> entries = combo.entries();
  const auto found = std::find(entries.begin(), entries.end(), value);
  if (found != entries.end()) {
    combo.select(static_cast<int>(found - entries.begin()));
  } else {
    window().setText(IDC_VALUE_COMBO, value);
  }
}

void CSelDlg::onEdited(int id) {
  if (id != IDC_VALUE_COMBO || initialising()) return;
  const std::wstring typed = window().text(IDC_VALUE_COMBO);
  const std::wstring completed = completedValue(request_.kind, typed);
  if (completed == typed) return;
  window().setText(IDC_VALUE_COMBO, completed);
  window().combo(IDC_VALUE_COMBO).putCaretAtEnd();
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
  const auto value = isChosen ? typed : checkedValue(request_.kind, typed);
  if (!value || value->empty()) return window().focus(IDC_VALUE_COMBO);
  owner().setValue(request_.kind, request_.role, *value);
  close();
}

void CSelDlg::pickCompleted() {
  if (!pick().values.empty() && hasWindow()) showValue(pick().values.front());
  CSelBase::pickCompleted();
}

}  // namespace kiv
