#include "ui/layer_picker.h"

#include <algorithm>
#include <utility>

#include "acdbads.h"
#include "base/fold.h"
#include "base/numbers.h"
#include "platform/host_functions.h"
#include "platform/questions.h"
#include "spec/value_forms.h"
#include "ui/item_inputs.h"
#include "ui/resource.h"
#include "ui/value_choices.h"
#include "ui/value_typing.h"

namespace kiv {
namespace {

constexpr const wchar_t* kInvalidName =
    L"画層名に無効な文字があります。\r\n 画層名に次の文字は使用できません:\r\n <>/\\\"\":;?*|,='";

constexpr int kColorToBeginWith = 7;  // of the colour dialog

// A button is pressed where the layer is not as layers mostly are.
struct StateButton {
  int id;
  int label;
  const wchar_t* pressed;
  const wchar_t* released;
  int pressedPicture;
  int releasedPicture;
};

// In the order of the values, from the fourth on.
constexpr StateButton kStates[] = {
    {IDC_LAYER_DISPLAY, IDC_LAYER_DISPLAY_STATE, L"OFF", L"ON", IDI_LAYER_HIDDEN, IDI_LAYER_SHOWN},
    {IDC_LAYER_LOCK, IDC_LAYER_LOCK_STATE, L"ON", L"OFF", IDI_LAYER_LOCKED, IDI_LAYER_UNLOCKED},
    {IDC_LAYER_FREEZE, IDC_LAYER_FREEZE_STATE, L"ON", L"OFF", IDI_LAYER_FROZEN, IDI_LAYER_THAWED},
    {IDC_LAYER_PLOT, IDC_LAYER_PLOT_STATE, L"OFF", L"ON", IDI_LAYER_UNPLOTTED, IDI_LAYER_PLOTTED},
};

const StateButton* stateButton(int id) {
  const auto found = std::ranges::find(kStates, id, &StateButton::id);
  return found == std::end(kStates) ? nullptr : found;
}

// A picked value of a layer has its label before it: "表示 ON".
std::wstring withoutLabel(const std::wstring& labelled) { return labelled.substr(labelled.find(L' ') + 1); }

}  // namespace

CSelLay::CSelLay(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_LAYER, PickerSlot::kLayer, owner, pick), content_(std::move(request.present)) {}

void CSelLay::onInit() {
  fillLists();
  show(content_.fields.empty() ? std::vector<std::wstring>{L"", colorText(kColorToBeginWith), L"CONTINUOUS",
                                                           L"ON", L"OFF", L"OFF", L"ON", L"Default", L"0"}
                               : content_.fields);
  CSelBase::onInit();
  window().focus(IDC_LAYER_NAME);
}

int CSelLay::pickItem() const { return kLayerKind; }

// What a layer can have: it has nothing to take a value from.
void CSelLay::fillLists() {
  const auto offered = [](int kind, const std::vector<std::wstring>& used = {}) {
    return offeredValues(kind, kLayerSettingSection, used, {});
  };
  addEntries(window().combo(IDC_LAYER_COLOR), offered(kColorKind));
  addEntries(window().combo(IDC_LAYER_LINETYPE),
             offered(kLinetypeKind, owner().namesInSection(sectionOfNames(kLinetypeKind))));
  addEntries(window().combo(IDC_LAYER_LINEWEIGHT), offered(kLineweightKind));
  addEntries(window().combo(IDC_LAYER_TRANSPARENCY), percentChoices());
}

void CSelLay::show(const std::vector<std::wstring>& values) {
  const auto has = [&values](std::size_t place) { return place < values.size(); };
  if (has(0)) window().setText(IDC_LAYER_NAME, values[0]);
  if (has(1)) chooseOrType(window(), IDC_LAYER_COLOR, values[1]);
  if (has(2)) chooseOrType(window(), IDC_LAYER_LINETYPE, values[2]);
  std::size_t place = 3;
  for (const StateButton& state : kStates) {
    if (has(place)) window().check(state.id, base::equalFolded(values[place], state.pressed));
    showState(state.id);
    ++place;
  }
  if (has(place)) chooseLineweight(values[place]);
  if (has(place + 1)) chooseOrType(window(), IDC_LAYER_TRANSPARENCY, values[place + 1]);
}

void CSelLay::showState(int button) {
  const StateButton& state = *stateButton(button);
  const bool isPressed = window().isChecked(button);
  window().setPicture(button, isPressed ? state.pressedPicture : state.releasedPicture);
  window().setText(state.label, window().text(button) + L" " + (isPressed ? state.pressed : state.released));
}

// A file has the weights in capital letters. A text that is no weight of a layer is kept as one entry more.
void CSelLay::chooseLineweight(const std::wstring& text) {
  ComboBox& combo = window().combo(IDC_LAYER_LINEWEIGHT);
  const std::vector<std::wstring> entries = combo.entries();
  const auto found = std::ranges::find_if(
      entries, [&text](const std::wstring& entry) { return base::equalFolded(entry, text); });
  if (found == entries.end() && !text.empty()) combo.add(text);
  combo.select(text.empty() ? -1 : static_cast<int>(found - entries.begin()));
}

void CSelLay::onCommand(int command) {
  if (!initialising() && stateButton(command)) return showState(command);
  if (!initialising() && command == IDC_LAYER_COLOR_DIALOG) return chooseColor();
  CSelBase::onCommand(command);
}

void CSelLay::onEdited(int id) {
  if (id != IDC_LAYER_TRANSPARENCY || initialising()) return;
  showCompleted(window(), id, percentBeginning(window().text(id)));
}

// The host's dialog keeps only the host's own window from input.
void CSelLay::chooseColor() {
  const int present = base::leadingInteger(window().text(IDC_LAYER_COLOR));
  window().enableWindow(false);
  const auto chosen = chooseHostColor(isLayerColor(present) ? present : kColorToBeginWith);
  if (!hasWindow()) return;
  window().enableWindow(true);
  window().activate();
  if (chosen) chooseOrType(window(), IDC_LAYER_COLOR, colorText(*chosen));
}

bool CSelLay::isNameValid(const std::wstring& name) const {
  constexpr int kNoPipes = 0;
  return name.find(L'|') == std::wstring::npos && acdbSNValid(name.c_str(), kNoPipes) == RTNORM;
}

std::vector<std::wstring> CSelLay::values() const {
  std::vector<std::wstring> values;
  for (const int id : {IDC_LAYER_NAME, IDC_LAYER_COLOR, IDC_LAYER_LINETYPE})
    values.push_back(window().text(id));
  for (const StateButton& state : kStates)
    values.emplace_back(window().isChecked(state.id) ? state.pressed : state.released);
  for (const int id : {IDC_LAYER_LINEWEIGHT, IDC_LAYER_TRANSPARENCY}) values.push_back(window().text(id));
  return values;
}

void CSelLay::confirm() {
  const std::wstring name(base::trim(window().text(IDC_LAYER_NAME)));
  if (name.empty()) return window().focus(IDC_LAYER_NAME);
  if (!isNameValid(name)) {
    window().focus(IDC_LAYER_NAME);
    static_cast<void>(showMessage(window().native(), {kInvalidName, L"画層", Buttons::kOk, Icon::kStop}));
    return;
  }
  // A layer has a colour of its own: what is none would be written as by block.
  if (!isLayerColor(colorNumber(window().text(IDC_LAYER_COLOR)))) return window().focus(IDC_LAYER_COLOR);
  if (window().text(IDC_LAYER_LINETYPE).empty()) return window().focus(IDC_LAYER_LINETYPE);
  content_.fields = values();
  content_.fields.front() = name;
  if (owner().take(content_)) close();
}

void CSelLay::pickCompleted() {
  std::vector<std::wstring> values = pick().values;
  for (std::size_t place = 3; place < values.size(); ++place) values[place] = withoutLabel(values[place]);
  if (hasWindow()) show(values);
  CSelBase::pickCompleted();
}

}  // namespace kiv
