#include "embedded/drawing/drawing_diff.h"

#include <algorithm>
#include <map>
#include <span>
#include <unordered_map>
#include <unordered_set>

#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/handle_text.h"
#include "embedded/drawing/record_diff.h"

namespace cad {
namespace {

constexpr Table kTables[] = {Table::kLayer,    Table::kLinetype, Table::kTextStyle,
                             Table::kDimStyle, Table::kBlock,    Table::kAppId,
                             Table::kView,     Table::kUcs,      Table::kViewport};

std::wstring nameOf(const Drawing& drawing, RecordId id) {
  const NameId name = drawing.recordName(id);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

// "*D12": what a dimension shows.
bool isPictureName(const std::wstring& name) {
  return name.size() > 2 && name[0] == L'*' && (name[1] == L'D' || name[1] == L'd') && name[2] >= L'0' &&
         name[2] <= L'9';
}

// With and without the underscore before the name of an arrow's block.
bool nameSameArrow(std::string_view variable, std::wstring_view left, std::wstring_view right) {
  const DimVariableInfo* info = findDimVariable(variable);
  if (info == nullptr || info->type != DimType::kArrow) return false;
  for (std::wstring_view* name : {&left, &right})
    if (name->starts_with(L'_')) name->remove_prefix(1);
  return base::equalFolded(left, right);
}

// What counts or dates every saving.
bool isBookkeeping(std::string_view variable) {
  constexpr std::string_view kNames[] = {"HANDSEED",   "TDUPDATE",    "TDUUPDATE",      "TDINDWG",
                                         "TDUSRTIMER", "VERSIONGUID", "FINGERPRINTGUID"};
  return std::ranges::find(kNames, variable) != std::end(kNames);
}

class Comparing {
 public:
  Comparing(const Drawing& before, const Drawing& after)
      : before_(before),
        after_(after),
        byHandle_(haveHandles(before) && haveHandles(after)),
        records_(before, after, byHandle_) {
    result_.pairedByOrder = !byHandle_;
  }

  DrawingDifferences run() {
    for (const Table table : kTables) compareTable(table);
    compareBlockEntries();
    compareEntities();
    if (before_.format() == after_.format() && byHandle_) compareObjects();
    if (before_.format() == after_.format()) compareOthers();
    compareVariables();
    return std::move(result_);
  }

 private:
  struct Pair {
    RecordId before = kNoRecord, after = kNoRecord;
  };

  static bool haveHandles(const Drawing& drawing) {
    for (RecordId id = 0; id < drawing.recordCount(); ++id) {
      const Record& record = drawing.record(id);
      if (record.kind == RecordKind::kEntity && !record.erased() && !drawing.handle(id)) return false;
    }
    return true;
  }

  // --- Telling ------------------------------------------------------------------------------------------

  RecordDifference describe(const Pair& pair) const {
    const bool isThere = pair.before != kNoRecord;
    const Drawing& drawing = isThere ? before_ : after_;
    const RecordId id = isThere ? pair.before : pair.after;
    const Record& record = drawing.record(id);
    RecordDifference difference;
    difference.fate = !isThere                  ? RecordFate::kAdded
                      : pair.after == kNoRecord ? RecordFate::kRemoved
                                                : RecordFate::kChanged;
    difference.before = pair.before, difference.after = pair.after;
    if (!record.implied())
      if (const auto handle = drawing.handle(id).value_or(0); handle != 0)
        difference.handle = handleText(handle);
    difference.type = drawing.typeName(id);
    if (record.kind != RecordKind::kEntity && record.kind != RecordKind::kObject)
      difference.name = nameOf(drawing, id);
    if (record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity) {
      difference.layer = drawing.text(id, Property::kLayer).value_or(L"0");
      difference.block = nameOf(drawing, drawing.blockOf(id));
    }
    return difference;
  }

  void tell(std::vector<RecordDifference>& list, const Pair& pair, std::vector<ValueChange> changes = {}) {
    if (pair.before != kNoRecord && pair.after != kNoRecord && changes.empty()) return;
    list.push_back(describe(pair));
    list.back().changes = std::move(changes);
  }

  // --- Tables -------------------------------------------------------------------------------------------

  // kNoRecord: the other drawing has none, or it has found its partner already.
  RecordId partnerOf(RecordId id, Table table) {
    const RecordId named = after_.find(table, nameOf(before_, id));
    if (named != kNoRecord && taken_.insert(named).second) return named;
    return kNoRecord;
  }
  RecordId partnerByHandle(RecordId id, Table table) {
    const auto handle = before_.record(id).implied() ? std::nullopt : before_.handle(id);
    if (!byHandle_ || !handle) return kNoRecord;
    const RecordId found = after_.findHandle(*handle);
    const bool fits = found != kNoRecord && after_.record(found).table == table &&
                      after_.record(found).kind == before_.record(id).kind && !after_.record(found).erased();
    return fits && taken_.insert(found).second ? found : kNoRecord;
  }

  // The files of shapes have no names, and damaged tables names that stand twice.
  void pairNamesakes(std::vector<Pair>& pairs, Table table) {
    for (Pair& pair : pairs) {
      if (pair.after != kNoRecord) continue;
      const std::wstring name = nameOf(before_, pair.before);
      for (const RecordId id : after_.tableRecords(table)) {
        if (taken_.contains(id) || !base::equalFolded(name, nameOf(after_, id))) continue;
        taken_.insert(id);
        pair.after = id;
        break;
      }
    }
  }

  void compareTable(Table table) {
    std::vector<Pair> pairs;
    for (const RecordId id : before_.tableRecords(table)) pairs.push_back({id, partnerOf(id, table)});
    for (Pair& pair : pairs)
      if (pair.after == kNoRecord) pair.after = partnerByHandle(pair.before, table);
    pairNamesakes(pairs, table);
    for (const RecordId id : after_.tableRecords(table))
      if (!taken_.contains(id)) pairs.push_back({kNoRecord, id});
    for (const Pair& pair : pairs) compareRecord(pair, table);
  }

  void compareRecord(const Pair& pair, Table table) {
    if (table == Table::kBlock && pair.before != kNoRecord) blocks_[pair.before] = pair.after;
    const Drawing& drawing = pair.before != kNoRecord ? before_ : after_;
    const RecordId id = pair.before != kNoRecord ? pair.before : pair.after;
    if (pair.before != kNoRecord && pair.after != kNoRecord) {
      tell(result_.records, pair, records_.changes(pair.before, pair.after));
    } else if (!drawing.record(id).implied() &&
               !(table == Table::kBlock && isPictureName(nameOf(drawing, id)))) {
      tell(result_.records, pair);
    }
  }

  // A block's entry in its table comes and goes with the block.
  void compareBlockEntries() {
    for (const RecordId id : before_.tableRecords(Table::kBlockRecord)) {
      const RecordId other = partnerOf(id, Table::kBlockRecord);
      if (other != kNoRecord) tell(result_.records, {id, other}, records_.changes(id, other));
    }
  }

  // --- Entities -----------------------------------------------------------------------------------------

  static std::vector<RecordId> contentOf(const Drawing& drawing, RecordId block) {
    return live(drawing, drawing.entitiesOf(block));
  }

  // Programs that make the same block give its entities handles in an order of their own.
  bool pairDefinition(RecordId block, const std::vector<RecordId>& content) {
    const RecordId other = blocks_[block];
    if (other == kNoRecord || before_.isLayoutSpace(block)) return false;
    const std::vector<RecordId> others = contentOf(after_, other);
    const RecordComparison free(before_, after_, false);
    const bool isSame = std::ranges::equal(content, others, [&](RecordId one, RecordId two) {
      return before_.subRecordsOf(one).empty() && after_.subRecordsOf(two).empty() &&
             before_.typeName(one) == after_.typeName(two) && !before_.typeName(one).ends_with("DIMENSION") &&
             free.changes(one, two).empty();
    });
    if (isSame) taken_.insert(others.begin(), others.end());
    return isSame;
  }

  void compareEntities() {
    std::unordered_set<RecordId> same;  // blocks
    for (const RecordId block : before_.tableRecords(Table::kBlock))
      if (byHandle_ && !isPictureName(nameOf(before_, block)) &&
          pairDefinition(block, contentOf(before_, block)))
        same.insert(block);
    for (const RecordId block : before_.tableRecords(Table::kBlock)) {
      if (isPictureName(nameOf(before_, block)) || same.contains(block)) continue;
      const std::vector<RecordId> content = contentOf(before_, block);
      if (byHandle_) {
        for (const RecordId id : content) compareEntity({id, partnerOfEntity(id)});
      } else {
        compareByOrder(content, block);
      }
    }
    for (const RecordId block : after_.tableRecords(Table::kBlock)) {
      if (isPictureName(nameOf(after_, block))) continue;
      for (const RecordId id : contentOf(after_, block))
        if (!taken_.contains(id)) compareEntity({kNoRecord, id});
    }
  }

  RecordId partnerOfEntity(RecordId id) {
    const RecordId found = after_.findHandle(*before_.handle(id));
    if (found == kNoRecord) return kNoRecord;
    const Record& record = after_.record(found);
    const bool fits = record.kind == RecordKind::kEntity && !record.erased() &&
                      after_.typeName(found) == before_.typeName(id) &&
                      !isPictureName(nameOf(after_, after_.blockOf(found)));
    return fits && taken_.insert(found).second ? found : kNoRecord;
  }

  // What is the same at both ends of a block stays out of it; between, the entities of one type are paired in
  // their order.
  void compareByOrder(const std::vector<RecordId>& content, RecordId block) {
    const RecordId other = blocks_[block];
    std::vector<RecordId> others;
    if (other != kNoRecord) others = contentOf(after_, other);
    std::size_t begin = 0, end = content.size(), othersEnd = others.size();
    while (begin < end && begin < othersEnd && records_.holdSame(content[begin], others[begin]))
      taken_.insert(others[begin++]);
    while (begin < end && begin < othersEnd && records_.holdSame(content[end - 1], others[othersEnd - 1]))
      --end, taken_.insert(others[--othersEnd]);
    std::map<std::string_view, std::vector<RecordId>> byType;
    for (std::size_t i = othersEnd; i > begin; --i)
      byType[after_.typeName(others[i - 1])].push_back(others[i - 1]);
    for (std::size_t i = begin; i < end; ++i) {
      std::vector<RecordId>& waiting = byType[before_.typeName(content[i])];
      const RecordId partner = waiting.empty() ? kNoRecord : waiting.back();
      if (partner != kNoRecord) waiting.pop_back(), taken_.insert(partner);
      compareEntity({content[i], partner});
    }
  }

  void compareEntity(const Pair& pair) {
    if (pair.before == kNoRecord || pair.after == kNoRecord) {
      tell(result_.entities, pair);
      return;
    }
    std::vector<ValueChange> changes = records_.changes(pair.before, pair.after);
    addPlace(pair, changes);
    if (before_.typeName(pair.before).ends_with("DIMENSION") && !records_.showSame(pair.before, pair.after))
      changes.push_back({"picture", Property::kCount, L"", L""});
    tell(result_.entities, pair, std::move(changes));
    compareParts(before_.subRecordsOf(pair.before), after_.subRecordsOf(pair.after));
  }

  void addPlace(const Pair& pair, std::vector<ValueChange>& changes) {
    const RecordId block = before_.blockOf(pair.before), other = after_.blockOf(pair.after);
    if (const auto known = blocks_.find(block); known != blocks_.end() && known->second == other) return;
    changes.push_back({"stands in", Property::kCount, nameOf(before_, block), nameOf(after_, other)});
  }

  void compareParts(std::span<const RecordId> parts, std::span<const RecordId> others) {
    const std::vector<RecordId> left = live(before_, parts), right = live(after_, others);
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
      const Pair pair{i < left.size() ? left[i] : kNoRecord, i < right.size() ? right[i] : kNoRecord};
      const bool both = pair.before != kNoRecord && pair.after != kNoRecord;
      tell(result_.entities, pair,
           both ? records_.changes(pair.before, pair.after) : std::vector<ValueChange>());
    }
  }

  static std::vector<RecordId> live(const Drawing& drawing, std::span<const RecordId> ids) {
    std::vector<RecordId> found;
    for (const RecordId id : ids)
      if (!drawing.record(id).erased()) found.push_back(id);
    return found;
  }

  // --- The rest -----------------------------------------------------------------------------------------

  static bool isObject(const Drawing& drawing, RecordId id) {
    const Record& record = drawing.record(id);
    return record.kind == RecordKind::kObject && !record.erased() && drawing.handle(id);
  }

  void compareObjects() {
    std::unordered_set<RecordId> met;
    for (RecordId id = 0; id < before_.recordCount(); ++id) {
      if (!isObject(before_, id)) continue;
      RecordId other = after_.findHandle(*before_.handle(id));
      if (other != kNoRecord && !isObject(after_, other)) other = kNoRecord;
      if (other != kNoRecord) met.insert(other);
      tell(result_.objects, {id, other},
           other == kNoRecord ? std::vector<ValueChange>() : records_.changes(id, other));
    }
    for (RecordId id = 0; id < after_.recordCount(); ++id)
      if (isObject(after_, id) && !met.contains(id)) tell(result_.objects, {kNoRecord, id});
  }

  using ByType = std::map<std::string_view, std::vector<RecordId>>;
  static ByType othersOf(const Drawing& drawing) {
    ByType found;
    for (RecordId id = 0; id < drawing.recordCount(); ++id) {
      const Record& record = drawing.record(id);
      if (record.kind == RecordKind::kOther && !record.erased()) found[drawing.typeName(id)].push_back(id);
    }
    return found;
  }

  // Of each type, what is the same at both ends stays out of it; the rest is paired in its order.
  void compareOthers() {
    ByType left = othersOf(before_), right = othersOf(after_);
    for (const auto& [type, ids] : right) left[type];
    for (auto& [type, ids] : left) {
      std::vector<RecordId>& others = right[type];
      const std::size_t same = sameAtBothEnds(ids, others);
      for (std::size_t i = same; i < std::max(ids.size(), others.size()); ++i) {
        const Pair pair{i < ids.size() ? ids[i] : kNoRecord, i < others.size() ? others[i] : kNoRecord};
        const bool both = pair.before != kNoRecord && pair.after != kNoRecord;
        tell(result_.objects, pair,
             both ? records_.changes(pair.before, pair.after) : std::vector<ValueChange>());
      }
    }
  }

  // How many are the same at the beginning; those that are at the end are taken away.
  std::size_t sameAtBothEnds(std::vector<RecordId>& ids, std::vector<RecordId>& others) const {
    std::size_t begin = 0;
    const auto holdSame = [&](RecordId one, RecordId other) { return records_.changes(one, other).empty(); };
    while (begin < ids.size() && begin < others.size() && holdSame(ids[begin], others[begin])) ++begin;
    while (begin < ids.size() && begin < others.size() && holdSame(ids.back(), others.back()))
      ids.pop_back(), others.pop_back();
    return begin;
  }

  void compareVariables() {
    const std::vector<HeaderValue> was = before_.storage().headerVariables(before_);
    std::unordered_map<std::string, std::wstring> is;
    std::vector<std::string> order;
    for (HeaderValue& value : after_.storage().headerVariables(after_)) {
      order.push_back(value.name);
      is[value.name] = std::move(value.text);
    }
    // Formats do not hold the same variables.
    const bool ofOneFormat = before_.format() == after_.format();
    const auto add = [&](const std::string& name, const std::wstring& left, const std::wstring& right) {
      const bool same = ofOneFormat ? left == right : base::equalFolded(left, right);
      if (!same && !isBookkeeping(name) && !nameSameArrow(name, left, right) &&
          (ofOneFormat || (!left.empty() && !right.empty())))
        result_.variables.push_back({name, Property::kCount, left, right});
    };
    for (const HeaderValue& value : was) {
      const auto found = is.find(value.name);
      add(value.name, value.text, found == is.end() ? std::wstring() : found->second);
      if (found != is.end()) is.erase(found);
    }
    for (const std::string& name : order)
      if (const auto left = is.find(name); left != is.end()) add(name, {}, left->second);
  }

  const Drawing& before_;
  const Drawing& after_;
  bool byHandle_;
  RecordComparison records_;
  std::unordered_set<RecordId> taken_;             // of `after`
  std::unordered_map<RecordId, RecordId> blocks_;  // of `before`, and what they became
  DrawingDifferences result_;
};

}  // namespace

DrawingDifferences compareDrawings(const Drawing& before, const Drawing& after) {
  return Comparing(before, after).run();
}

}  // namespace cad
