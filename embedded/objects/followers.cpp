#include "embedded/objects/followers.h"

#include <algorithm>
#include <cwchar>

namespace cad {
namespace {

const wchar_t* reasonOf(DimOutcome outcome) {
  switch (outcome) {
    case DimOutcome::kNoStyle:
      return L"the file does not tell its dimension style";
    case DimOutcome::kNoBlock:
      return L"the drawing does not have its block";
    case DimOutcome::kNothingDrawn:
      return L"its points make no picture";
    default:
      return L"dimensions of its kind are not drawn";
  }
}

bool sameValues(const std::vector<DimValue>& a, const std::vector<DimValue>& b) {
  return std::ranges::equal(a, b, [](const DimValue& one, const DimValue& other) {
    return one.variable == other.variable && one.value == other.value;
  });
}

}  // namespace

void Followers::opened(RecordId object) { states_[object] = drawing_.record(object).edits; }

Record Followers::stateAtLast(RecordId object) const {
  Record state = drawing_.record(object);
  if (const auto known = states_.find(object); known != states_.end()) state.edits = known->second;
  return state;
}

void Followers::closed(RecordId object) {
  const Record former = stateAtLast(object);
  states_.erase(object);
  const Record& now = drawing_.record(object);
  if (former.edits == now.edits || now.erased()) return;
  if (drawing_.typeName(object) == "LEADER") return;
  if (looksOtherwise(object, former)) {
    draw(object, former);
  } else {
    follow(object, former);
  }
}

bool Followers::looksOtherwise(RecordId dimension, const Record& former) const {
  const Record& now = drawing_.record(dimension);
  const RecordStorage& storage = drawing_.storage();
  for (const Property property : {Property::kDimStyle, Property::kTextRotation, Property::kDimText})
    if (storage.property(former, property) != storage.property(now, property)) return true;
  return !sameValues(drawing_.dimVariables(former), drawing_.dimVariables(now));
}

// --- Dimensions --------------------------------------------------------------------------------------------

Acad::ErrorStatus Followers::draw(RecordId dimension) {
  const Acad::ErrorStatus status = draw(dimension, stateAtLast(dimension));
  states_[dimension] = drawing_.record(dimension).edits;
  return status;
}

Acad::ErrorStatus Followers::draw(RecordId dimension, const Record& former) {
  const base::Result<DimOutcome> drawn = redraw_.redraw(dimension, former);
  if (!drawn.ok()) {
    tell(dimension, drawn.failure().text());
    return Acad::eInvalidInput;
  }
  if (!keepsBlock(drawn.value())) return Acad::eOk;
  follow(dimension, former);
  tellKept(dimension, drawn.value());
  return Acad::eOk;
}

void Followers::follow(RecordId dimension, const Record& former) {
  const RecordStorage& storage = drawing_.storage();
  const Record now = drawing_.record(dimension);
  const auto changed = [&](Property property) {
    return storage.property(former, property) != storage.property(now, property);
  };
  if (!changed(Property::kLayer) && !changed(Property::kLinetype)) return;
  const base::Result<bool> followed = redraw_.follow(dimension, former);
  if (!followed.ok()) return tell(dimension, followed.failure().text());
  if (followed.value()) return;
  // The block is not the dimension's alone: it gets one of its own, if it can be drawn.
  const base::Result<DimOutcome> drawn = redraw_.redraw(dimension, former);
  if (!drawn.ok()) return tell(dimension, drawn.failure().text());
  if (keepsBlock(drawn.value())) tellKept(dimension, drawn.value());
}

// --- What is told ------------------------------------------------------------------------------------------

void Followers::tellKept(RecordId dimension, DimOutcome outcome) { tell(dimension, reasonOf(outcome)); }

void Followers::tell(RecordId dimension, const std::wstring& reason) {
  if (!remark || !told_.insert(dimension).second) return;
  const std::string_view type = drawing_.typeName(dimension);
  std::wstring name(type.begin(), type.end());
  if (const std::optional<Handle> handle = drawing_.handle(dimension)) {
    wchar_t digits[20];
    std::swprintf(digits, std::size(digits), L" %llX", static_cast<unsigned long long>(*handle));
    name += digits;
  } else if (const auto block = drawing_.text(dimension, Property::kDimBlock)) {
    name += L" " + *block;
  }
  remark({name, L"The dimension keeps the picture that it had: " + reason});
}

}  // namespace cad
