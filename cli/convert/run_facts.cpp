#include "cli/convert/run_facts.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/codepage.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/value_texts.h"
#include "embedded/objects/database_access.h"

namespace kivcli {
namespace {

using cad::Property;

// The keys of conditions on entities, and where an entity has what they ask.
struct AskedProperty {
  std::wstring_view key;
  Property property;
  const char* variable;  // of dimensions: a dimension variable in its place
  Property ofDimension = Property::kCount;
};
constexpr AskedProperty kAsked[] = {
    {L"画層", Property::kLayer, nullptr},
    {L"線種", Property::kLinetype, nullptr},
    {L"色", Property::kColorIndex, nullptr},
    {L"字体", Property::kTextStyle, "DIMTXSTY"},
    {L"文字高さ", Property::kTextHeight, "DIMTXT"},
    {L"文字角度", Property::kRotation, nullptr, Property::kTextRotation},
    {L"文字幅高比", Property::kWidthFactor, nullptr},
    {L"文字一致のリスト", Property::kTextString, nullptr, Property::kDimText},
    {L"線幅値", Property::kLineWeight, nullptr},
    {L"透過性", Property::kTransparency, nullptr},
    {L"線種尺度", Property::kLinetypeScale, nullptr},
};

std::wstring variableOf(const cad::Drawing& drawing, cad::RecordId id, std::string_view name) {
  const cad::DimVariableInfo* info = cad::findDimVariable(name);
  if (info == nullptr || !drawing.canHold(id, Property::kDimStyle)) return {};
  cad::DimVariables variables =
      cad::DimVariables::ofStyle(drawing, drawing.reference(id, Property::kDimStyle));
  variables.takeOwn(drawing, drawing.record(id));
  return cad::variableText(variables.value(*info));
}

// What the entity has where a condition asks; empty: it has none of it.
std::wstring valueFor(const cad::Drawing& drawing, cad::RecordId id, std::wstring_view condition) {
  const std::wstring_view key = condition.substr(0, condition.find_first_of(L"<="));
  const bool isDimension = drawing.canHold(id, Property::kDimStyle);
  const auto* row = std::ranges::find(kAsked, key, &AskedProperty::key);
  if (row == std::end(kAsked)) return variableOf(drawing, id, base::toUtf8(key));
  if (isDimension && row->variable != nullptr) return variableOf(drawing, id, row->variable);
  const bool isOther = isDimension && row->ofDimension != Property::kCount;
  return cad::propertyText(drawing, id, isOther ? row->ofDimension : row->property);
}

}  // namespace

RunFacts::RunFacts(Session& session, bool withTests) : session_(session) {
  KivRunObserver observer{};
  observer.context = this;
  observer.settingBegins = [](void* self, const KivObservedSetting* setting) {
    static_cast<RunFacts*>(self)->settingBegins(*setting);
  };
  if (withTests) {
    observer.objectTested = [](void* self, const KivObservedObject* object, const unsigned char* passes,
                               int failed) {
      static_cast<RunFacts*>(self)->objectTested(*object, passes, failed);
    };
  }
  observer.objectHit = [](void* self, const KivObservedObject* object, int hit) {
    static_cast<RunFacts*>(self)->objectHit(*object, hit);
  };
  observer.resultBegins = [](void* self, int) { static_cast<RunFacts*>(self)->resultBegins(); };
  observer.resultEnds = [](void* self, int result, int isRefused) {
    static_cast<RunFacts*>(self)->resultEnds(result, isRefused != 0);
  };
  observer.settingEnds = [](void*) {};
  session_.observeRuns(&observer);
}

RunFacts::~RunFacts() { session_.observeRuns(nullptr); }

void RunFacts::begin(cad::Handle traced) {
  settings_.clear();
  trace_.clear();
  traced_ = cad::kNoRecord;
  tracedId_ = layerId_ = 0;
  if (traced == 0) return;
  const cad::Drawing& drawing = session_.host().currentDrawing();
  traced_ = drawing.findHandle(traced);
  if (traced_ == cad::kNoRecord) return;
  const auto idOf = [&](cad::RecordId id) { return cad::idOf(*cad::databaseOf(drawing), id).asOldId(); };
  tracedId_ = idOf(traced_);
  layer_ = drawing.find(cad::Table::kLayer, cad::propertyText(drawing, traced_, Property::kLayer));
  if (layer_ != cad::kNoRecord) layerId_ = idOf(layer_);
}

bool RunFacts::isOfLayers() const {
  constexpr int kLayerSettings = 6;
  return settings_.back().section == kLayerSettings;
}

void RunFacts::settingBegins(const KivObservedSetting& setting) {
  SettingFacts facts;
  facts.section = setting.section, facts.number = setting.number;
  facts.isEntry = setting.conditionCount == 0 && setting.resultCount == 1 &&
                  std::wstring_view(setting.results[0]) == setting.line;
  for (int i = 0; i < setting.conditionCount; ++i) facts.conditions.push_back({setting.conditions[i]});
  for (int i = 0; i < setting.resultCount; ++i) facts.results.push_back({setting.results[i]});
  settings_.push_back(std::move(facts));
  followsHit_ = isHitCounted_ = false;
}

void RunFacts::objectTested(const KivObservedObject& object, const unsigned char* passes, int failed) {
  SettingFacts& setting = settings_.back();
  ++setting.looked;
  for (std::size_t i = 0; i < setting.conditions.size(); ++i) {
    if (passes[i] != 0) ++setting.conditions[i].passing;
    if (failed < 0 || i < static_cast<std::size_t>(failed)) ++setting.conditions[i].left;
  }
  // What does not reach its layer is of no concern to an entity.
  if (!isTraced(object) || (isOfLayers() && failed >= 0)) return;
  const cad::Drawing& drawing = session_.host().currentDrawing();
  SettingTrace step;
  step.section = setting.section, step.number = setting.number, step.end = SettingTrace::End::kHit;
  if (isOfLayers()) step.layer = cad::propertyText(drawing, layer_, Property::kName);
  if (failed >= 0) {
    step.end = SettingTrace::End::kFailed;
    step.condition = setting.conditions[static_cast<std::size_t>(failed)].text;
    step.value = valueFor(drawing, traced_, step.condition);
  }
  trace_.push_back(std::move(step));
}

void RunFacts::objectHit(const KivObservedObject& object, int hit) {
  SettingFacts& setting = settings_.back();
  ++setting.hits;
  if (hit == kKivHitLocked) ++setting.locked;
  isHitCounted_ = false;
  followsHit_ = isTraced(object) && !trace_.empty() && hit == kKivHit;
  if (isTraced(object) && !trace_.empty() && hit != kKivHit) {
    trace_.back().end = hit == kKivHitLocked ? SettingTrace::End::kLocked : SettingTrace::End::kRefused;
  }
}

// Arrows are made by setting a variable and setting it back, which changes nothing; of what was taken back
// erased records are left.
bool RunFacts::hasChanged() const {
  constexpr int kArrows = 10;
  const cad::Drawing& drawing = session_.host().currentDrawing();
  if (settings_.back().section != kArrows) return drawing.revision() != revision_;
  for (std::size_t at = recordCount_; at < drawing.recordCount(); ++at)
    if (!drawing.record(static_cast<cad::RecordId>(at)).erased()) return true;
  return false;
}

void RunFacts::resultBegins() {
  const cad::Drawing& drawing = session_.host().currentDrawing();
  revision_ = drawing.revision();
  recordCount_ = drawing.recordCount();
}

// Setting what is there already is no change of the drawing.
void RunFacts::resultEnds(int result, bool isRefused) {
  SettingFacts& setting = settings_.back();
  ResultFacts& facts = setting.results[static_cast<std::size_t>(result)];
  const bool isChanged = hasChanged();
  if (isRefused) ++facts.refused;
  if (isChanged) ++facts.changed;
  if (setting.isEntry) setting.looked = 1, setting.hits = isChanged || isRefused ? 1 : 0;
  if (isChanged && !isHitCounted_) {
    ++setting.changed;
    isHitCounted_ = true;
  }
  if (!followsHit_) return;
  SettingTrace& step = trace_.back();
  (isRefused ? step.refused : isChanged ? step.done : step.without).push_back(facts.text);
}

}  // namespace kivcli
