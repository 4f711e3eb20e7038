#include "spec/cvt_overwritten.h"

#include <algorithm>

#include "base/wildcard_characters.h"
#include "spec/cvt_lines.h"
#include "spec/dimension_catalogue.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

// Kinds of which the one can show in the other: a dimension has its text's height and style as variables.
bool mayTouch(const Item& a, const Item& b) {
  const auto isOfDimension = [](int kind) {
    return kind == kVariableKind || kind == kFontKind || kind == kTextHeightKind || kind == kTextAngleKind;
  };
  return a.kind == b.kind || (isOfDimension(a.kind) && isOfDimension(b.kind));
}

bool isSameProperty(const Item& a, const Item& b) { return a.kind == b.kind && a.variable == b.variable; }

// False: what it writes depends on what stands there.
bool isAbsolute(const Item& result) {
  if (result.kind == kTextHeightKind) return !heightValue(result.value).isFactor;
  return result.kind != kLayerKind || result.value.find_first_of(L"*?") == std::wstring::npos;
}

bool isName(int kind) { return kind == kLayerKind || kind == kLinetypeKind || kind == kFontKind; }

// False also where it is not certain.
bool surelyMeets(const std::wstring& value, const Item& condition) {
  if (condition.kind == kTextListKind || condition.kind == kVariableKind) return false;
  const bool isPlain = !isName(condition.kind) || base::isPlainPattern(condition.value);
  return isPlain && !condition.inverted && condition.value == value;
}

std::vector<const Item*> conditionsOf(const Setting& setting, const Item& like) {
  std::vector<const Item*> found;
  for (const Item& condition : setting.conditions) {
    if (isSameProperty(condition, like)) found.push_back(&condition);
  }
  return found;
}

class SectionCheck {
 public:
  SectionCheck(int number, const CvtSection& section, CvtDiagnostics& diagnostics)
      : number_(number), section_(section), settings_(section.settings), diagnostics_(diagnostics) {}

  void run() {
    for (std::size_t at = 0; at < settings_.size(); ++at) {
      for (std::size_t result = 0; result < settings_[at].results.size(); ++result) checkResult(at, result);
    }
  }

 private:
  bool heeds(const Item& item, bool asResult) const { return hasEffect(item.kind, number_, asResult); }

  void checkResult(std::size_t at, std::size_t place) {
    const Item& result = settings_[at].results[place];
    if (!heeds(result, true)) return;
    if (report(at, place, at, place + 1)) return;
    for (std::size_t later = at + 1; later < settings_.size(); ++later) {
      if (dependsOn(settings_[later], result)) return;
      if (isReached(at, later) && report(at, place, later, 0)) return;
    }
  }

  // A result of the setting `later`, from its place `from` on, that writes the same property.
  bool report(std::size_t at, std::size_t place, std::size_t later, std::size_t from) {
    const Item& result = settings_[at].results[place];
    const std::vector<Item>& others = settings_[later].results;
    for (std::size_t other = from; other < others.size(); ++other) {
      if (!isSameProperty(others[other], result)) continue;
      if (!isAbsolute(others[other])) return false;
      if (others[other].value == result.value) continue;
      const CvtPlace& line = section_.settingPlaces[at].results[place];
      const int by = section_.settingPlaces[later].results[other].line;
      diagnostics_.push_back({CvtProblem::kOverwritten, line.line, line.text, std::to_wstring(by)});
      return true;
    }
    return false;
  }

  // Layers are tested before the first of them is changed.
  bool seesChanges() const { return number_ != kLayerSettingSection; }

  bool dependsOn(const Setting& setting, const Item& result) const {
    const auto asksForIt = [&](const Item& item) { return heeds(item, false) && mayTouch(item, result); };
    return seesChanges() && std::ranges::any_of(setting.conditions, asksForIt);
  }

  // Does `later` apply to all that `at` applies to?
  bool isReached(std::size_t at, std::size_t later) const {
    return std::ranges::all_of(settings_[later].conditions, [&](const Item& condition) {
      return !heeds(condition, false) || surelyHolds(at, later, condition);
    });
  }

  bool surelyHolds(std::size_t at, std::size_t later, const Item& condition) const {
    const auto asked = conditionsOf(settings_[later], condition);
    for (std::size_t between = later; seesChanges() && between-- > at;) {
      const std::vector<Item>& results = settings_[between].results;
      for (std::size_t place = results.size(); place-- > 0;) {
        const Item& result = results[place];
        if (!heeds(result, true) || !mayTouch(result, condition)) continue;
        return between == at && isSameProperty(result, condition) && isAbsolute(result) &&
               asked.size() == 1 && surelyMeets(result.value, condition);
      }
    }
    const auto given = conditionsOf(settings_[at], condition);
    return std::ranges::equal(given, asked, [](const Item* a, const Item* b) {
      return a->inverted == b->inverted && a->value == b->value;
    });
  }

  int number_;
  const CvtSection& section_;
  const std::vector<Setting>& settings_;
  CvtDiagnostics& diagnostics_;
};

// What is there stays: layers and linetypes.
void checkNamesakes(const CvtSection& section, CvtDiagnostics& diagnostics) {
  const auto nameOf = [&](std::size_t at) -> const std::wstring& {
    const std::vector<std::wstring>& fields = section.entries[at];
    return fields.size() == 2 ? fields.back() : fields.front();
  };
  for (std::size_t at = 1; at < section.entries.size(); ++at) {
    for (std::size_t earlier = 0; earlier < at; ++earlier) {
      if (nameOf(at).empty() || nameOf(at) != nameOf(earlier)) continue;
      const CvtPlace& place = section.entryPlaces[at];
      if (section.entries[at] != section.entries[earlier])
        diagnostics.push_back({CvtProblem::kAlreadyThere, place.line, place.text,
                               std::to_wstring(section.entryPlaces[earlier].line)});
      break;
    }
  }
}

// Of lists whose later entries write what earlier ones have written: variables and text styles.
void checkList(const CvtSection& section, CvtDiagnostics& diagnostics) {
  const auto nameOf = [](const std::vector<std::wstring>& fields) {
    const auto assignment = splitAssignment(joinFields(fields));
    return assignment && fields.size() < 2 ? assignment->key : fields[0];
  };
  for (std::size_t at = 0; at < section.entries.size(); ++at) {
    for (std::size_t later = at + 1; later < section.entries.size(); ++later) {
      const std::wstring name = nameOf(section.entries[at]);
      if (name.empty() || name != nameOf(section.entries[later])) continue;
      const CvtPlace& place = section.entryPlaces[at];
      if (section.entries[at] == section.entries[later]) continue;
      diagnostics.push_back({CvtProblem::kOverwritten, place.line, place.text,
                             std::to_wstring(section.entryPlaces[later].line)});
      break;
    }
  }
}

}  // namespace

void findOverwritten(ParsedCvt& parsed) {
  for (const SectionInfo& info : sections()) {
    const CvtSection& section = parsed.sections[static_cast<std::size_t>(info.number - 1)];
    if (info.form == SectionForm::kRules) {
      SectionCheck(info.number, section, parsed.diagnostics).run();
    } else if (info.number == kDimensionSettingSection || info.number == kFontSection) {
      checkList(section, parsed.diagnostics);
    } else if (info.number == kLayerCreationSection || info.number == kLinetypeSection) {
      checkNamesakes(section, parsed.diagnostics);
    }
  }
}

}  // namespace kiv
