#include "cli/specifications/learned_drawing.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <unordered_set>

#include "base/codepage.h"
#include "base/fold.h"
#include "base/lineweights.h"
#include "base/numbers.h"
#include "embedded/drawing/current_space.h"
#include "embedded/drawing/plain_text.h"
#include "spec/item_kinds.h"

namespace kivcli {
namespace {

using cad::Property;

constexpr std::size_t kNotIn = static_cast<std::size_t>(-1);
constexpr const wchar_t* kUnset = L"<unset>";

// The columns of entities; pairs of columns for each dimension variable follow. What rules ask for most
// stands in front.
enum Column : std::size_t {
  kLayer,
  kLinetype,
  kColorSeen,
  kColor,
  kStyle,
  kHeight,
  kWidthFactor,
  kLineweight,
  kTransparency,
  kLinetypeScale,
  kAngle,
  kText,
  kVariables
};

using Use = RuleColumn::Use;

std::vector<const cad::DimVariableInfo*> offeredVariables() {
  std::vector<const cad::DimVariableInfo*> rows;
  for (const cad::DimVariableInfo& info : cad::kDimVariables)
    if (info.isOffered() && !info.isOfHeaderOnly()) rows.push_back(&info);
  return rows;
}

const std::vector<RuleColumn>& entityColumns() {
  static const std::vector<RuleColumn> columns = [] {
    std::vector<RuleColumn> all = {
        {kiv::kLayerKind, {}, Use::kBoth, true, false, true},
        {kiv::kLinetypeKind, {}, Use::kBoth, true, false, false},
        {kiv::kColorKind, {}, Use::kCondition, false, false, false},
        {kiv::kColorKind, {}, Use::kResult, false, false, false},
        {kiv::kFontKind, {}, Use::kBoth, true, false, false},
        {kiv::kTextHeightKind, {}, Use::kBoth, false, true, false},
        {kiv::kWidthFactorKind, {}, Use::kBoth, false, false, false},
        {kiv::kLineweightKind, {}, Use::kBoth, false, false, false},
        {kiv::kTransparencyKind, {}, Use::kBoth, false, false, false},
        {kiv::kLinetypeScaleKind, {}, Use::kBoth, false, false, false},
        {kiv::kTextAngleKind, {}, Use::kBoth, false, false, false},
        {kiv::kTextListKind, {}, Use::kCondition, false, false, false},
    };
    for (const cad::DimVariableInfo* info : offeredVariables()) {
      const std::wstring name = base::fromUtf8(info->name);
      all.push_back({kiv::kVariableKind, name, Use::kCondition, false, false, false});
      all.push_back({kiv::kVariableKind, name, Use::kResult, false, false, false});
    }
    return all;
  }();
  return columns;
}

const std::vector<RuleColumn>& layerColumns() {
  static const std::vector<RuleColumn> columns = [] {
    std::vector<RuleColumn> all = {{kiv::kLayerKind, {}, Use::kBoth, true, false, true}};
    for (const int kind : {kiv::kColorKind, kiv::kLinetypeKind, kiv::kVisibilityKind, kiv::kLockKind,
                           kiv::kFreezeKind, kiv::kPlotKind, kiv::kLineweightKind, kiv::kTransparencyKind}) {
      all.push_back({kind, {}, Use::kBoth, kind == kiv::kLinetypeKind, false, false});
    }
    return all;
  }();
  return columns;
}

std::wstring colorValue(std::int64_t index) {
  if (index == 0) return L"BYBLOCK";
  return index == 256 ? L"BYLAYER" : std::to_wstring(index);
}

std::wstring lineweightValue(std::int64_t hundredths) {
  for (const base::Lineweight& weight : base::lineweights())
    if (weight.hundredths == hundredths) return base::upper(weight.text);
  return L"<" + std::to_wstring(hundredths) + L">";
}

std::wstring transparencyValue(std::int64_t stored) {
  if (stored == 0) return L"BYLAYER";
  if (stored == 0x01000000) return L"BYBLOCK";
  const auto alpha = static_cast<double>(stored & 0xFF);
  return std::to_wstring(std::lround((1.0 - alpha / 255.0) * 100.0));
}

std::wstring onOff(bool on) { return on ? L"ON" : L"OFF"; }

bool isOneOf(std::string_view type, std::initializer_list<std::string_view> types) {
  return std::ranges::find(types, type) != types.end();
}

constexpr unsigned bit(int section) { return 1U << section; }
constexpr unsigned kAllSections =
    bit(kiv::kTextSection) | bit(kiv::kDimensionSection) | bit(kiv::kHatchSection) | bit(kiv::kOtherSection);

int homeOf(std::string_view type) {
  if (isOneOf(type, {"TEXT", "MTEXT", "ATTDEF"})) return kiv::kTextSection;
  if (isOneOf(type, {"DIMENSION", "LEADER"})) return kiv::kDimensionSection;
  return type == "HATCH" ? kiv::kHatchSection : kiv::kOtherSection;
}

}  // namespace

std::wstring variableValue(const cad::DimVariableInfo& info, const cad::Variable& value) {
  std::wstring text;
  if (const auto* integer = std::get_if<std::int64_t>(&value)) {
    const bool isCharacter = info.type == base::DimType::kCharacter;
    text = isCharacter ? std::wstring(1, static_cast<wchar_t>(*integer)) : std::to_wstring(*integer);
  } else if (const auto* real = std::get_if<double>(&value)) {
    text = base::numberText(*real);
    const bool isCut = info.offer == base::DimOffer::kAsInteger && *real != std::trunc(*real);
    if (isCut) return L"<" + text + L">";
  } else {
    text = std::get<std::wstring>(value);
    if (info.type == base::DimType::kArrow && text.empty()) text = L".";
  }
  // Files are read in upper case, which texts that are drawn do not bear.
  const std::wstring folded = base::upper(text);
  return info.isName() && info.type != base::DimType::kText ? folded
         : folded == text                                   ? text
                                                            : L"<" + text + L">";
}

std::vector<std::wstring> layerFields(const cad::Drawing& drawing, cad::RecordId layer) {
  const auto integer = [&](Property property) {
    return drawing.integer(layer, property)
        .value_or(static_cast<std::int64_t>(cad::propertyInfo(property).defaultValue));
  };
  const std::int64_t color = integer(Property::kLayerColor), flags = integer(Property::kStandardFlags);
  const cad::NameId name = drawing.recordName(layer),
                    linetype = drawing.name(layer, Property::kLayerLinetype);
  const std::wstring transparency = transparencyValue(integer(Property::kTransparency));
  const std::int64_t lineweight = drawing.integer(layer, Property::kLineWeight).value_or(-3);  // the default
  // What entities can have, and layers cannot.
  const auto ofLayer = [](const std::wstring& value) {
    return value.starts_with(L"BY") ? L"<" + value + L">" : value;
  };
  return {name == cad::kNoName ? L"" : drawing.names().folded(name),
          ofLayer(colorValue(std::abs(color))),
          linetype == cad::kNoName ? L"CONTINUOUS" : drawing.names().folded(linetype),
          onOff(color >= 0),
          onOff((flags & cad::LayerFlag::kLocked) != 0),
          onOff((flags & cad::LayerFlag::kFrozen) != 0),
          onOff(integer(Property::kLayerPlottable) != 0),
          ofLayer(lineweightValue(lineweight)),
          transparency == L"BYLAYER" ? L"0" : ofLayer(transparency)};
}

LearnedDrawing::LearnedDrawing(const cad::Drawing& before, const cad::Drawing& after,
                               const cad::DrawingDifferences& differences)
    : before_(before), after_(after), space_(cad::currentSpace(before)) {
  pairUp(differences);
  for (const Pair& pair : pairs_) {
    Entity entity;
    entity.isLeader = before_.typeName(pair.before) == "LEADER";
    entity.home = homeOf(before_.typeName(pair.before));
    readValues(pair, entity);
    original_.push_back(std::move(entity));
  }
  for (const cad::RecordDifference& difference : differences.entities) {
    if (difference.fate != cad::RecordFate::kChanged) continue;
    if (before_.record(difference.before).kind != cad::RecordKind::kEntity) continue;
    needsDefinitions_ |= !before_.isLayoutSpace(before_.blockOf(difference.before));
    needsLocks_ |= isLockedInTheEnd(difference.before);
    hasLeaders_ |= before_.typeName(difference.before) == "LEADER";
  }
}

int LearnedDrawing::number(const std::wstring& value) {
  const auto [at, isNew] = numbers_.emplace(value, static_cast<int>(values_.size()));
  if (isNew) values_.push_back(value);
  return at->second;
}

void LearnedDrawing::pairUp(const cad::DrawingDifferences& differences) {
  std::unordered_map<cad::RecordId, cad::RecordId> changed, records;
  std::unordered_set<cad::RecordId> removed, paired;
  for (const cad::RecordDifference& difference : differences.entities) {
    if (difference.fate == cad::RecordFate::kChanged) changed.emplace(difference.before, difference.after);
    if (difference.fate == cad::RecordFate::kRemoved) removed.insert(difference.before);
  }
  for (const cad::RecordDifference& difference : differences.records) {
    if (difference.fate == cad::RecordFate::kChanged) records.emplace(difference.before, difference.after);
    if (difference.fate == cad::RecordFate::kRemoved) removed.insert(difference.before);
  }
  for (const cad::RecordId layer : before_.tableRecords(cad::Table::kLayer)) {
    if (removed.contains(layer)) continue;
    const auto other = records.find(layer);
    const cad::RecordId after = other != records.end()
                                    ? other->second
                                    : after_.find(cad::Table::kLayer, layerFields(before_, layer)[0]);
    if (after == cad::kNoRecord) continue;
    paired.insert(after);
    layerPairs_.push_back({layer, after});
    renamedLayers_[layerFields(before_, layer)[0]] = layerFields(after_, after)[0];
  }
  for (const cad::RecordId layer : after_.tableRecords(cad::Table::kLayer))
    if (!paired.contains(layer)) layerPairs_.push_back({cad::kNoRecord, layer});
  for (const cad::RecordId block : before_.tableRecords(cad::Table::kBlock)) {
    for (const cad::RecordId entity : before_.entitiesOf(block)) {
      if (before_.record(entity).erased() || removed.contains(entity)) continue;
      const auto other = changed.find(entity);
      pairs_.push_back({entity, other != changed.end() ? other->second : cad::kNoRecord});
    }
  }
}

void LearnedDrawing::readValues(const Pair& pair, Entity& entity) {
  readSide(before_, pair.before, false, entity.before);
  if (pair.after == cad::kNoRecord) {
    entity.after = entity.before;
    return;
  }
  readSide(after_, pair.after, true, entity.after);
  entity.after[kText] = entity.before[kText];
  entity.after[kColorSeen] = entity.before[kColorSeen];
  // A dimension's style is a variable of its own.
  if (entity.home == kiv::kDimensionSection) entity.after[kStyle] = entity.before[kStyle];
  entity.after.resize(entity.before.size(), RuleObject::kHasNone);
  for (std::size_t c = 0; c < entity.before.size(); ++c) {
    // What only one of both has, no rule writes; what a condition alone sees, none either.
    if (entity.after[c] == RuleObject::kHasNone || !entityColumns()[c].canWrite())
      entity.after[c] = entity.before[c];
  }
}

void LearnedDrawing::readSide(const cad::Drawing& drawing, cad::RecordId id, bool isAfter,
                              std::vector<int>& values) {
  const std::string_view type = drawing.typeName(id);
  // Only dimensions have so much.
  values.assign(type == "DIMENSION" ? entityColumns().size() : kVariables, RuleObject::kHasNone);
  const auto name = [&](Property property) -> std::wstring {
    const cad::NameId named = drawing.name(id, property);
    return named == cad::kNoName ? std::wstring() : drawing.names().folded(named);
  };
  std::wstring layer = name(Property::kLayer);
  // Layers are renamed before any entity is looked at.
  if (const auto renamed = renamedLayers_.find(layer); !isAfter && renamed != renamedLayers_.end())
    layer = renamed->second;
  values[kLayer] = number(layer);
  values[kLinetype] = number(name(Property::kLinetype));
  const cad::EntityLooks looks = drawing.looks(id);
  const std::wstring color = colorValue(drawing.signature(drawing.record(id).signature).color);
  values[kColorSeen] = number(color);
  values[kColor] = looks.trueColor ? number(L"<" + std::to_wstring(*looks.trueColor) + L">") : number(color);
  values[kLineweight] = number(lineweightValue(looks.lineWeight));
  values[kTransparency] = number(transparencyValue(looks.transparency));
  values[kLinetypeScale] = number(base::numberText(drawing.real(id, Property::kLinetypeScale).value_or(1)));
  if (isOneOf(type, {"DIMENSION", "LEADER"})) {
    cad::DimVariables all = cad::DimVariables::ofStyle(drawing, drawing.reference(id, Property::kDimStyle));
    all.takeOwn(drawing, drawing.record(id));
    values[kStyle] = number(base::upper(all.text(cad::dimRow("DIMTXSTY"))));
    if (type == "LEADER") return;
    values[kAngle] = number(base::numberText(drawing.real(id, Property::kTextRotation).value_or(0)));
    readVariables(drawing, id, all, values);
  }
  if (!isOneOf(type, {"TEXT", "MTEXT", "ATTDEF"})) return;
  values[kStyle] = number(name(Property::kTextStyle));
  const auto real = [&](Property property, double otherwise) {
    return number(base::numberText(drawing.real(id, property).value_or(otherwise)));
  };
  values[kHeight] = real(Property::kTextHeight, 0);
  values[kAngle] = real(Property::kRotation, 0);
  if (type != "MTEXT") values[kWidthFactor] = real(Property::kWidthFactor, 1);
  const std::wstring text = drawing.text(id, Property::kTextString).value_or(L"");
  values[kText] = number(type == "MTEXT" ? cad::plainText(text) : text);
}

// What conditions see is what holds; what results write is the dimension's own.
void LearnedDrawing::readVariables(const cad::Drawing& drawing, cad::RecordId id,
                                   const cad::DimVariables& all, std::vector<int>& values) {
  std::size_t column = kVariables;
  for (const cad::DimVariableInfo* info : offeredVariables()) {
    values[column++] = number(variableValue(*info, all.value(*info)));
    values[column++] = number(kUnset);
  }
  for (const cad::DimValue& own : drawing.dimVariables(drawing.record(id))) {
    column = kVariables + 1;
    for (const cad::DimVariableInfo* info : offeredVariables()) {
      if (info->row == own.variable->row) values[column] = number(variableValue(*info, own.value));
      column += 2;
    }
  }
}

void LearnedDrawing::reachFrom(cad::RecordId block, std::map<cad::RecordId, bool>& reached) const {
  for (const cad::RecordId entity : before_.entitiesOf(block)) {
    if (before_.record(entity).erased() || before_.typeName(entity) != "INSERT") continue;
    const cad::RecordId definition = before_.reference(entity, Property::kBlockName);
    if (definition != cad::kNoRecord && reached.emplace(definition, true).second)
      reachFrom(definition, reached);
  }
}

bool LearnedDrawing::isLockedInTheEnd(cad::RecordId entity) const {
  const std::wstring& layer = before_.names().folded(before_.name(entity, Property::kLayer));
  const auto renamed = renamedLayers_.find(layer);
  const cad::RecordId record =
      renamed == renamedLayers_.end() ? cad::kNoRecord : after_.find(cad::Table::kLayer, renamed->second);
  return record != cad::kNoRecord && layerFields(after_, record)[4] == L"ON";
}

unsigned LearnedDrawing::sectionsOf(cad::RecordId entity, const LearnedScope& scope,
                                    const std::map<cad::RecordId, bool>& definitions) const {
  if (!scope.ignoresLocks && isLockedInTheEnd(entity)) return 0;
  const cad::RecordId block = before_.blockOf(entity);
  const std::string_view type = before_.typeName(entity);
  const bool isCurrent = block == space_;
  if (!before_.isLayoutSpace(block)) {
    const bool isReached = scope.blockScope != 0 && type != "INSERT" && definitions.contains(block);
    return isReached ? kAllSections : 0;
  }
  if (type == "INSERT") return isCurrent && scope.blockScope != 1 ? kAllSections : 0;
  return bit(homeOf(type)) | (type == "LEADER" ? bit(kiv::kOtherSection) : 0U);
}

void LearnedDrawing::begin(const LearnedScope& scope) {
  entities_ = original_;
  std::map<cad::RecordId, bool> definitions;
  if (scope.blockScope != 0) reachFrom(space_, definitions);
  for (std::size_t i = 0; i < pairs_.size(); ++i) {
    entities_[i].sections = sectionsOf(pairs_[i].before, scope, definitions);
    if (entities_[i].isLeader && scope.leadersAreOthers) entities_[i].home = kiv::kOtherSection;
  }
}

RuleTable LearnedDrawing::entities(int section) {
  RuleTable table;
  table.values = values_;
  table.textColumn = kText;
  members_.assign(entities_.size(), kNotIn);
  std::map<std::tuple<std::vector<int>, std::vector<int>, bool>, std::size_t> known;
  for (std::size_t i = 0; i < entities_.size(); ++i) {
    const Entity& entity = entities_[i];
    if ((entity.sections & bit(section)) == 0) continue;
    // A reference, which all sections reach, may have got all that it needs from an earlier one.
    const bool isDone = entity.sections == kAllSections && entity.before == entity.after;
    const bool isHome = entity.home == section && !isDone;
    const auto [at, isNew] =
        known.emplace(std::tuple(entity.before, entity.after, isHome), table.objects.size());
    if (isNew) table.objects.push_back({entity.before, entity.after, 0, isHome});
    ++table.objects[at->second].count;
    members_[i] = at->second;
  }
  std::size_t columns = kVariables;
  for (const RuleObject& object : table.objects) columns = std::max(columns, object.before.size());
  table.columns.assign(entityColumns().begin(),
                       entityColumns().begin() + static_cast<std::ptrdiff_t>(columns));
  for (RuleObject& object : table.objects) {
    object.before.resize(columns, RuleObject::kHasNone);
    object.after.resize(columns, RuleObject::kHasNone);
  }
  return table;
}

void LearnedDrawing::take(const RuleTable& table) {
  for (std::size_t i = values_.size(); i < table.values.size(); ++i) number(table.values[i]);
  for (std::size_t i = 0; i < entities_.size(); ++i)
    if (members_[i] != kNotIn) {
      const std::vector<int>& values = table.objects[members_[i]].before;
      std::copy_n(values.begin(), entities_[i].before.size(), entities_[i].before.begin());
    }
}

RuleTable LearnedDrawing::layers() const {
  RuleTable table;
  table.columns = layerColumns();
  table.seesBefore = true;
  std::unordered_map<std::wstring, int> numbers;
  const auto numbered = [&](const std::vector<std::wstring>& fields) {
    std::vector<int> row;
    for (const std::wstring& field : fields) {
      const auto [at, isNew] = numbers.emplace(field, static_cast<int>(table.values.size()));
      if (isNew) table.values.push_back(field);
      row.push_back(at->second);
    }
    return row;
  };
  for (const Pair& pair : layerPairs_) {
    const std::vector<int> after = numbered(layerFields(after_, pair.after));
    const bool isThere = pair.before != cad::kNoRecord;
    table.objects.push_back(
        {isThere ? numbered(layerFields(before_, pair.before)) : after, after, 1, isThere});
  }
  return table;
}

}  // namespace kivcli
