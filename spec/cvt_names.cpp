#include "spec/cvt_names.h"

#include <algorithm>

#include "base/fold.h"
#include "spec/cvt_lines.h"

namespace kiv {
namespace {

constexpr int kNoTable = -1, kLayers = 0, kLinetypes = 1, kTextStyles = 2;
constexpr std::size_t kTables = 3;

// What a drawing has, or an object may name, whatever its tables say.
const std::set<std::wstring> kAlways[kTables] = {
    {L"0"}, {L"BYLAYER", L"BYBLOCK", L"CONTINUOUS"}, {L"STANDARD"}};

bool isPattern(const std::wstring& name) { return name.find_first_of(L"*?") != std::wstring::npos; }

// False only where it is certain that no name that comes out of the result fits the condition.
bool mayFit(const std::wstring& result, const std::wstring& condition) {
  if (condition.find_first_of(L"~,") != std::wstring::npos) return true;
  constexpr wchar_t kWildcards[] = L"#@.*?[]`";
  const auto agree = [](const auto& one, const auto& other) {
    const auto length = static_cast<std::ptrdiff_t>(std::min(std::size(one), std::size(other)));
    return std::equal(std::begin(one), std::begin(one) + length, std::begin(other));
  };
  const std::wstring end = result.substr(result.find_last_of(L"*?") + 1);
  const std::size_t last = condition.find_last_of(kWildcards);
  const std::wstring othersEnd = last == condition.npos ? condition : condition.substr(last + 1);
  return agree(result.substr(0, result.find_first_of(L"*?")),
               condition.substr(0, condition.find_first_of(kWildcards))) &&
         agree(std::wstring(end.rbegin(), end.rend()), std::wstring(othersEnd.rbegin(), othersEnd.rend()));
}

// 0 layers, 1 linetypes, 2 text styles that it names.
int tableOf(int kind, const std::wstring& variable) {
  return kind == kVariableKind && variable == L"DIMTXSTY" ? kTextStyles : nameTable(kind);
}
int tableOf(const Item& item) { return tableOf(item.kind, item.variable); }

class NameCheck {
 public:
  NameCheck(ParsedCvt& parsed, const std::vector<DrawingNames>& drawings, const NameMatch& matches)
      : parsed_(parsed), drawings_(drawings), matches_(matches) {
    takeLists();
    takeResults();
  }

  void run() {
    for (const SectionInfo& info : sections()) {
      if (info.form == SectionForm::kRules) checkSection(info.number);
    }
    const CvtSection& layers = sectionOf(kLayerCreationSection);
    for (std::size_t at = 0; at < layers.entries.size(); ++at) {
      if (!layers.entries[at][2].empty())
        checkProvided(kLinetypes, layers.entries[at][2], layers.entryPlaces[at]);
    }
    const CvtSection& variables = sectionOf(kDimensionSettingSection);
    for (std::size_t at = 0; at < variables.entries.size(); ++at) {
      const auto assignment = splitAssignment(joinFields(variables.entries[at]));
      if (assignment && tableOf(kVariableKind, assignment->key) == kTextStyles)
        checkProvided(kTextStyles, assignment->value, variables.entryPlaces[at]);
    }
  }

 private:
  const CvtSection& sectionOf(int number) const {
    return parsed_.sections[static_cast<std::size_t>(number - 1)];
  }

  void bring(int table, const std::wstring& name) {
    brought_[static_cast<std::size_t>(table)].insert(base::upper(name));
  }

  void takeLists() {
    for (const auto& fields : sectionOf(kLayerCreationSection).entries) bring(kLayers, fields[0]);
    for (const auto& fields : sectionOf(kLinetypeSection).entries) bring(kLinetypes, fields.back());
    for (const auto& fields : sectionOf(kFontSection).entries) bring(kTextStyles, fields[0]);
    for (const Setting& setting : sectionOf(kLayerSettingSection).settings) {
      for (const Item& result : setting.results) {
        if (result.kind == kLayerKind) bring(kLayers, result.value);
      }
    }
  }

