#include "host/automation.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "host/conversion_context.h"
#include "host/run_report.h"
#include "platform/guard.h"
#include "platform/paths.h"
#include "platform/settings.h"
#include "spec/cvt_parser.h"

namespace kiv {
namespace {

std::wstring textOf(const wchar_t* text) { return text != nullptr ? text : L""; }

void overrideInteger(const wchar_t* key, int value) {
  overrideCommonSetting(key, std::to_wstring(value).c_str());
}

KivRunEnd endOf(const RunReport* report) {
  if (report == nullptr) return kKivNeverRun;
  switch (report->outcome().end) {
    case RunEnd::kConverted:
      return kKivConverted;
    case RunEnd::kNoSpecification:
      return kKivNoSpecification;
    case RunEnd::kSpecificationUnreadable:
      return kKivSpecificationUnreadable;
    case RunEnd::kEmptyDrawing:
      return kKivEmptyDrawing;
  }
  return kKivNeverRun;
}

KivNoteReason reasonOf(RefusalReason refusal) {
  switch (refusal) {
    case RefusalReason::kNoSuchName:
      return kKivNoSuchName;
    case RefusalReason::kNotInThisVersion:
      return kKivNotInThisVersion;
    case RefusalReason::kBadValue:
      return kKivBadValue;
    case RefusalReason::kNotForObject:
      return kKivNotForObject;
    case RefusalReason::kNoSuchFile:
      return kKivNoSuchFile;
    case RefusalReason::kOther:
      break;
  }
  return kKivRefused;
}

KivRefuser refuserOf(Refuser refuser) {
  switch (refuser) {
    case Refuser::kObject:
      return kKivObjects;
    case Refuser::kLayer:
      return kKivLayers;
    case Refuser::kDrawing:
      break;
  }
  return kKivDrawing;
}

// What the pointers of a handed-out report point to.
struct ReportTexts {
  std::wstring drawing, savedPath, logFailure;
  std::vector<std::wstring> problems;
  std::vector<RefusalNote> notes;
  std::vector<const wchar_t*> problemPointers;
  std::vector<KivNote> noteRecords;
};

struct SpecificationTexts {
  std::wstring failure;
  CvtDiagnostics diagnostics;
  std::vector<std::wstring> reasons;
  std::vector<KivDiagnostic> records;
};

void fill(KivRunReport& out, ReportTexts& texts) {
  for (const std::wstring& problem : texts.problems) texts.problemPointers.push_back(problem.c_str());
  for (const RefusalNote& note : texts.notes) {
    texts.noteRecords.push_back(
        {note.kind.c_str(), note.value.c_str(), reasonOf(note.reason), note.count, refuserOf(note.by)});
  }
  out.drawing = texts.drawing.c_str();
  out.savedPath = texts.savedPath.c_str();
  out.logFailure = texts.logFailure.c_str();
  out.problemCount = static_cast<int>(texts.problemPointers.size());
  out.problems = texts.problemPointers.data();
  out.noteCount = static_cast<int>(texts.noteRecords.size());
  out.notes = texts.noteRecords.data();
}

void countContent(const ParsedCvt& parsed, KivSpecificationReport& out) {
  for (const CvtSection& section : parsed.sections) {
    out.settings += static_cast<int>(section.settings.size());
    out.entries += static_cast<int>(section.entries.size());
  }
  out.changes = parsed.changes();
}

void fill(KivSpecificationReport& out, SpecificationTexts& texts) {
  for (const CvtDiagnostic& diagnostic : texts.diagnostics) {
    texts.reasons.push_back(diagnosticReason(diagnostic));
  }
  for (std::size_t i = 0; i < texts.diagnostics.size(); ++i) {
    const CvtDiagnostic& diagnostic = texts.diagnostics[i];
    texts.records.push_back({static_cast<int>(diagnostic.problem), diagnostic.line,
                             dropsText(diagnostic.problem) ? 1 : 0, texts.reasons[i].c_str(),
                             diagnostic.text.c_str()});
  }
  out.failure = texts.failure.c_str();
  out.diagnosticCount = static_cast<int>(texts.records.size());
  out.diagnostics = texts.records.data();
}

int setConversion(const KivConversion* conversion) {
  ConversionContext& context = conversionContext();
  if (conversion == nullptr) {
    clearSettingOverrides();
    context = {};
    return 1;
  }
  if (conversion->saveFormat < 0 || conversion->saveFormat > 2) return 0;
  context.contextPaths = {
      textOf(conversion->specification), {}, ensureTrailingSeparator(textOf(conversion->outputFolder))};
  context.batchStartDocument = nullptr;
  context.batchRemaining = 0;
  context.saveFormat = conversion->saveFormat;
  const std::wstring logFile = textOf(conversion->logFile);
  overrideInteger(L"KivBlock", std::clamp(conversion->blockScope, 0, 2));
  overrideInteger(L"MorluxIgnoreLocks", conversion->ignoreLocks == 1 ? 1 : 0);
  overrideInteger(L"MorluxCreateLog", logFile.empty() ? 0 : 1);
  overrideCommonSetting(L"MorluxLogOutFile", logFile.c_str());
  return 1;
}

int lastRunReport(KivRunReport* report) {
  if (report == nullptr) return 0;
  static ReportTexts texts;
  texts = {};
  const RunReport* last = lastRun();
  if (last != nullptr) {
    texts.drawing = last->drawing();
    texts.savedPath = last->outcome().savedPath;
    texts.logFailure = last->logFailure();
    texts.problems = last->problems();
    texts.notes = last->notes();
  }
  *report = {};
  report->runs = runCount();
  report->end = endOf(last);
  fill(*report, texts);
  return 1;
}

int checkSpecification(const wchar_t* path, KivSpecificationReport* report) {
  if (path == nullptr || report == nullptr) return 0;
  static SpecificationTexts texts;
  texts = {};
  *report = {};
  if (auto parsed = checkCvtFile(base::pathFromText(path)); parsed.ok()) {
    texts.failure = parsed.value().unusableReason();
    countContent(parsed.value(), *report);
    texts.diagnostics = std::move(parsed.value().diagnostics);
  } else {
    texts.failure = parsed.failure().reason;
  }
  report->usable = texts.failure.empty() ? 1 : 0;
  fill(*report, texts);
  return 1;
}

}  // namespace
}  // namespace kiv

int dll_kiv_setConversion(const KivConversion* conversion) {
  return kiv::guarded(0, [&] { return kiv::setConversion(conversion); });
}

int dll_kiv_lastRunReport(KivRunReport* report) {
  return kiv::guarded(0, [&] { return kiv::lastRunReport(report); });
}

int dll_kiv_checkSpecification(const wchar_t* path, KivSpecificationReport* report) {
  return kiv::guarded(0, [&] { return kiv::checkSpecification(path, report); });
}
