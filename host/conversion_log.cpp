#include "host/conversion_log.h"

#include <cerrno>
#include <fstream>
#include <utility>

#include "base/clock.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text_files.h"
#include "platform/settings.h"

namespace kiv {
namespace {

constexpr wchar_t kHeader[] = L"日時,ファイル名,結果\n";

std::wstring entryText(const std::wstring& time, const std::wstring& drawing,
                       const std::vector<std::wstring>& messages) {
  const std::wstring start = time + L"," + drawing + L",";
  // The blank before OK is part of the format.
  if (messages.empty()) return start + L" OK\n";
  std::wstring text = start + messages.front() + L"\n";
  for (std::size_t i = 1; i < messages.size(); ++i) text += L",," + messages[i] + L"\n";
  return text;
}

}  // namespace

ConversionLog::ConversionLog(std::wstring drawing) : drawing_(std::move(drawing)) {
  if (readCommonInteger(kCreateLogKey, 0) != 0) logFile_ = readCommonText(kLogFileKey, L"");
  if (!logFile_.empty()) time_ = base::localTimeText(L"%Y年%m月%d日 %H:%M:%S");
}

void ConversionLog::addMessage(const std::wstring& text) {
  if (!logFile_.empty()) messages_.add(text);
}

base::Status ConversionLog::writeEntry() const {
  if (logFile_.empty()) return {};
  const bool existed = base::fileExists(logFile_);
  const std::filesystem::path path = base::pathFromText(logFile_);
  const std::wstring text = (existed ? L"" : kHeader) + entryText(time_, drawing_, messages_.texts());
  const std::string bytes = base::encodeText(text).bytes;
  errno = 0;
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file ? base::Status() : base::fileFailure(path, errno != 0 ? errno : EIO);
}

}  // namespace kiv
