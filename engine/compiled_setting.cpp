#include "engine/compiled_setting.h"

#include "base/fold.h"
#include "base/numbers.h"
#include "spec/dimension_catalogue.h"

namespace kiv {
namespace {

// The line between its separating commas; a doubled comma is one of the text.
std::vector<std::wstring> pieces(std::wstring_view line) {
  std::vector<std::wstring> found(1);
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] != L',') {
      found.back() += line[at];
    } else if (at + 1 < line.size() && line[at + 1] == L',') {
      found.back() += line[at++];
    } else {
      found.emplace_back();
    }
  }
  return found;
}

// "key=value" or "key<>value", whichever sign comes first.
bool splitItem(std::wstring_view piece, FlatItem& item) {
  const std::size_t equal = piece.find(L'=');
  const std::size_t differ = piece.find(L"<>");
  if (equal == std::wstring_view::npos && differ == std::wstring_view::npos) return false;
  item.equal = equal < differ;
  const std::size_t sign = item.equal ? equal : differ;
  item.key = base::trim(piece.substr(0, sign));
  item.value = base::trim(piece.substr(sign + (item.equal ? 1 : 2)));
  return true;
}

// DXF groups by which the host selects.
constexpr short kLayerGroup = 8;
constexpr short kLinetypeGroup = 6;
constexpr short kColorGroup = 62;
constexpr short kStyleGroup = 7;

bool isInSummary(int kind) { return kind == kLayerKind || kind == kLinetypeKind || kind == kColorKind; }

class Compiler {
 public:
  Compiler(Pass pass, const TextListLoader& loadTextList) : pass_(pass), loadTextList_(loadTextList) {}

  void addCondition(CompiledConditions& to, const FlatItem& item) const {
    const auto meaning = lookUpKey(item.key);
    if (!meaning) return;
    to.needsEntity = to.needsEntity || !isInSummary(meaning->kind);
    if (meaning->kind == kVariableKind) {
      const int row = findDimensionVariable(meaning->variable);
      if (row >= 0) to.variables.push_back({row, dimensionValue(row, item.value), item.equal});
    } else if (!addFilterable(to, meaning->kind, item)) {
      addTested(to, meaning->kind, item);
    }
  }

 private:
  bool addFilterable(CompiledConditions& to, int kind, const FlatItem& item) const {
    switch (kind) {
      case kLayerKind:
        return addName(to, to.layers, kLayerGroup, item);
      case kLinetypeKind:
        return addName(to, to.linetypes, kLinetypeGroup, item);
      case kColorKind: {
        const int color = colorNumberOfFileText(item.value);
        to.filter.push_back({kColorGroup, {}, color, item.equal});
        to.colors.push_back({color, item.equal});
        return true;
      }
      case kFontKind:
        // Dimensions and leaders name their text style elsewhere, and hatches have none.
        if (pass_ == Pass::kDimension || pass_ == Pass::kHatch) {
          to.textStyles.push_back({base::upper(item.value), item.equal});
          return true;
        }
        return addName(to, to.textStyles, kStyleGroup, item);
      default:
        return false;
    }
  }

  static bool addName(CompiledConditions& to, ConditionValues<std::wstring>& values, short group,
                      const FlatItem& item) {
    to.filter.push_back({group, item.value, 0, item.equal});
    values.push_back({base::upper(item.value), item.equal});
    return true;
  }

  void addTested(CompiledConditions& to, int kind, const FlatItem& item) const {
    const std::wstring& value = item.value;
    switch (kind) {
      case kTextHeightKind:
        return to.heights.push_back({base::leadingReal(value), item.equal});
      case kTextAngleKind:
        return to.angles.push_back({base::leadingReal(value), item.equal});
      case kWidthFactorKind:
        return to.widthFactors.push_back({base::leadingReal(value), item.equal});
      case kTextListKind:
        return addTextList(to, item);
      case kLineweightKind:
        return to.lineWeights.push_back({lineWeightNumber(value), item.equal});
      case kTransparencyKind:
        return to.transparencies.push_back({transparencyValue(value), item.equal});
      case kLinetypeScaleKind:
        return to.linetypeScales.push_back({base::leadingReal(value), item.equal});
      default:
        return;  // the kinds of layers
    }
  }

  void addTextList(CompiledConditions& to, const FlatItem& item) const {
    auto texts = loadTextList_(item.value);
    to.canBeTested = to.canBeTested && texts.has_value();
    if (texts) to.textLists.push_back({std::move(*texts), item.equal});
  }

  Pass pass_;
  const TextListLoader& loadTextList_;
};

}  // namespace

FlatSetting parseFlatSetting(std::wstring_view line) {
  FlatSetting setting;
  std::vector<FlatItem>* items = &setting.conditions;
  for (const std::wstring& piece : pieces(line)) {
    const std::wstring_view trimmed = base::trim(piece);
    FlatItem item;
    if (trimmed == L"{") {
      items = &setting.results;
    } else if (trimmed == L"***") {
      continue;
    } else if (splitItem(piece, item)) {
      if (items == &setting.results) item.equal = true;
      items->push_back(std::move(item));
    }
  }
  return setting;
}

CompiledSetting compileSetting(std::wstring_view flatSetting, Pass pass, const TextListLoader& loadTextList) {
  const FlatSetting flat = parseFlatSetting(flatSetting);
  CompiledSetting setting;
  const Compiler compiler(pass, loadTextList);
  for (const FlatItem& item : flat.conditions) compiler.addCondition(setting.conditions, item);
  for (const FlatItem& item : flat.results) {
    const auto meaning = lookUpKey(item.key);
    if (!meaning || !hasEffect(meaning->kind, sectionOf(pass), true)) continue;
    const int row = findDimensionVariable(meaning->variable);
    if (meaning->kind == kVariableKind && row < 0) continue;
    setting.results.push_back({meaning->kind, row, item.key, item.value});
  }
  return setting;
}

}  // namespace kiv
