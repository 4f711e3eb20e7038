#include "host/specification_automation.h"

#include <string>
#include <utility>
#include <vector>

#include "acutads.h"
#include "adscodes.h"
#include "base/files.h"
#include "base/fold.h"
#include "platform/host_output.h"
#include "spec/arrow_catalogue.h"
#include "spec/cvt_format.h"
#include "spec/cvt_names.h"
#include "spec/cvt_parser.h"
#include "spec/cvt_writer.h"
#include "spec/dimension_catalogue.h"
#include "spec/text_search_list.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

// What a report points to.
struct DiagnosticTexts {
  std::wstring failure;
  CvtDiagnostics diagnostics;
  std::vector<std::wstring> reasons;
  std::vector<KivDiagnostic> records;

  void complete() {
    for (const CvtDiagnostic& diagnostic : diagnostics) reasons.push_back(diagnosticReason(diagnostic));
    for (std::size_t i = 0; i < diagnostics.size(); ++i) {
      const CvtDiagnostic& diagnostic = diagnostics[i];
      records.push_back({static_cast<int>(diagnostic.problem), diagnostic.line,
                         dropsText(diagnostic.problem) ? 1 : 0, reasons[i].c_str(), diagnostic.text.c_str()});
    }
  }
};

template <class Report>
void pointTo(DiagnosticTexts& texts, Report& report) {
  texts.complete();
  report.failure = texts.failure.c_str();
  report.diagnosticCount = static_cast<int>(texts.records.size());
  report.diagnostics = texts.records.data();
}

void countContent(const ParsedCvt& parsed, KivSpecificationReport& out) {
  for (const CvtSection& section : parsed.sections) {
    out.settings += static_cast<int>(section.settings.size());
    out.entries += static_cast<int>(section.entries.size());
  }
  out.changes = parsed.changes();
}

DrawingNames namesOf(const KivDrawingNames& given) {
  DrawingNames names{given.drawing, {}, {}};
  const auto take = [](const KivNames& list, std::set<std::wstring>& into) {
    for (int i = 0; i < list.count; ++i) into.insert(base::upper(list.names[i]));
  };
  for (std::size_t table = 0; table < names.has.size(); ++table) {
    take(given.has[table], names.has[table]);
    take(given.used[table], names.used[table]);
  }
  return names;
}

bool hostMatches(const std::wstring& name, const std::wstring& pattern) {
  return acutWcMatch(name.c_str(), pattern.c_str()) == RTNORM;
}

int checkSpecification(const wchar_t* path, const KivDrawingNames* drawings, int count,
                       KivSpecificationReport* report) {
  if (path == nullptr || report == nullptr || (drawings == nullptr && count > 0)) return 0;
  static DiagnosticTexts texts;
  texts = {};
  *report = {};
  if (auto parsed = checkCvtFile(base::pathFromText(path)); parsed.ok()) {
    std::vector<DrawingNames> names;
    for (int i = 0; i < count; ++i) names.push_back(namesOf(drawings[i]));
    texts.failure = parsed.value().unusableReason();
    if (texts.failure.empty()) checkNames(parsed.value(), names, hostMatches);
    countContent(parsed.value(), *report);
    texts.diagnostics = std::move(parsed.value().diagnostics);
  } else {
    texts.failure = parsed.failure().reason;
  }
  report->usable = texts.failure.empty() ? 1 : 0;
  pointTo(texts, *report);
  return 1;
}

// Empty: it is written. The reason of a refusal by the writer is for its own message box, where that has
// none.
std::wstring saved(const Specification& specification, const wchar_t* path) {
  const CvtWriteResult result = writeSpecification(specification, base::pathFromText(path));
  if (result.ok()) return {};
  if (result.outcome == CvtWriteOutcome::kLayerMissing)
    return L"setting " + std::to_wstring(result.setting + 1) +
           L" of the layers has no condition on 画層; 画層 = * stands for all";
  return result.failure.reason.empty() ? result.message : result.failure.reason;
}

int formatSpecification(const wchar_t* path, const wchar_t* target, int drop, KivFormatReport* report) {
  if (path == nullptr || report == nullptr) return 0;
  static DiagnosticTexts texts;
  texts = {};
  *report = {};
  auto formatted = formatCvtFile(base::pathFromText(path), drop == 1);
  const bool isWanted = target != nullptr && target[0] != L'\0';
  if (!formatted.ok()) {
    report->end = kKivFormatFailed;
    texts.failure = formatted.failure().reason;
  } else if (!formatted.value().lost.empty() && drop != 1) {
    report->end = kKivLinesLost;
    texts.diagnostics = std::move(formatted.value().lost);
  } else {
    report->end = formatted.value().isInForm ? kKivInForm : kKivFormatted;
    const bool isThere = formatted.value().isInForm && isWanted && std::wstring(path) == target;
    if (isWanted && !isThere) texts.failure = saved(formatted.value().specification, target);
    if (!texts.failure.empty()) report->end = kKivFormatFailed;
  }
  pointTo(texts, *report);
  return 1;
}

