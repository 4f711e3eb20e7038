#include "platform/headless/window.h"

#include <algorithm>

#include "platform/headless/desktop.h"
#include "platform/headless/placement.h"
#include "platform/headless/resource_styles.h"

namespace kiv::headless {
namespace {

// What a caller gets that asks for a control which the dialog does not have: an empty one, anew each time.
template <class Control>
Control& absent() {
  static Control none;
  none = Control();
  return none;
}

unsigned nextSerial() {
  static unsigned last = 0;
  return ++last;
}

ComboBox& absentCombo() {
  static Field field;
  static MemoryCombo none(field);
  field = Field();
  none = MemoryCombo(field);
  return none;
}

}  // namespace

MemoryControl::MemoryControl(const ResourceControl& from)
    : resource(&from),
      id(from.id),
      kind(from.kind),
      visible(from.has(style::kVisible)),
      enabled(!from.has(style::kDisabled)) {
  if (kind == ControlKind::kTree) tree = std::make_unique<MemoryTree>();
  if (kind == ControlKind::kList) list = std::make_unique<MemoryList>();
  if (kind == ControlKind::kGrid) grid = std::make_unique<MemoryGrid>();
  field.set(from.caption);
}

bool MemoryControl::isButton() const {
  return kind == ControlKind::kPushButton || kind == ControlKind::kCheckBox ||
         kind == ControlKind::kRadioButton;
}

bool MemoryControl::isEditable() const {
  if (combo) return !resource->has(style::kDropDownList);
  return kind == ControlKind::kEdit && !resource->has(style::kReadOnly);
}

MemoryWindow::MemoryWindow(Dialog& dialog, const DialogResource& resource, MemoryWindow* owner)
    : dialog_(&dialog),
      serial_(nextSerial()),
      resource_(&resource),
      owner_(owner),
      title_(resource.caption),
      place_(initialPlace(resource, owner ? owner->place() : Rect())) {
  controls_.reserve(resource.controls.size());
  for (const ResourceControl& each : resource.controls) {
    MemoryControl& made = controls_.emplace_back(each);
    // Made here because it refers to the field, whose place is settled now.
    if (made.kind == ControlKind::kComboBox) made.combo = std::make_unique<MemoryCombo>(made.field);
  }
}

void MemoryWindow::show(bool shown) {
  if (shown == shown_) {
    if (shown) activate();
    return;
  }
  shown_ = shown;
  desktop().shownChanged(*this);
  if (shown && focus_ == 0) focusFirst();
}

void MemoryWindow::activate() {
  if (shown_ && enabled_) desktop().setActive(this);
}

void MemoryWindow::moveTo(Place topLeft) {
  const int width = place_.right - place_.left;
  const int height = place_.bottom - place_.top;
  place_ = {topLeft.x, topLeft.y, topLeft.x + width, topLeft.y + height};
}

void MemoryWindow::setSize(int width, int height) {
  const Rect first = initialPlace(*resource_, Rect());
  width = std::max(width, first.right - first.left);
  height = std::max(height, first.bottom - first.top);
  const int left = (place_.left + place_.right - width) / 2, top = (place_.top + place_.bottom - height) / 2;
  place_ = {left, top, left + width, top + height};
}

void MemoryWindow::holdTo(int id, unsigned edges) {
  if (MemoryControl* control = find(id)) control->edges = edges;
}

void MemoryWindow::post(int command) { desktop().post(*this, command); }

MemoryControl* MemoryWindow::find(int id) {
  return const_cast<MemoryControl*>(std::as_const(*this).find(id));
}

const MemoryControl* MemoryWindow::find(int id) const {
  if (id == -1) return nullptr;
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [id](const auto& each) { return each.id == id; });
  return found == controls_.end() ? nullptr : &*found;
}

Rect MemoryWindow::placeOf(int id) const {
  const MemoryControl* control = find(id);
  if (!control) return {};
  const Rect first = initialPlace(*resource_, Rect());
  const Place grown{place_.right - place_.left - (first.right - first.left),
                    place_.bottom - place_.top - (first.bottom - first.top)};
  return movedWithEdges(controlPlace(*control->resource, place_), control->edges, grown);
}

// Rows have no place here.
Place MemoryWindow::menuPlace(int id) const {
  const Rect place = placeOf(id);
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

std::wstring MemoryWindow::text(int id) const {
  const MemoryControl* control = find(id);
  return control ? control->field.text() : std::wstring();
}

void MemoryWindow::setText(int id, std::wstring_view text) {
  MemoryControl* control = find(id);
  if (!control) return;
  if (control->combo) {
    control->combo->takeSelectionAway();
    // A list without a field shows nothing but its entries.
    if (control->resource->has(style::kDropDownList)) return;
  }
  control->field.set(text);
}

bool MemoryWindow::isEnabled(int id) const {
  const MemoryControl* control = find(id);
  return control && control->enabled;
}

void MemoryWindow::enable(int id, bool enabled) {
  MemoryControl* control = find(id);
  if (!control) return;
  control->enabled = enabled;
  if (!enabled && focus_ == id) focus_ = 0;
}

bool MemoryWindow::isVisible(int id) const {
  const MemoryControl* control = find(id);
  return control && control->visible;
}

void MemoryWindow::showControl(int id, bool visible) {
  MemoryControl* control = find(id);
  if (!control) return;
  control->visible = visible;
  if (!visible && focus_ == id) focus_ = 0;
}

MemoryControl* MemoryWindow::findByAccessKey(wchar_t letter) {
  for (const AccessKey& key : resourceScript().accessKeys) {
    if (key.dialog == resource() && key.letter == letter) return find(key.control);
  }
  return nullptr;
}

void MemoryWindow::focus(int id) {
  MemoryControl* control = find(id);
  if (!control || !control->isUsable()) return;
  focus_ = id;
  if (control->kind == ControlKind::kEdit || control->combo) control->field.selectAll();
}

int MemoryWindow::focused() const {
  const bool otherIsActive = desktop().active() && desktop().active() != this;
  return otherIsActive ? 0 : focus_;
}

bool MemoryWindow::isChecked(int id) const {
  const MemoryControl* control = find(id);
  return control && control->checked;
}

void MemoryWindow::check(int id, bool checked) {
  MemoryControl* control = find(id);
  if (!control) return;
  if (control->kind == ControlKind::kRadioButton && checked) {
    const auto [begin, end] = group(*control);
    for (std::size_t i = begin; i < end; ++i) {
      if (controls_[i].kind == ControlKind::kRadioButton) controls_[i].checked = false;
    }
  } else if (control->kind != ControlKind::kRadioButton && control->kind != ControlKind::kCheckBox) {
    return;
  }
  control->checked = checked;
}

ComboBox& MemoryWindow::combo(int id) {
  MemoryControl* control = find(id);
  return control && control->combo ? *control->combo : absentCombo();
}

TreeView& MemoryWindow::tree(int id) {
  MemoryControl* control = find(id);
  return control && control->tree ? *control->tree : absent<MemoryTree>();
}

ListView& MemoryWindow::list(int id) {
  MemoryControl* control = find(id);
  return control && control->list ? *control->list : absent<MemoryList>();
}

TextGrid& MemoryWindow::grid(int id) {
  MemoryControl* control = find(id);
  return control && control->grid ? *control->grid : absent<MemoryGrid>();
}

}  // namespace kiv::headless
