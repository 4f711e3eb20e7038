#include "engine/setting_observation.h"

#include <algorithm>

#include "base/fold.h"

namespace kiv {
namespace {

std::wstring flatLine(std::span<const FlatItem> conditions) {
  std::wstring line;
  for (const FlatItem& item : conditions) {
    line += L',' + item.key + (item.equal ? L"=" : L"<>");
    for (const wchar_t c : item.value) line.append(c == L',' ? 2 : 1, c);
  }
  return line + L",{";
}

}  // namespace

ObservedSetting::ObservedSetting(const KivRunObserver* observer, int section, int number,
                                 const std::wstring& line, std::span<const FlatItem> conditions,
                                 std::span<const std::wstring> results)
    : observer_(observer) {
  if (observer_ == nullptr) return;
  std::vector<std::wstring> texts;
  for (const FlatItem& item : conditions)
    texts.push_back(item.key + (item.equal ? L"=" : L"<>") + item.value);
  std::vector<const wchar_t*> conditionTexts, resultTexts;
  for (const std::wstring& text : texts) conditionTexts.push_back(text.c_str());
  for (const std::wstring& text : results) resultTexts.push_back(text.c_str());
  const KivObservedSetting told{section,
                                number,
                                line.c_str(),
                                static_cast<int>(conditionTexts.size()),
                                conditionTexts.data(),
                                static_cast<int>(resultTexts.size()),
                                resultTexts.data()};
  observer_->settingBegins(observer_->context, &told);
}

ObservedSetting::~ObservedSetting() {
  if (observer_ != nullptr) observer_->settingEnds(observer_->context);
}

ObservedEntry::ObservedEntry(const KivRunObserver* observer, int section, int number,
                             const std::wstring& line)
    : observer_(observer), setting_(observer, section, number, line, {}, std::span(&line, 1)) {
  if (observer_ != nullptr) observer_->resultBegins(observer_->context, 0);
}

ObservedEntry::~ObservedEntry() {
  if (observer_ != nullptr) observer_->resultEnds(observer_->context, 0, isRefused_ ? 1 : 0);
}

ObservedConditions::Tests::Tests(const FlatSetting& flat, Pass pass, const TextListLoader& loadTextList,
                                 SymbolNames& names)
    : setting(compileSetting(flatLine(flat.conditions), pass, loadTextList)),
      tests(setting.conditions, names) {}

bool ObservedConditions::Tests::pass(const AcDbEntity& entity, EntityClass entityClass) {
  return setting.conditions.canBeTested && tests.passesSummary(summaryOf(entity)) &&
         tests.passesEntity(entity, entityClass);
}

ObservedConditions::ObservedConditions(const std::wstring& line, Pass pass,
                                       const TextListLoader& loadTextList, SymbolNames& names) {
  const std::vector<FlatItem> items = parseFlatSetting(line).conditions;
  const auto isOfKind = [](const FlatItem& one, const FlatItem& other) {
    return base::equalFolded(one.key, other.key);
  };
  for (std::size_t i = 0; i < items.size(); ++i) {
    FlatSetting ofKind;
    std::ranges::copy_if(items, std::back_inserter(ofKind.conditions),
                         [&](const FlatItem& item) { return isOfKind(item, items[i]); });
    Condition condition;
    condition.alone = std::make_unique<Tests>(FlatSetting{{items[i]}, {}}, pass, loadTextList, names);
    condition.isLastOfKind = std::none_of(items.begin() + static_cast<std::ptrdiff_t>(i) + 1, items.end(),
                                          [&](const FlatItem& item) { return isOfKind(item, items[i]); });
    if (condition.isLastOfKind && ofKind.conditions.size() > 1)
      condition.ofKind = std::make_unique<Tests>(ofKind, pass, loadTextList, names);
    conditions_.push_back(std::move(condition));
  }
}

void ObservedConditions::test(const AcDbEntity& entity, EntityClass entityClass, bool isSelected,
                              const KivRunObserver& observer) {
  passes_.clear();
  int failed = -1;
  for (std::size_t i = 0; i < conditions_.size(); ++i) {
    Condition& condition = conditions_[i];
    const bool passesAlone = condition.alone->pass(entity, entityClass);
    passes_.push_back(passesAlone ? 1 : 0);
    const bool isOfSelection = isSelected && !condition.alone->setting.conditions.filter.empty();
    const bool drops = isOfSelection || (condition.isLastOfKind && condition.ofKind == nullptr)
                           ? !passesAlone
                           : condition.isLastOfKind && !condition.ofKind->pass(entity, entityClass);
    if (drops && failed < 0) failed = static_cast<int>(i);
  }
  const KivObservedObject object = KivObservedObject{entity.objectId().asOldId()};
  observer.objectTested(observer.context, &object, passes_.data(), failed);
}

}  // namespace kiv