std::wstring textOf(const wchar_t* text) { return text != nullptr ? text : L""; }

// Arrows are given by their block; files have the display form.
std::wstring valueOf(std::wstring_view variable, std::wstring value) {
  const int row = findDimensionVariable(variable);
  if (row < 0 || !dimensionCatalogueRow(row).isArrow()) return value;
  const ArrowChoice choice = arrowChoice(value);
  const ArrowName& arrow = arrowCatalogue()[static_cast<std::size_t>(choice.row)];
  return choice.block.empty() ? arrowText(arrow)
                              : std::wstring(arrow.displayName) + L" (" + choice.block + L")";
}

Item itemOf(const KivItem& given) {
  Item item{given.kind, given.inverted == 1, textOf(given.variable), textOf(given.value)};
  if (item.kind == kColorKind) item.value = colorText(colorNumberOfFileText(item.value));
  if (item.kind == kVariableKind) item.value = valueOf(item.variable, item.value);
  return item;
}

bool addSetting(const KivSetting& given, Specification& specification) {
  const Edited added = specification.addSetting(given.section);
  if (!added.ok()) return false;
  for (int i = 0; i < given.conditionCount; ++i) {
    if (!specification.addCondition(given.section, added.node.index, itemOf(given.conditions[i])).ok())
      return false;
  }
  for (int i = 0; i < given.resultCount; ++i) {
    if (!specification.addResult(given.section, added.node.index, itemOf(given.results[i])).ok())
      return false;
  }
  return true;
}

bool addEntry(const KivEntry& given, Specification& specification) {
  std::vector<std::wstring> fields(given.fields, given.fields + given.fieldCount);
  if (given.section == kLayerCreationSection && fields.size() > 1 && !fields[1].empty())
    fields[1] = colorText(colorNumberOfFileText(fields[1]));
  if (given.section == kDimensionSettingSection && fields.size() == 2)
    fields[1] = valueOf(fields[0], fields[1]);
  return specification.addEntry(given.section, {std::move(fields)}).ok();
}

std::wstring writeGiven(const KivSpecification* given, const wchar_t* path) {
  if (given == nullptr || path == nullptr) return L"nothing is given to be written";
  Specification specification;
  specification.remark = textOf(given->remark);
  for (int i = 0; i < given->settingCount; ++i) {
    if (!addSetting(given->settings[i], specification)) return L"its section does not take this setting";
  }
  for (int i = 0; i < given->entryCount; ++i) {
    if (!addEntry(given->entries[i], specification)) return L"its section does not take this entry";
  }
  return saved(specification, path);
}

std::wstring writeGivenList(const KivNames* texts, const wchar_t* path) {
  if (texts == nullptr || path == nullptr) return L"nothing is given to be written";
  const base::Status written =
      writeTextSearchList(base::pathFromText(path), {texts->names, texts->names + texts->count});
  return written.ok() ? std::wstring() : written.failure().reason;
}

// A text that stays until the next call.
template <class Write>
const wchar_t* kept(Write write) {
  static std::wstring reason;
  reason = L"writing was given up";
  guarded([&] { reason = write(); });
  return reason.c_str();
}

}  // namespace
}  // namespace kiv

int dll_kiv_checkSpecification(const wchar_t* path, KivSpecificationReport* report) {
  return dll_kiv_checkSpecificationFor(path, nullptr, 0, report);
}

int dll_kiv_checkSpecificationFor(const wchar_t* path, const KivDrawingNames* drawings, int count,
                                  KivSpecificationReport* report) {
  return kiv::guarded(0, [&] { return kiv::checkSpecification(path, drawings, count, report); });
}

int dll_kiv_formatSpecification(const wchar_t* path, const wchar_t* target, int drop,
                                KivFormatReport* report) {
  return kiv::guarded(0, [&] { return kiv::formatSpecification(path, target, drop, report); });
}

const wchar_t* dll_kiv_writeSpecification(const KivSpecification* specification, const wchar_t* path) {
  return kiv::kept([&] { return kiv::writeGiven(specification, path); });
}

const wchar_t* dll_kiv_writeTextList(const KivNames* texts, const wchar_t* path) {
  return kiv::kept([&] { return kiv::writeGivenList(texts, path); });
}
