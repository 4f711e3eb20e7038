// Help as text, from the rows of calls and options.

#include <algorithm>

#include "cli/language/language.h"
#include "cli/options/calls.h"
#include "cli/text_width.h"

namespace kivcli {
namespace {

constexpr std::size_t kColumns = 100;
constexpr std::size_t kOptionColumn = 28;  // where the text of an option begins

void addLine(std::wstring& help, const std::wstring& line) { help += line + L"\n"; }

// `text` below a margin, which the first line already has something of.
void addBelow(std::wstring& help, std::wstring firstLine, const std::wstring& text, std::size_t margin) {
  if (columnsOf(firstLine) > margin) {
    addLine(help, firstLine);
    firstLine.clear();
  }
  firstLine.append(margin - std::min(margin, columnsOf(firstLine)), L' ');
  for (const std::wstring& line : wrapped(text, kColumns - margin)) {
    addLine(help, firstLine + line);
    firstLine.assign(margin, L' ');
  }
}

std::wstring callLine(const CallRow& call) {
  std::wstring line = std::wstring(L"kivcvt ") + call.name;
  if (call.synopsis[0] != L'\0') line += std::wstring(L" ") + call.synopsis;
  return line;
}

std::wstring withoutLastLineEnd(std::wstring text) {
  while (text.ends_with(L'\n')) text.pop_back();
  return text;
}

}  // namespace

std::wstring programHelp() {
  std::wstring help;
  addBelow(help, L"",
           tr(L"kivcvt converts CAD drawings by the rules of a conversion specification (a CVT file)."), 0);
  for (const CallRow* call : calls()) {
    addLine(help, L"");
    addLine(help, L"  " + callLine(*call));
    addBelow(help, L"", tr(call->summary), 6);
  }
  addLine(help, L"");
  addBelow(help, L"",
           tr(L"`kivcvt help CALL` lists the options of a call. \"--\" ends them: what follows are files."),
           0);
  addLine(help, L"");
  addBelow(
      help, L"",
      tr(L"Exit status: 0 all done; 1 some drawing failed or had a problem, lines of the CVT file are "
         L"dropped, or "
         L"the log or standard output cannot be written, each named on standard error; 2 the command line or "
         L"the "
         L"CVT file is unusable; 130 interrupted. Drawings are read and written as DXF and DWG; each keeps "
         L"its format."),
      0);
  return withoutLastLineEnd(help);
}

std::wstring callHelp(const CallRow& call) {
  std::wstring help;
  addLine(help, callLine(call));
  addBelow(help, L"", tr(call.summary), 4);
  if (!call.options.empty()) addLine(help, L"");
  for (const OptionRow& option : call.options) {
    std::wstring start = std::wstring(L"  ") + option.name;
    if (option.value[0] != L'\0') start += std::wstring(L" ") + option.value;
    addBelow(help, start + L"  ", tr(option.help), kOptionColumn);
  }
  if (call.notes[0] != L'\0') {
    addLine(help, L"");
    addBelow(help, L"", tr(call.notes), 0);
  }
  if (!call.examples.empty()) {
    addLine(help, L"");
    addLine(help, tr(L"Examples:"));
    for (const wchar_t* example : call.examples) addLine(help, std::wstring(L"  ") + example);
  }
  return withoutLastLineEnd(help);
}

}  // namespace kivcli
