#include "platform/win32/lineweight_combo_box.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/fold.h"
#include "base/lineweights.h"
#include "platform/win32/lineweight_list.h"

namespace kiv::win32 {
namespace {

std::optional<int> lineweightOf(std::wstring_view text) {
  for (const base::Lineweight& weight : base::lineweights())
    if (base::equalFolded(weight.text, text)) return weight.hundredths;
  return std::nullopt;
}

}  // namespace

LineweightComboBox::LineweightComboBox(HWND comboBox, int& quietDepth, std::unique_ptr<HostLineweights> lent)
    : Control(comboBox, quietDepth), own_(comboBox, quietDepth), lent_(std::move(lent)) {}

void LineweightComboBox::clear() {
  if (!lent_) return own_.clear();
  added_.clear();
  own_.select(-1);
}

void LineweightComboBox::add(std::wstring_view entry) {
  if (!lent_) return own_.add(entry);
  added_.emplace_back(entry);
  const std::optional<int> lineweight = lineweightOf(entry);
  if (!lineweight || lent_->entryOf(*lineweight) < 0) giveBack();
}

void LineweightComboBox::giveBack() {
  const int chosen = selected();
  lent_.reset();
  own_.clear();
  for (const std::wstring& entry : std::exchange(added_, {})) own_.add(entry);
  own_.select(chosen);
}

std::vector<std::wstring> LineweightComboBox::entries() const { return lent_ ? added_ : own_.entries(); }

int LineweightComboBox::selected() const {
  if (!lent_ || own_.selected() < 0) return own_.selected();
  const auto found = std::ranges::find(added_, std::optional(lent_->lineweightOfChosen()), lineweightOf);
  return found == added_.end() ? -1 : static_cast<int>(found - added_.begin());
}

void LineweightComboBox::select(int entry) {
  if (!lent_) return own_.select(entry);
  const bool isThere = entry >= 0 && entry < static_cast<int>(added_.size());
  own_.select(isThere ? lent_->entryOf(*lineweightOf(added_[static_cast<std::size_t>(entry)])) : -1);
}

std::wstring LineweightComboBox::text() const {
  if (!lent_) return windowText(handle());
  const int chosen = selected();
  return chosen < 0 ? std::wstring() : added_[static_cast<std::size_t>(chosen)];
}

void LineweightComboBox::draw(const DRAWITEMSTRUCT& item) {
  if (!lent_) return drawLineweightEntry(item);
  lent_->take(WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void LineweightComboBox::takeNotice(WPARAM notice) {
  if (lent_) lent_->take(WM_COMMAND, notice, reinterpret_cast<LPARAM>(handle()));
}

}  // namespace kiv::win32
