#include "spec/cvt_section_pass.h"

#include <algorithm>

#include "base/fold.h"
#include "spec/cvt_item_check.h"
#include "spec/cvt_lines.h"
#include "spec/dimension_catalogue.h"
#include "spec/value_forms.h"

namespace kiv {
CvtSectionPass::CvtSectionPass(int section, const std::vector<CvtLine>& lines, std::wstring& remark,
                               CvtDiagnostics& diagnostics)
    : info_(kiv::section(section)), lines_(lines), remark_(remark), diagnostics_(diagnostics) {}

CvtSection CvtSectionPass::run() {
  size_t at = findHeader();
  if (at == lines_.size()) return std::move(section_);
  section_.found = true;
  const CvtLine& header = lines_[at];
  for (++at; at < lines_.size() && lines_[at].folded != kEndOfFile; ++at) {
    const CvtLine& line = lines_[at];
    if (line.folded == kFoldedEndOfSection) {
      endSetting();
      return std::move(section_);
    }
    ++section_.linesExamined;
    if (takeLine(line) == Next::kEnd) {
      reportLostEntries(at + 1);
      return std::move(section_);
    }
  }
  endSetting();
  report(CvtProblem::kSectionNotEnded, header, info_.name);
  return std::move(section_);
}

// The line behind the remark's header is taken as it stands; only the passes that look for a remark see it
// so.
size_t CvtSectionPass::findHeader() {
  for (size_t at = 0; at < lines_.size(); ++at) {
    const CvtLine& line = lines_[at];
    if (line.folded == kEndOfFile) break;
    if (remark_.empty() && line.folded == kRemarkHeader && at + 1 < lines_.size()) {
      remark_ = lines_[++at].text;
      continue;
    }
    if (line.folded == info_.header) return at;
  }
  return lines_.size();
}

CvtSectionPass::Next CvtSectionPass::takeLine(const CvtLine& line) {
  if (info_.form == SectionForm::kRules) {
    if (!line.text.empty()) takeRuleLine(line);
    return Next::kGoOn;
  }
  if (line.text.empty()) return Next::kEnd;
  takeListLine(line);
  return Next::kGoOn;
}

void CvtSectionPass::takeRuleLine(const CvtLine& line) {
  if (line.folded == L"{") {
    openResults(line);
  } else if (line.folded == L"}") {
    closeResults(line);
  } else {
    takeItem(line);
  }
}

void CvtSectionPass::openResults(const CvtLine& line) {
  if (brace_) report(CvtProblem::kBraceNotClosed, *brace_);
  if (brace_ || !hasCurrent_) report(CvtProblem::kStrayBrace, line);
  brace_ = &line;
}

void CvtSectionPass::closeResults(const CvtLine& line) {
  if (!brace_) report(CvtProblem::kStrayBrace, line);
  brace_ = nullptr;
  endSetting();
}

// An unrecognised line leaves an empty setting behind, except before the pass's first item.
void CvtSectionPass::takeItem(const CvtLine& line) {
  const bool wildcard = brace_ ? (takeResult(line), false) : takeCondition(line);
  if (anyItem_ || wildcard || !hasCurrent_) return;
  section_.settings.pop_back();
  section_.settingPlaces.pop_back();
  hasCurrent_ = false;
}

bool CvtSectionPass::takeCondition(const CvtLine& line) {
  if (!hasCurrent_) {
    section_.settings.push_back({L"設定" + std::to_wstring(section_.settings.size() + 1), {}, {}});
    section_.settingPlaces.emplace_back();
    hasCurrent_ = true;
    wildcard_ = false;
    opened_ = &line;
  }
  if (line.folded == kNoConditions) {
    wildcard_ = true;
    return true;
  }
  Item item;
  if (!readItem(line, false, item)) return false;
  std::vector<Item>& conditions = section_.settings.back().conditions;
  CvtItemCheck(info_.number, item, line, diagnostics_).checkCondition(conditions);
  if (item.kind == kTextListKind && hasEffect(item.kind, info_.number, false)) {
    section_.textLists.push_back({item.value, line.number, line.text});
  }
  conditions.push_back(std::move(item));
  section_.settingPlaces.back().conditions.push_back({line.number, line.text});
  return false;
}

bool CvtSectionPass::takeResult(const CvtLine& line) {
  if (!hasCurrent_) {
    report(CvtProblem::kNoSetting, line);
    return false;
  }
  Item item;
  if (!readItem(line, true, item)) return false;
  CvtItemCheck(info_.number, item, line, diagnostics_).checkResult();
  section_.settings.back().results.push_back(std::move(item));
  section_.settingPlaces.back().results.push_back({line.number, line.text});
  return true;
}

bool CvtSectionPass::readItem(const CvtLine& line, bool asResult, Item& item) {
  const RuleLine parts = splitRuleLine(line.folded);
  const auto meaning = lookUpKey(parts.key);
  if (!meaning) {
    report(parts.key.empty() ? CvtProblem::kNoKey : CvtProblem::kUnknownKey, line, parts.key);
    if (line.folded.find_first_of(L"{}") != std::wstring::npos) report(CvtProblem::kBraceInLine, line);
    return false;
  }
  item.kind = meaning->kind;
  item.variable = meaning->variable;
  item.value = item.kind == kColorKind ? colorText(colorNumberOfFileText(parts.value)) : parts.value;
  item.inverted = !asResult && isInvertedLine(line.folded);
  anyItem_ = true;
  // What cannot be written to an object. Its line alone is dropped; the setting stays.
  if (asResult && itemKind(item.kind)->isConditionOnly()) {
    report(CvtProblem::kNotAResult, line, item.key());
    return false;
  }
  return true;
}

void CvtSectionPass::endSetting() {
  if (brace_) report(CvtProblem::kBraceNotClosed, *brace_);
  if (hasCurrent_) checkSetting(section_.settings.back());
  hasCurrent_ = false;
}

void CvtSectionPass::checkSetting(const Setting& setting) {
  if (wildcard_ && !setting.conditions.empty()) report(CvtProblem::kMixedWildcard, *opened_, kNoConditions);
  if (setting.results.empty()) {
    report(CvtProblem::kNoResults, *opened_, setting.name);
    return;
  }
  if (info_.number == kLayerSettingSection &&
      std::ranges::find(setting.conditions, kLayerKind, &Item::kind) == setting.conditions.end())
    report(CvtProblem::kLayerNotNamed, *opened_);
  const bool counts =
      std::any_of(setting.conditions.begin(), setting.conditions.end(),
                  [this](const Item& condition) { return hasEffect(condition.kind, info_.number, false); });
  if (!wildcard_ && !counts) report(CvtProblem::kMatchesEverything, *opened_, setting.name);
}

void CvtSectionPass::takeListLine(const CvtLine& line) {
  if (info_.number == kArrowSection) {
    addEntry(line, {line.text});
    section_.changingEntries += splitFields(line.text).front().empty() ? 0 : 1;
    return;
  }
  if (info_.number == kLayerCreationSection) {
    takeLayer(line);
    return;
  }
  std::vector<std::wstring> fields = splitFields(line.folded);
  const size_t given = fields.size();
  const bool assignment = info_.number == kDimensionSettingSection && given == 1;
  const bool assigned = assignment && fields[0].find(L'=') != std::wstring::npos;
  const size_t most = info_.number == kFontSection ? 3 : 2;
  const bool complete = assigned || (given >= 2 && !fields[0].empty() && !fields[1].empty());
  if (!complete) report(CvtProblem::kMissingFields, line);
  if (given > most) report(CvtProblem::kExtraFields, line, std::to_wstring(most));
  if (complete && info_.number == kFontSection)
    checkValue(line, kFontKind, {}, splitFields(line.text).front());
  if (given > most) fields.resize(most);
  bool changes = complete;
  if (info_.number == kDimensionSettingSection) changes = checkVariable(line, fields.size()) && complete;
  section_.changingEntries += changes ? 1 : 0;
  if (given == 1 && !assignment) fields.emplace_back();
  if (fields.size() == 3 && (fields[2].empty() || fields[2].find(L"----") != std::wstring::npos))
    fields.pop_back();
  addEntry(line, std::move(fields));
}

// Split as a conversion does it, in the file's own case. False: there is no such variable.
bool CvtSectionPass::checkVariable(const CvtLine& line, size_t fieldsKept) {
  std::vector<std::wstring> fields = splitFields(line.text);
  fields.resize(fieldsKept);
  const auto assignment = splitAssignment(joinFields(fields));
  const std::wstring name = base::upper(assignment ? assignment->key : fields[0]);
  if (findDimensionVariable(name) < 0) {
    report(CvtProblem::kUnknownVariable, line, name);
    return false;
  }
  if (assignment) checkValue(line, kVariableKind, name, assignment->value);
  return true;
}

void CvtSectionPass::checkValue(const CvtLine& line, int kind, const std::wstring& variable,
                                const std::wstring& value) {
  if (const auto doubt = doubtOfValue({info_.number, kind, variable, value, false})) {
    report(doubt->problem, line, doubt->detail);
  }
}

void CvtSectionPass::takeLayer(const CvtLine& line) {
  std::vector<std::wstring> fields = splitFields(line.folded);
  if (!hasFieldCount(info_.number, fields.size())) {
    report(CvtProblem::kWrongFieldCount, line, std::to_wstring(fields.size()));
    return;
  }
  const std::vector<std::wstring> given = splitFields(line.text);
  checkValue(line, kLayerKind, {}, given[0]);
  for (size_t index = 1; index < given.size(); ++index) {
    if (!given[index].empty()) checkValue(line, kLayerFieldKinds[index - 1], {}, given[index]);
  }
  section_.changingEntries += fields[0].empty() ? 0 : 1;
  if (!fields[1].empty()) fields[1] = colorText(colorNumberOfFileText(fields[1]));
  addEntry(line, std::move(fields));
}

void CvtSectionPass::addEntry(const CvtLine& line, std::vector<std::wstring> fields) {
  section_.entries.push_back(std::move(fields));
  section_.entryPlaces.push_back({line.number, line.text});
}

void CvtSectionPass::reportLostEntries(size_t from) {
  for (size_t at = from; at < lines_.size(); ++at) {
    const CvtLine& line = lines_[at];
    if (line.folded == kFoldedEndOfSection || line.folded == kEndOfFile) return;
    if (!line.text.empty() && line.text.front() == L'[') return;  // the next section's header
    if (!line.text.empty()) report(CvtProblem::kAfterEmptyLine, line);
  }
}

void CvtSectionPass::report(CvtProblem problem, const CvtLine& line, std::wstring detail) {
  diagnostics_.push_back({problem, line.number, line.text, std::move(detail)});
}

}  // namespace kiv
