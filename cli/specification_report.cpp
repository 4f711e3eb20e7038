#include "cli/specification_report.h"

#include <filesystem>
#include <system_error>

#include "base/files.h"
#include "cli/console.h"

namespace kivcli {

std::wstring fullPath(const std::wstring& given) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(base::pathFromText(given), error);
  return error ? given : base::pathText(absolute);
}

std::wstring diagnosticLine(const std::wstring& file, const KivDiagnostic& diagnostic) {
  std::wstring line = file;
  if (diagnostic.line > 0) line += L":" + std::to_wstring(diagnostic.line);
  line += diagnostic.dropped != 0 ? L": dropped: " : L": warning: ";
  line += diagnostic.reason;
  if (diagnostic.text != nullptr && diagnostic.text[0] != L'\0')
    line += std::wstring(L": ") + diagnostic.text;
  return line;
}

bool reportSpecification(const std::wstring& file, const KivSpecificationReport& report) {
  if (report.usable == 0) {
    complain(file + L": " + (report.failure != nullptr ? report.failure : L"cannot be used"));
    return false;
  }
  for (int i = 0; i < report.diagnosticCount; ++i) {
    complain(diagnosticLine(file, report.diagnostics[i]));
  }
  return true;
}

int droppedLines(const KivSpecificationReport& report) {
  int count = 0, last = 0;
  for (int i = 0; i < report.diagnosticCount; ++i) {
    const KivDiagnostic& diagnostic = report.diagnostics[i];
    if (diagnostic.dropped == 0 || (count > 0 && diagnostic.line == last)) continue;
    last = diagnostic.line;
    ++count;
  }
  return count;
}

std::wstring droppedText(int lines) { return counted(lines, L"line is dropped", L"lines are dropped"); }

std::wstring counted(int count, const wchar_t* one, const wchar_t* many) {
  return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

}  // namespace kivcli
