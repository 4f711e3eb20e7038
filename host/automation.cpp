#include "host/automation.h"

#include <algorithm>
#include <optional>
#include <string>

#include "base/paths.h"
#include "host/conversion_context.h"
#include "host/run_report.h"
#include "platform/host_output.h"
#include "platform/settings.h"

namespace kiv {
namespace {

std::wstring textOf(const wchar_t* text) { return text != nullptr ? text : L""; }

void overrideInteger(const wchar_t* key, int value) {
  overrideCommonSetting(key, std::to_wstring(value).c_str());
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

int observeRuns(const KivRunObserver* observer) {
  std::optional<KivRunObserver>& kept = conversionContext().observer;
  kept.reset();
  if (observer == nullptr) return 1;
  const bool isWhole = observer->settingBegins != nullptr && observer->objectHit != nullptr &&
                       observer->resultBegins != nullptr && observer->resultEnds != nullptr &&
                       observer->settingEnds != nullptr;
  if (!isWhole) return 0;
  kept = *observer;
  return 1;
}

int lastRunReport(KivRunReport* report) {
  if (report == nullptr) return 0;
  *report = lastRun();
  return 1;
}

}  // namespace
}  // namespace kiv

int dll_kiv_setConversion(const KivConversion* conversion) {
  return kiv::guarded(0, [&] { return kiv::setConversion(conversion); });
}

int dll_kiv_observeRuns(const KivRunObserver* observer) {
  return kiv::guarded(0, [&] { return kiv::observeRuns(observer); });
}

int dll_kiv_lastRunReport(KivRunReport* report) {
  return kiv::guarded(0, [&] { return kiv::lastRunReport(report); });
}
