#include "embedded/drawing/linetype_pattern.h"

#include "base/fold.h"
#include "embedded/drawing/drawing.h"

namespace cad {

base::Status Drawing::setDashes(RecordId linetype, std::span<const Dash> dashes) {
  constexpr std::size_t kMostDashes = 12;
  if (dashes.size() > kMostDashes) return base::Failure{{}, L"a linetype has at most 12 dashes"};
  ChangeScope scope(*this);
  base::Status status = materialise(linetype);
  for (const Dash& dash : dashes)
    if (status && dash.symbol) status = materialise(dash.symbol->style);
  if (!status) {
    scope.rollBack();
    return status;
  }
  const base::Result<EditId> edits = storage_->setDashes(*this, records_[linetype], dashes);
  if (!edits.ok()) {
    scope.rollBack();
    return edits.failure();
  }
  setEdits(linetype, edits.value());
  return {};
}

std::vector<Dash> Drawing::dashes(RecordId linetype) const {
  if (records_[linetype].implied()) return {};
  return storage_->dashes(*this, linetype);
}

bool Drawing::isShapeFile(RecordId style) const {
  return (integer(style, Property::kStandardFlags).value_or(0) & TextStyleFlag::kShapeFile) != 0;
}

base::Result<RecordId> Drawing::shapeFile(std::wstring_view file) {
  for (const RecordId style : tableRecords(Table::kTextStyle)) {
    const bool named = base::equalFolded(text(style, Property::kFontFile).value_or(std::wstring()), file);
    if (named && isShapeFile(style)) return style;
  }
  ChangeScope scope(*this);
  const base::Result<RecordId> made = storage_->add(*this, Table::kTextStyle, {}, kNoRecord);
  if (!made.ok()) {
    scope.rollBack();
    return made.failure();
  }
  const RecordId style = made.value();
  base::Status status = setInteger(style, Property::kStandardFlags, TextStyleFlag::kShapeFile);
  if (status) status = setText(style, Property::kFontFile, file);
  if (status) return style;
  scope.rollBack();
  return status.failure();
}

}  // namespace cad
