#include "host/automation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/files.h"
#include "host/conversion_context.h"
#include "host/run_report.h"
#include "platform/paths.h"
#include "platform/settings.h"
#include "spec/cvt_run_reader.h"
#include "spec/item_kinds.h"

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
    case RefusalReason::kOther:
      break;
  }
  return kKivRefused;
}

// What the pointers of a handed-out report point to.
struct ReportTexts {
  std::wstring drawing, savedPath;
  std::vector<std::wstring> problems;
  std::vector<ReportedNote> notes;
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
  for (const ReportedNote& note : texts.notes) {
    texts.noteRecords.push_back({note.kind.c_str(), note.value.c_str(), reasonOf(note.reason), note.count});
  }
  out.drawing = texts.drawing.c_str();
  out.savedPath = texts.savedPath.c_str();
  out.problemCount = static_cast<int>(texts.problemPointers.size());
  out.problems = texts.problemPointers.data();
  out.noteCount = static_cast<int>(texts.noteRecords.size());
  out.notes = texts.noteRecords.data();
}

void countLines(const WorkLists& work, KivSpecificationReport& out) {
  for (std::size_t i = 0; i < work.lists.size(); ++i) {
    const int lines = static_cast<int>(work.lists[i].size());
    (isRuleSection(static_cast<int>(i) + 1) ? out.settings : out.entries) += lines;
  }
}

void fill(KivSpecificationReport& out, SpecificationTexts& texts) {
  for (const CvtDiagnostic& diagnostic : texts.diagnostics) {
    texts.reasons.push_back(diagnosticReason(diagnostic));
  }
  for (std::size_t i = 0; i < texts.diagnostics.size(); ++i) {
    const CvtDiagnostic& diagnostic = texts.diagnostics[i];
    texts.records.push_back({static_cast<int>(diagnostic.problem), diagnostic.line, texts.reasons[i].c_str(),
                             diagnostic.text.c_str()});
  }
  out.failure = texts.failure.c_str();
  out.diagnosticCount = static_cast<int>(texts.records.size());
  out.diagnostics = texts.records.data();
}

// Why a file is no specification: what the reader said of the whole file, else that it has no section.
std::wstring failureOf(const std::filesystem::path& path, const CvtDiagnostics& diagnostics) {
  if (const auto content = base::readFile(path); !content) return content.failure().reason;
  for (const CvtDiagnostic& diagnostic : diagnostics) {
    if (diagnostic.problem == CvtProblem::kNotText) return diagnosticReason(diagnostic);
  }
  return L"the file has none of the sections of a conversion specification";
}

}  // namespace
}  // namespace kiv

int dll_kiv_setConversion(const KivConversion* conversion) {
  using namespace kiv;
  ConversionContext& context = conversionContext();
  if (conversion == nullptr) {
    clearSettingOverrides();
    context = {};
    return 1;
  }
  if (conversion->saveFormat < 0 || conversion->saveFormat > 2) return 0;
  context.specification = textOf(conversion->specification);
  context.outputFolder = ensureTrailingSeparator(textOf(conversion->outputFolder));
  context.saveFormat = conversion->saveFormat;
  const std::wstring logFile = textOf(conversion->logFile);
  overrideInteger(L"KivBlock", std::clamp(conversion->blockScope, 0, 2));
  overrideInteger(L"MorluxIgnoreLocks", conversion->ignoreLocks == 1 ? 1 : 0);
  overrideInteger(L"MorluxCreateLog", logFile.empty() ? 0 : 1);
  overrideCommonSetting(L"MorluxLogOutFile", logFile.c_str());
  return 1;
}

int dll_kiv_lastRunReport(KivRunReport* report) {
  using namespace kiv;
  if (report == nullptr) return 0;
  static ReportTexts texts;
  texts = {};
  const RunReport* last = lastRun();
  if (last != nullptr) {
    texts.drawing = last->drawing();
    texts.savedPath = last->outcome().savedPath;
    texts.problems = last->problems();
    texts.notes = last->notes();
  }
  *report = {};
  report->runs = runCount();
  report->end = endOf(last);
  fill(*report, texts);
  return 1;
}

int dll_kiv_checkSpecification(const wchar_t* path, KivSpecificationReport* report) {
  using namespace kiv;
  if (path == nullptr || report == nullptr) return 0;
  static SpecificationTexts texts;
  texts = {};
  *report = {};
  WorkLists work;
  const std::filesystem::path file = base::pathFromText(path);
  report->usable = readWorkLists(file, work, &texts.diagnostics) ? 1 : 0;
  if (!report->usable) texts.failure = failureOf(file, texts.diagnostics);
  countLines(work, *report);
  fill(*report, texts);
  return 1;
}
