#pragma once
// Everything that is said once about a section and once about an item kind, as files and conversions know it:
// reader, writer, dialogs and documentation take it from here. How a person gives an item's value says
// `ui/item_inputs.h`.

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kiv {

enum class SectionForm { kRules, kList };

struct SectionInfo {
  int number;             // 1 to 10
  const wchar_t* name;    // text of the section's node
  const wchar_t* header;  // its line in a file; differs from the bracketed name in one section
  SectionForm form;
  int entryKind;  // kind code of its entries, 51 to 55; 0 in a rule section
};

inline constexpr int kSectionCount = 10;
inline constexpr int kTextSection = 1;
inline constexpr int kDimensionSection = 2;
inline constexpr int kHatchSection = 3;
inline constexpr int kOtherSection = 4;
inline constexpr int kDimensionSettingSection = 5;
inline constexpr int kLayerSettingSection = 6;
inline constexpr int kLayerCreationSection = 7;
inline constexpr int kLinetypeSection = 8;
inline constexpr int kFontSection = 9;
inline constexpr int kArrowSection = 10;

std::span<const SectionInfo> sections();
const SectionInfo& section(int number);  // 1 to 10
bool isRuleSection(int number);          // false also for a number that is none

inline constexpr int kLayerKind = 1;
inline constexpr int kLinetypeKind = 2;
inline constexpr int kColorKind = 3;
inline constexpr int kFontKind = 4;
inline constexpr int kTextHeightKind = 5;
inline constexpr int kTextAngleKind = 6;
inline constexpr int kWidthFactorKind = 7;
inline constexpr int kVariableKind = 8;  // a dimension variable
inline constexpr int kTextListKind = 9;  // condition only
inline constexpr int kLineweightKind = 10;
inline constexpr int kTransparencyKind = 11;
inline constexpr int kLinetypeScaleKind = 12;
inline constexpr int kVisibilityKind = 13;
inline constexpr int kLockKind = 14;
inline constexpr int kFreezeKind = 15;
inline constexpr int kPlotKind = 16;

// The fields of a layer to create behind its name.
inline constexpr std::array kLayerFieldKinds = {kColorKind,      kLinetypeKind,    kVisibilityKind,
                                                kLockKind,       kFreezeKind,      kPlotKind,
                                                kLineweightKind, kTransparencyKind};

struct ItemKind {
  int kind;            // from 1, without gaps
  const wchar_t* key;  // in a file, and in the display texts
  // Rule sections in which a conversion heeds the kind, one bit each: bit n for section n.
  unsigned conditionSections;
  unsigned resultSections;

  bool isConditionOnly() const { return resultSections == 0; }
};

std::span<const ItemKind> itemKinds();
const ItemKind* itemKind(int kind);  // null: no kind of items

// What a key of a rule line means: one of these kinds or, after them, a dimension variable.
struct KeyMeaning {
  int kind;
  std::wstring variable;  // catalogue spelling; empty unless the key names a variable
};
std::optional<KeyMeaning> lookUpKey(std::wstring_view key);  // ignoring case; empty: unknown

// False when a conversion ignores such an item in this rule section.
bool hasEffect(int kind, int sectionNumber, bool asResult);

}  // namespace kiv