  // What settings write is there for the settings behind them.
  void takeResults() {
    written_ = brought_;
    for (const CvtSection& section : parsed_.sections) {
      for (const Setting& setting : section.settings) {
        for (const Item& result : setting.results) {
          const int table = tableOf(result);
          if (table != kNoTable) written_[static_cast<std::size_t>(table)].insert(result.value);
        }
      }
    }
  }

  void checkSection(int number) {
    const CvtSection& section = sectionOf(number);
    for (std::size_t at = 0; at < section.settings.size(); ++at) {
      const Setting& setting = section.settings[at];
      const CvtSettingPlaces& places = section.settingPlaces[at];
      for (std::size_t i = 0; i < setting.conditions.size(); ++i) {
        const Item& condition = setting.conditions[i];
        if (hasEffect(condition.kind, number, false)) checkUsed(number, condition, places.conditions[i]);
      }
      for (std::size_t i = 0; i < setting.results.size(); ++i) {
        const Item& result = setting.results[i];
        const bool isNewName = number == kLayerSettingSection && result.kind == kLayerKind;
        if (!isNewName && hasEffect(result.kind, number, true) && tableOf(result) != kNoTable)
          checkProvided(tableOf(result), result.value, places.results[i]);
      }
    }
  }

  void checkProvided(int tableNumber, const std::wstring& name, const CvtPlace& place) {
    const auto table = static_cast<std::size_t>(tableNumber);
    if (name.empty() || kAlways[table].contains(name) || brought_[table].contains(name)) return;
    const auto comesOut = [&](const std::wstring& other) { return matches_(other, name); };
    if (isPattern(name) && std::ranges::any_of(brought_[table], comesOut)) return;
    std::size_t count = 0;
    const DrawingNames* first = nullptr;
    for (const DrawingNames& drawing : drawings_) {
      if (isPattern(name) ? std::ranges::any_of(drawing.has[table], comesOut)
                          : drawing.has[table].contains(name))
        continue;
      if (count++ == 0) first = &drawing;
    }
    if (count == 0) return;
    const std::wstring rest = std::to_wstring(count) + L" of " + std::to_wstring(drawings_.size()) +
                              L" drawings, the first is " + first->drawing;
    parsed_.diagnostics.push_back({CvtProblem::kNameNotProvided, place.line, place.text, name, rest});
  }

  void checkUsed(int number, const Item& condition, const CvtPlace& place) {
    if (tableOf(condition) == kNoTable || condition.value.empty()) return;
    const auto table = static_cast<std::size_t>(tableOf(condition));
    const auto fits = [&](const std::wstring& name) {
      // Of a new name that itself is a pattern not all that comes out is known.
      return isPattern(name) ? mayFit(name, condition.value) : matches_(name, condition.value);
    };
    if (std::ranges::any_of(written_[table], fits)) return;
    for (const DrawingNames& drawing : drawings_) {
      // What dimensions name is not among what is used.
      const bool ofTables = number == kLayerSettingSection || condition.kind == kVariableKind;
      if (std::ranges::any_of(ofTables ? drawing.has[table] : drawing.used[table], fits)) return;
    }
    parsed_.diagnostics.push_back({CvtProblem::kNameNotUsed, place.line, place.text, condition.value});
  }

  ParsedCvt& parsed_;
  const std::vector<DrawingNames>& drawings_;
  const NameMatch& matches_;
  std::array<std::set<std::wstring>, kTables> brought_, written_;
};

}  // namespace

int nameTable(int kind) {
  switch (kind) {
    case kLayerKind:
      return kLayers;
    case kLinetypeKind:
      return kLinetypes;
    case kFontKind:
      return kTextStyles;
    default:
      return kNoTable;
  }
}

void checkNames(ParsedCvt& parsed, const std::vector<DrawingNames>& drawings, const NameMatch& matches) {
  if (drawings.empty()) return;
  NameCheck(parsed, drawings, matches).run();
  orderByLine(parsed.diagnostics);
}

}  // namespace kiv
