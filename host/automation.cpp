#include "host/automation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "base/paths.h"
#include "host/conversion_context.h"
#include "host/run_report.h"
#include "platform/host_output.h"
#include "platform/settings.h"
#include "spec/cvt_parser.h"

namespace kiv {
namespace {

std::wstring textOf(const wchar_t* text) { return text != nullptr ? text : L""; }

void overrideInteger(const wchar_t* key, int value) {
  overrideCommonSetting(key, std::to_wstring(value).c_str());
}

struct SpecificationTexts {
  std::wstring failure;
  CvtDiagnostics diagnostics;
  std::vector<std::wstring> reasons;
  std::vector<KivDiagnostic> records;
};

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
  const std::optional<base::SaveFormat> format = base::saveFormat(conversion->saveFormat);
  if (!format) return 0;
  context.contextPaths = {
      textOf(conversion->specification), {}, base::ensureTrailingSeparator(textOf(conversion->outputFolder))};
  context.batchStartDocument = nullptr;
  context.batchRemaining = 0;
  context.saveFormat = *format;
  const std::wstring logFile = textOf(conversion->logFile);
  overrideInteger(kBlockScopeKey, std::clamp(conversion->blockScope, 0, 2));
  overrideInteger(kIgnoreLocksKey, conversion->ignoreLocks == 1 ? 1 : 0);
  overrideInteger(kCreateLogKey, logFile.empty() ? 0 : 1);
  overrideCommonSetting(kLogFileKey, logFile.c_str());
  return 1;
}

int lastRunReport(KivRunReport* report) {
  if (report == nullptr) return 0;
  *report = lastRun();
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
