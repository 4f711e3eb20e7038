#include "spec/item_kinds.h"

#include <cstddef>
#include <iterator>

#include "base/fold.h"
#include "spec/dimension_catalogue.h"

namespace kiv {
namespace {

constexpr SectionInfo kSections[] = {
    {1, L"文字", L"[文字]", SectionForm::kRules, 0},
    {2, L"寸法", L"[寸法]", SectionForm::kRules, 0},
    {3, L"ﾊｯﾁﾝｸﾞ", L"[ﾊｯﾁﾝｸﾞ]", SectionForm::kRules, 0},
    {4, L"その他の図形", L"[その他の図形]", SectionForm::kRules, 0},
    {5, L"寸法設定", L"[寸法設定]", SectionForm::kList, 51},
    {6, L"画層の設定", L"[画層の色･線種]", SectionForm::kRules, 0},
    {7, L"画層の作成", L"[画層の作成]", SectionForm::kList, 52},
    {8, L"線種のﾛｰﾄﾞ", L"[線種のﾛｰﾄﾞ]", SectionForm::kList, 53},
    {9, L"字体のﾛｰﾄﾞ", L"[字体のﾛｰﾄﾞ]", SectionForm::kList, 54},
    {10, L"矢印のﾛｰﾄﾞ", L"[矢印のﾛｰﾄﾞ]", SectionForm::kList, 55},
};
static_assert(std::size(kSections) == kSectionCount);

constexpr unsigned in(int number) { return 1U << number; }
constexpr unsigned kEntities =
    in(kTextSection) | in(kDimensionSection) | in(kHatchSection) | in(kOtherSection);
constexpr unsigned kLayers = in(kLayerSettingSection);
constexpr unsigned kEverywhere = kEntities | kLayers;

constexpr ItemKind kKinds[] = {
    {1, L"画層", kEverywhere, kEverywhere},    {2, L"線種", kEverywhere, kEverywhere},
    {3, L"色", kEverywhere, kEverywhere},      {4, L"字体", kEntities, kEntities},
    {5, L"文字高さ", kEntities, kEntities},    {6, L"文字角度", kEntities, kEntities},
    {7, L"文字幅高比", kEntities, kEntities},  {8, L"ｼｽﾃﾑ変数", kEntities, kEntities},
    {9, L"文字一致のリスト", kEntities, 0},    {10, L"線幅値", kEverywhere, kEverywhere},
    {11, L"透過性", kEverywhere, kEverywhere}, {12, L"線種尺度", kEntities, kEntities},
    {13, L"表示", kLayers, kLayers},           {14, L"ロック", kLayers, kLayers},
    {15, L"フリーズ", kLayers, kLayers},       {16, L"印刷", kLayers, kLayers},
};
constexpr bool inOrder() {
  for (std::size_t i = 0; i < std::size(kKinds); ++i) {
    if (kKinds[i].kind != static_cast<int>(i) + 1) return false;
  }
  return true;
}
static_assert(inOrder());

}  // namespace

std::span<const SectionInfo> sections() { return kSections; }

const SectionInfo& section(int number) { return kSections[number - 1]; }

bool isRuleSection(int number) {
  return number >= 1 && number <= kSectionCount && section(number).form == SectionForm::kRules;
}

std::span<const ItemKind> itemKinds() { return kKinds; }

const ItemKind* itemKind(int kind) {
  return kind >= 1 && kind <= static_cast<int>(std::size(kKinds)) ? &kKinds[kind - 1] : nullptr;
}

std::optional<KeyMeaning> lookUpKey(std::wstring_view key) {
  for (const ItemKind& row : kKinds) {
    if (base::equalFolded(row.key, key)) return KeyMeaning{row.kind, {}};
  }
  const int variable = findDimensionVariable(key);
  if (variable < 0) return std::nullopt;
  return KeyMeaning{kVariableKind, dimensionCatalogueRow(variable).name};
}

bool hasEffect(int kind, int sectionNumber, bool asResult) {
  const ItemKind* row = itemKind(kind);
  if (!row || !isRuleSection(sectionNumber)) return false;
  return ((asResult ? row->resultSections : row->conditionSections) & in(sectionNumber)) != 0;
}

}  // namespace kiv
