#include "cli/specifications/learned_changes.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/codepage.h"
#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/record_diff.h"

namespace kivcli {
namespace {

using cad::Property;
using cad::RecordFate;

constexpr std::string_view kOtherData = "other data";

std::wstring objectText(const cad::RecordDifference& difference) {
  std::wstring text = difference.handle;
  for (const std::wstring& part : {base::fromUtf8(difference.type), difference.name}) {
    if (!part.empty()) text += (text.empty() ? L"" : L" ") + part;
  }
  return text;
}

// Whoever draws a dimension numbers its block anew; what it shows is told beside it.
bool counts(const cad::ValueChange& value) {
  if (value.property == Property::kDimBlock) return false;
  const bool isFile = value.property == Property::kFontFile || value.property == Property::kBigFontFile ||
                      value.property == Property::kTypeface;
  return !isFile || !base::equalFolded(value.before, value.after);
}

// Variables that refer to a record by its name.
bool isSameVariable(const cad::ValueChange& value) {
  constexpr std::string_view kNames[] = {"CLAYER",   "CELTYPE", "TEXTSTYLE", "DIMSTYLE",
                                         "CMLSTYLE", "UCSNAME", "PUCSNAME"};
  const cad::DimVariableInfo* info = cad::findDimVariable(value.name);
  const bool isName =
      info != nullptr ? info->isName() : std::ranges::find(kNames, value.name) != std::end(kNames);
  return isName && base::equalFolded(value.before, value.after);
}

HandMadeChange changeOf(const cad::RecordDifference& difference, const cad::ValueChange& value) {
  return {objectText(difference), base::fromUtf8(value.name), value.before, value.after};
}

std::vector<cad::RecordId> contentOf(const cad::Drawing& drawing, cad::RecordId block) {
  std::vector<cad::RecordId> content;
  std::ranges::copy_if(drawing.entitiesOf(block), std::back_inserter(content),
                       [&](cad::RecordId id) { return !drawing.record(id).erased(); });
  return content;
}

// Whatever handles their entities have.
bool holdSame(const cad::Drawing& one, cad::RecordId block, const cad::Drawing& other,
              cad::RecordId otherBlock) {
  const cad::RecordComparison comparison(one, other, false);
  return std::ranges::equal(
      contentOf(one, block), contentOf(other, otherBlock), [&](cad::RecordId a, cad::RecordId b) {
        return one.typeName(a) == other.typeName(b) &&
               std::ranges::all_of(comparison.changes(a, b),
                                   [](const cad::ValueChange& change) { return change.name == kOtherData; });
      });
}

}  // namespace

HandMadeChanges::HandMadeChanges(const cad::Drawing& before, const cad::Drawing& after,
                                 const cad::DrawingDifferences& differences)
    : after_(after), recordCount_(before.recordCount()) {
  takeNewBlocks(differences);
  addAll(differences);
}

void HandMadeChanges::takeNewBlocks(const cad::DrawingDifferences& differences) {
  for (const cad::RecordDifference& difference : differences.records) {
    const bool isBlock = difference.after != cad::kNoRecord &&
                         after_.record(difference.after).kind == cad::RecordKind::kBlockBegin;
    if (isBlock && difference.fate == RecordFate::kAdded) newBlocks_.insert(difference.after);
  }
}

// Entities of a block that came along with it, in the second drawing or by the conversion: the block counts
// as one.
bool HandMadeChanges::isOfNewBlock(const cad::RecordDifference& difference,
                                   const cad::Drawing& before) const {
  if (difference.after != cad::kNoRecord && newBlocks_.contains(after_.blockOf(difference.after)))
    return true;
  return difference.before != cad::kNoRecord && isMade(before.blockOf(difference.before));
}

void HandMadeChanges::add(Key key, const cad::RecordDifference& difference, std::wstring what) {
  changes_.insert({std::move(key), {objectText(difference), std::move(what), {}, {}}});
}

void HandMadeChanges::addAll(const cad::DrawingDifferences& differences) {
  for (const bool isEntity : {true, false}) {
    for (const cad::RecordDifference& difference : isEntity ? differences.entities : differences.records) {
      const Kind kind = isEntity ? Kind::kEntity : Kind::kRecord;
      const bool isAdded = difference.fate == RecordFate::kAdded;
      if (isEntity && isAdded && newBlocks_.contains(after_.blockOf(difference.after))) continue;
      if (isAdded)
        add({isEntity ? Kind::kNewEntity : Kind::kNewRecord, difference.after, {}}, difference, L"added");
      if (difference.fate == RecordFate::kRemoved) add({kind, difference.before, {}}, difference, L"removed");
      for (const cad::ValueChange& value : difference.changes)
        if (counts(value))
          changes_.insert({{kind, difference.before, value.name}, changeOf(difference, value)});
    }
  }
  for (const cad::ValueChange& value : differences.variables) {
    if (!isSameVariable(value))
      changes_.insert({{Kind::kVariable, cad::kNoRecord, value.name},
                       {{}, base::fromUtf8(value.name), value.before, value.after}});
  }
}

void HandMadeChanges::leave(Left& left, const Key& key, LeftChange change) const {
  const auto given = changes_.find(key);
  change.isByHand = given != changes_.end();
  if (change.isByHand) {
    // What the conversion made of it is told unless it left it alone.
    if (change.change.before != given->second.before) change.made = {{{}, change.change.before}};
    change.change = given->second;
  } else {
    std::swap(change.change.before, change.change.after);
  }
  left.insert({key, std::move(change)});
}

void HandMadeChanges::leaveRecord(Left& left, bool isEntity, const cad::RecordDifference& difference,
                                  const cad::Drawing& converted) const {
  if (isEntity && isOfNewBlock(difference, converted)) return;
  // The second drawing has no more than entities that name it.
  const bool isImplied = difference.after != cad::kNoRecord && after_.record(difference.after).implied();
  if (isImplied && isMade(difference.before)) return;
  const Kind kind = isEntity ? Kind::kEntity : Kind::kRecord;
  const Key whole{isEntity ? Kind::kNewEntity : Kind::kNewRecord, difference.after, {}};
  const LeftChange change{{objectText(difference), {}, {}, {}}, true, {}, difference.after};
  const auto named = [&](std::wstring what) {
    LeftChange made = change;
    made.change.what = std::move(what);
    return made;
  };
  if (difference.fate == RecordFate::kAdded) return leave(left, whole, named(L"added"));
  // What is in the converted drawing only is removed on the way to the second one.
  if (difference.fate == RecordFate::kRemoved) {
    const bool isMadeByRules = isMade(difference.before);
    return leave(left, {kind, difference.before, {}}, named(isMadeByRules ? L"added" : L"removed"));
  }
  for (const cad::ValueChange& value : difference.changes) {
    if (!counts(value) || (isMade(difference.before) && value.name == kOtherData)) continue;
    LeftChange one = change;
    one.change = changeOf(difference, value);
    if (!isMade(difference.before)) {
      leave(left, {kind, difference.before, value.name}, std::move(one));
      continue;
    }
    // Both have made the object, and not the same.
    const auto given = changes_.find(whole);
    const auto at = left.insert({whole, named(L"added")}).first;
    if (given != changes_.end()) at->second.change = given->second;
    at->second.made.push_back({one.change.what, value.before});
  }
}

void HandMadeChanges::leaveNewBlocks(Left& left, const cad::Drawing& converted) const {
  for (const cad::RecordId block : newBlocks_) {
    const Key key{Kind::kNewRecord, block, {}};
    const cad::RecordId made =
        converted.find(cad::Table::kBlock, after_.text(block, Property::kName).value_or(L""));
    if (left.contains(key) || made == cad::kNoRecord || holdSame(converted, made, after_, block)) continue;
    LeftChange change{changes_.at(key), true, {{L"entities that differ", {}}}, block};
    left.insert({key, std::move(change)});
  }
}

std::vector<LeftChange> HandMadeChanges::leftBy(const cad::Drawing& converted) const {
  const cad::DrawingDifferences differences = cad::compareDrawings(converted, after_);
  Left left;
  for (const cad::RecordDifference& difference : differences.entities)
    leaveRecord(left, true, difference, converted);
  for (const cad::RecordDifference& difference : differences.records)
    leaveRecord(left, false, difference, converted);
  leaveNewBlocks(left, converted);
  for (const cad::ValueChange& value : differences.variables) {
    if (isSameVariable(value)) continue;
    leave(left, {Kind::kVariable, cad::kNoRecord, value.name},
          {{{}, base::fromUtf8(value.name), value.before, value.after}, true, {}, cad::kNoRecord});
  }
  std::vector<LeftChange> all;
  for (auto& [key, change] : left) all.push_back(std::move(change));
  return all;
}

}  // namespace kivcli
