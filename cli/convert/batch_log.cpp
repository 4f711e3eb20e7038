#include "cli/convert/batch_log.h"

#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>

#include "base/clock.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/paths.h"

namespace kivcli {
namespace {

// The line of titles stands once in a file.
std::string_view belowTitles(std::string_view entries) { return entries.substr(entries.find('\n') + 1); }

}  // namespace

BatchLog::BatchLog(const std::wstring& folder) {
  if (folder.empty()) return;
  file_ = base::pathFromText(base::fullPath(folder)) /
          base::pathFromText(base::localTimeText(base::kLogNameFormat));
}

void BatchLog::add(const DrawingReport& report) {
  if (failure_.empty()) failure_ = report.logFailure;
  if (report.logEntries.empty()) return;
  std::error_code error;
  const std::string_view text = std::filesystem::exists(file_, error) ? belowTitles(report.logEntries)
                                                                      : std::string_view(report.logEntries);
  errno = 0;
  std::ofstream file(file_, std::ios::binary | std::ios::app);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file && failure_.empty()) failure_ = base::fileFailure(file_, errno != 0 ? errno : EIO).text();
}

}  // namespace kivcli
