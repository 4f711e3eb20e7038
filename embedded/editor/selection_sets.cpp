#include "embedded/editor/selection_sets.h"

#include <algorithm>
#include <cwchar>

#include "acedads.h"
#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/selection_filter.h"
#include "embedded/objects/database_access.h"

namespace cad {

SelectionSet::SelectionSet(const Drawing& drawing, std::vector<RecordId> members)
    : drawing_(&drawing), members_(std::move(members)), living_(members_.size()) {
  for (std::size_t i = 0; i < members_.size(); i += kBlock)
    livingInBlock_.push_back(static_cast<std::uint32_t>(std::min(kBlock, members_.size() - i)));
}

RecordId SelectionSet::at(std::size_t index) const {
  if (living_ == members_.size()) return members_[index];
  std::size_t block = 0;
  for (; index >= livingInBlock_[block]; ++block) index -= livingInBlock_[block];
  std::size_t position = block * kBlock;
  for (;; ++position) {
    if (members_[position] == kNoRecord) continue;
    if (index-- == 0) return members_[position];
  }
}

void SelectionSet::index() const {
  if (indexed_) return;
  positions_.reserve(members_.size());
  for (std::size_t i = 0; i < members_.size(); ++i)
    if (members_[i] != kNoRecord) positions_.emplace(members_[i], static_cast<std::uint32_t>(i));
  indexed_ = true;
}

bool SelectionSet::contains(RecordId entity) const {
  index();
  return positions_.contains(entity);
}

void SelectionSet::add(RecordId entity) {
  if (contains(entity)) return;
  if (members_.size() % kBlock == 0) livingInBlock_.push_back(0);
  positions_.emplace(entity, static_cast<std::uint32_t>(members_.size()));
  members_.push_back(entity);
  ++livingInBlock_.back();
  ++living_;
}

bool SelectionSet::remove(RecordId entity) {
  index();
  const auto found = positions_.find(entity);
  if (found == positions_.end()) return false;
  members_[found->second] = kNoRecord;
  --livingInBlock_[found->second / kBlock];
  --living_;
  positions_.erase(found);
  return true;
}

bool SelectionSets::add(std::unique_ptr<SelectionSet> set, ads_name name) {
  if (isFull()) return false;
  sets_.emplace(++newest_, std::move(set));
  name[0] = newest_;
  name[1] = -1;
  return true;
}

SelectionSet* SelectionSets::find(const ads_name name) {
  if (name == nullptr || name[1] != -1) return nullptr;
  const auto found = sets_.find(name[0]);
  return found == sets_.end() ? nullptr : found->second.get();
}

bool SelectionSets::free(const ads_name name) {
  return name != nullptr && name[1] == -1 && sets_.erase(name[0]) != 0;
}

void SelectionSets::drop(const Drawing& drawing) {
  std::erase_if(sets_, [&](const auto& each) { return &each.second->drawing() == &drawing; });
}

}  // namespace cad

namespace {

cad::SelectionSet* setOf(const ads_name name) { return cad::hostState().selectionSets.find(name); }

// kNoRecord unless the name is an entity of the drawing.
cad::RecordId entityOf(const ads_name name, const cad::Drawing& drawing) {
  if (name == nullptr) return cad::kNoRecord;
  AcDbObjectId id;
  id.setFromOldId(name[0]);
  const cad::RecordId record = cad::recordOf(id);
  if (record == cad::kNoRecord || id.database() != cad::databaseOf(drawing)) return cad::kNoRecord;
  return drawing.record(record).kind == cad::RecordKind::kEntity ? record : cad::kNoRecord;
}

bool selectsWholeDrawing(const ACHAR* mode) {
  return mode != nullptr && (base::equalFolded(mode, L"X") || base::equalFolded(mode, L"A") ||
                             base::equalFolded(mode, L"_X") || base::equalFolded(mode, L"_A"));
}

}  // namespace

int acedSSGet(const ACHAR* mode, const void*, const void*, const resbuf* filter, ads_name set) {
  if (set == nullptr) return RTERROR;
  ads_name_clear(set);
  cad::HostState& state = cad::hostState();
  cad::Document* document = state.documents.current();
  if (document == nullptr || !selectsWholeDrawing(mode) || state.selectionSets.isFull()) return RTERROR;
  const std::unique_ptr<cad::SelectionFilter> parsed = cad::SelectionFilter::parse(filter);
  if (!parsed) return RTREJ;
  std::vector<cad::RecordId> members = parsed->select(document->drawing());
  if (members.empty()) return RTERROR;
  state.selectionSets.add(std::make_unique<cad::SelectionSet>(document->drawing(), std::move(members)), set);
  return RTNORM;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
  const cad::SelectionSet* found = setOf(set);
  if (found == nullptr || length == nullptr) return RTERROR;
  *length = static_cast<Adesk::Int32>(found->size());
  return RTNORM;
}

int acedSSName(const ads_name set, int index, ads_name entity) {
  const cad::SelectionSet* found = setOf(set);
  if (found == nullptr || entity == nullptr || index < 0 || static_cast<std::size_t>(index) >= found->size())
    return RTERROR;
  const AcDbDatabase* database = cad::databaseOf(found->drawing());
  if (database == nullptr) return RTERROR;
  entity[0] = cad::idOf(*database, found->at(static_cast<std::size_t>(index))).asOldId();
  entity[1] = 0;
  return RTNORM;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
  cad::HostState& state = cad::hostState();
  cad::Document* document = state.documents.current();
  if (result == nullptr || document == nullptr) return RTERROR;
  const bool makesNew = set == nullptr || ads_name_nil(set);
  cad::SelectionSet* target = makesNew ? nullptr : setOf(set);
  if (!makesNew && target == nullptr) return RTERROR;
  const cad::Drawing& drawing = makesNew ? document->drawing() : target->drawing();
  const bool addsEntity = entity != nullptr && !ads_name_nil(entity);
  const cad::RecordId record = entityOf(entity, drawing);
  if (addsEntity && record == cad::kNoRecord) return RTERROR;
  if (!makesNew) {
    if (addsEntity) target->add(record);
    if (result != set) ads_name_set(set, result);
    return RTNORM;
  }
  auto made = std::make_unique<cad::SelectionSet>(drawing, std::vector<cad::RecordId>());
  if (addsEntity) made->add(record);
  return state.selectionSets.add(std::move(made), result) ? RTNORM : RTERROR;
}

int acedSSDel(const ads_name entity, const ads_name set) {
  cad::SelectionSet* found = setOf(set);
  if (found == nullptr) return RTERROR;
  return found->remove(entityOf(entity, found->drawing())) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name entity, const ads_name set) {
  const cad::SelectionSet* found = setOf(set);
  if (found == nullptr) return RTERROR;
  return found->contains(entityOf(entity, found->drawing())) ? RTNORM : RTERROR;
}

int acedSSFree(const ads_name set) { return cad::hostState().selectionSets.free(set) ? RTNORM : RTERROR; }
