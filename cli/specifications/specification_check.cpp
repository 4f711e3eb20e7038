#include "cli/specifications/specification_check.h"

#include "cli/console.h"
#include "cli/language/language.h"

namespace kivcli {
namespace {

// "FILE:LINE: dropped: REASON: TEXT" or "FILE:LINE: warning: ...", without the line for the whole file.
std::wstring diagnosticLine(const std::wstring& file, const KivDiagnostic& diagnostic) {
  std::wstring line = file;
  if (diagnostic.line > 0) line += L":" + std::to_wstring(diagnostic.line);
  line += L": " + tr(diagnostic.dropped != 0 ? L"dropped" : L"warning") + L": ";
  line += translated(diagnostic.reason);
  if (diagnostic.text != nullptr && diagnostic.text[0] != L'\0')
    line += std::wstring(L": ") + diagnostic.text;
  return line;
}

}  // namespace

bool reportSpecification(const std::wstring& file, const KivSpecificationReport& report) {
  if (report.usable == 0) {
    complain(file + L": " + (report.failure != nullptr ? translated(report.failure) : tr(L"cannot be used")));
    return false;
  }
  complainOfLines(file, report.diagnostics, report.diagnosticCount);
  return true;
}

std::vector<std::wstring> diagnosticLines(const std::wstring& file, const KivSpecificationReport& report) {
  std::vector<std::wstring> lines;
  for (int i = 0; i < report.diagnosticCount; ++i)
    lines.push_back(diagnosticLine(file, report.diagnostics[i]));
  return lines;
}

void complainOfLines(const std::wstring& file, const KivDiagnostic* diagnostics, int count) {
  for (int i = 0; i < count; ++i) complain(diagnosticLine(file, diagnostics[i]));
}

std::wstring counted(int count, const wchar_t* one, const wchar_t* many) {
  return count == 1 ? tr(one) : tr(many, {std::to_wstring(count)});
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

std::wstring droppedText(int lines) { return counted(lines, L"1 line is dropped", L"%1 lines are dropped"); }

}  // namespace kivcli
