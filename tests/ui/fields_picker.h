#pragma once
// Stands in for the pickers of dimension variables and entries: the field of the value picker's dialog shows
// what it was given and takes what it gives, the variable first and a "|" between. "参照" picks the
// variable's value.

#include "ui/item_pickers.h"
#include "ui/resource.h"

namespace kiv::test {

class FieldsPicker : public CSelBase {
 public:
  FieldsPicker(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request)
      : CSelBase(IDD_VALUE, PickerSlot::kDimension, owner, pick), content_(request.present) {}

  static std::unique_ptr<CSelBase> make(PickerOwner& owner, PickHandOver& pick,
                                        const PickerRequest& request) {
    return std::make_unique<FieldsPicker>(owner, pick, request);
  }

  void pickCompleted() override {
    for (const std::wstring& value : pick().values) show(value);
    CSelBase::pickCompleted();
  }

 protected:
  void onInit() override {
    show(content_.variable);
    for (const std::wstring& field : content_.fields) show(field);
    CSelBase::onInit();
  }
  int pickItem() const override { return kDimensionPick; }
  void askForPick() override {
    takeFields();
    requestPick(kDimensionPick, content_.variable);
  }
  void confirm() override {
    takeFields();
    if (owner().take(content_)) close();
  }

 private:
  static constexpr int kDimensionPick = 9;

  void show(const std::wstring& field) {
    const std::wstring shown = window().text(IDC_VALUE_COMBO);
    window().setText(IDC_VALUE_COMBO, shown.empty() ? field : shown + L"|" + field);
  }
  void takeFields() {
    std::vector<std::wstring> fields(1);
    for (const wchar_t c : window().text(IDC_VALUE_COMBO)) {
      if (c == L'|') {
        fields.emplace_back();
      } else {
        fields.back() += c;
      }
    }
    if (content_.kind == kVariableKind || content_.kind == section(kDimensionSettingSection).entryKind) {
      content_.variable = fields.front();
      fields.erase(fields.begin());
    }
    content_.fields = fields;
  }

  NodeContent content_;
};

// For dimension variables and all entries, as long as it lives.
class FieldsPickers {
 public:
  FieldsPickers() { set(&FieldsPicker::make); }
  ~FieldsPickers() { set(nullptr); }

 private:
  static void set(MakePicker make) {
    for (const int kind : {kVariableKind, 51, 52, 53, 54, 55}) overridePicker(kind, make);
  }
};

}  // namespace kiv::test
