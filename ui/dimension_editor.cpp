#include "ui/dimension_editor.h"

#include <utility>

#include "base/fold.h"
#include "siblings/KivDll/interface.h"
#include "spec/arrow_catalogue.h"
#include "spec/item_kinds.h"
#include "spec/value_forms.h"
#include "ui/messages.h"
#include "ui/resource.h"
#include "ui/value_choices.h"

namespace kiv {
namespace {

constexpr const wchar_t* kBlockCannotBeKept = L"「(」を含むﾌﾞﾛｯｸ名は指定できません.";

const wchar_t* typeWord(const DimensionVariable& variable) {
  if (variable.isInteger()) return L"整数";
  return variable.isReal() ? L"実数" : L"文字";
}

}  // namespace

// No dimension has a variable of the drawing alone: only the settings of the drawing offer these.
CSelDim::CSelDim(PickerOwner& owner, PickHandOver& pick, PickerRequest request)
    : CSelBase(IDD_DIMENSION, PickerSlot::kDimension, owner, pick), content_(std::move(request.present)) {
  offer(request.section == kDimensionSettingSection);
}

// What is edited is offered in any case.
void CSelDim::offer(bool allVariables) {
  for (const DimensionVariable& variable : dimensionCatalogue()) {
    if (allVariables || !variable.info->isOfHeaderOnly() ||
        base::equalFolded(variable.name, content_.variable))
      offered_.push_back(&variable);
  }
}

void CSelDim::onInit() {
  window().setPicture(IDC_DIMENSION_PICTURE, IDB_DIMENSION);
  listVariables();
  listArrowsAndBlocks();
  showValueControls();
  showPresent();
  CSelBase::onInit();
}

void CSelDim::listVariables() {
  ListView& list = window().list(IDC_DIMENSION_LIST);
  const Rect place = window().placeOf(IDC_DIMENSION_LIST);
  const int width = place.right - place.left;
  list.setColumns({{L"ｼｽﾃﾑ変数", width / 4}, {L"ﾀｲﾌﾟ", width / 8}, {L"説明", width * 2}});
  for (const DimensionVariable* variable : offered_) {
    window().combo(IDC_DIMENSION_VARIABLE).add(variable->name);
    list.addRow({variable->name, typeWord(*variable), variable->description});
  }
}

void CSelDim::listArrowsAndBlocks() {
  for (const ArrowName& arrow : arrowCatalogue()) window().combo(IDC_DIMENSION_ARROW).add(arrowText(arrow));
  std::vector<std::wstring> blocks = blockChoices();
  addMissing(blocks, owner().namesInSection(kArrowSection));
  addEntries(window().combo(IDC_DIMENSION_BLOCK), blocks);
}

void CSelDim::showPresent() {
  for (size_t index = 0; index < offered_.size(); ++index) {
    if (!base::equalFolded(offered_[index]->name, content_.variable)) continue;
    window().combo(IDC_DIMENSION_VARIABLE).select(static_cast<int>(index));
    choose(static_cast<int>(index));
  }
  if (content_.fields.empty()) return;
  const std::wstring& value = content_.fields.front();
  if (!isArrowMode()) return window().setText(IDC_DIMENSION_VALUE, value);
  const ArrowChoice arrow = arrowChoice(value);
  window().combo(IDC_DIMENSION_ARROW).select(arrow.row);
  if (!arrow.block.empty()) chooseOrType(window(), IDC_DIMENSION_BLOCK, arrow.block);
  enableBlock();
}

void CSelDim::choose(int variable) {
  if (variable == chosen_ || variable < 0) return;
  chosen_ = variable;
  window().list(IDC_DIMENSION_LIST).select(variable);
  window().combo(IDC_DIMENSION_VARIABLE).select(variable);
  showValueControls();
}

// The edit and the two combo boxes have one place.
void CSelDim::showValueControls() {
  const bool arrow = isArrowMode();
  window().showControl(IDC_DIMENSION_VALUE, !arrow);
  window().showControl(IDC_DIMENSION_ARROW, arrow);
  window().showControl(IDC_DIMENSION_BLOCK, arrow);
  enableBlock();
}

void CSelDim::enableBlock() { window().enable(IDC_DIMENSION_BLOCK, isBlockAsked()); }

void CSelDim::showBlock(const std::wstring& block) {
  window().combo(IDC_DIMENSION_ARROW).select(static_cast<int>(arrowCatalogue().size()) - 1);
  enableBlock();
  chooseOrType(window(), IDC_DIMENSION_BLOCK, block);
}

bool CSelDim::isArrowMode() const {
  return chosen_ >= 0 && offered_[static_cast<size_t>(chosen_)]->isArrow();
}

bool CSelDim::isBlockAsked() {
  const int arrow = window().combo(IDC_DIMENSION_ARROW).selected();
  return arrow + 1 == static_cast<int>(arrowCatalogue().size());
}

void CSelDim::onSelected(int id) {
  if (id == IDC_DIMENSION_VARIABLE) choose(window().combo(id).selected());
  if (id == IDC_DIMENSION_LIST) choose(window().list(id).selected());
  if (id == IDC_DIMENSION_ARROW) enableBlock();
}

void CSelDim::onDoubleClicked(int id) {
  if (id == IDC_DIMENSION_LIST && window().list(id).selected() >= 0) onCommand(IDOK);
}

// A block's name goes into an arrow variable, the value of a picked dimension into any other.
int CSelDim::pickItem() const {
  return static_cast<int>(isArrowMode() ? PickItem::kBlock : PickItem::kDimension);
}

void CSelDim::askForPick() {
  if (chosen_ < 0) return window().focus(IDC_DIMENSION_VARIABLE);
  requestPick(pickItem(), offered_[static_cast<size_t>(chosen_)]->name);
}

void CSelDim::pickCompleted() {
  if (!pick().values.empty() && hasWindow()) {
    const std::wstring& value = pick().values.front();
    isArrowMode() ? showBlock(value) : window().setText(IDC_DIMENSION_VALUE, value);
  }
  CSelBase::pickCompleted();
}

void CSelDim::confirm() {
  if (chosen_ < 0) return window().focus(IDC_DIMENSION_VARIABLE);
  if (!(isArrowMode() ? takeArrow() : takeValue())) return;
  content_.variable = offered_[static_cast<size_t>(chosen_)]->name;
  if (owner().take(content_)) close();
}

bool CSelDim::takeValue() {
  content_.fields = {std::wstring(base::trim(window().text(IDC_DIMENSION_VALUE)))};
  if (!content_.fields.front().empty()) return true;
  window().focus(IDC_DIMENSION_VALUE);
  return false;
}

bool CSelDim::takeArrow() {
  const int row = window().combo(IDC_DIMENSION_ARROW).selected();
  if (row < 0) return window().focus(IDC_DIMENSION_ARROW), false;
  ArrowName arrow = arrowCatalogue()[static_cast<size_t>(row)];
  const std::wstring block(base::trim(window().text(IDC_DIMENSION_BLOCK)));
  if (isBlockAsked()) arrow.blockName = block.c_str();
  const std::wstring value = arrowText(arrow);
  if (*arrow.blockName == L'\0') return window().focus(IDC_DIMENSION_BLOCK), false;
  if (blockNameOfDisplayForm(value) != arrow.blockName) {
    window().focus(IDC_DIMENSION_BLOCK);
    return tell(window(), kBlockCannotBeKept), false;
  }
  content_.fields = {value};
  return true;
}

}  // namespace kiv
