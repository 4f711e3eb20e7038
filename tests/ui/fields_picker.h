#pragma once
// Stands in for the pickers of entries: the field of the value picker's dialog shows what it was given and
// takes what it gives, a variable first and a "|" between.

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

 protected:
  void onInit() override {
    show(content_.variable);
    for (const std::wstring& field : content_.fields) show(field);
    CSelBase::onInit();
  }
  int pickItem() const override { return 0; }
  void confirm() override {
    takeFields();
    if (owner().take(content_)) close();
  }

 private:
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
    if (content_.kind == section(kDimensionSettingSection).entryKind) {
      content_.variable = fields.front();
      fields.erase(fields.begin());
    }
    content_.fields = fields;
  }

  NodeContent content_;
};

// For all entries, as long as it lives.
class FieldsPickers {
 public:
  FieldsPickers() { set(&FieldsPicker::make); }
  ~FieldsPickers() { set(nullptr); }

 private:
  static void set(MakePicker make) {
    for (const int kind : {51, 52, 53, 54, 55}) overridePicker(kind, make);
  }
};

}  // namespace kiv::test
