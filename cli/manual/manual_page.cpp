// The page for man(1), by the macros that every formatter has.

#include <utility>

#include "cli/language/language.h"
#include "cli/manual/manual.h"
#include "cli/options/calls.h"

namespace kivcli {
namespace {

// As text of a page: nothing in it is a command of the formatter.
std::wstring plain(std::wstring_view text) {
  std::wstring safe;
  for (const wchar_t c : text) {
    if (c == L'\\') {
      safe += L"\\e";
    } else if (c == L'-') {
      safe += L"\\-";
    } else {
      safe += c;
      if (c == L'、' || c == L'。') safe += L"\\:";  // a line may end here, where there are no blanks
    }
  }
  return safe.starts_with(L'.') || safe.starts_with(L'\'') ? L"\\&" + safe : safe;
}

std::wstring bold(std::wstring_view text) { return L"\\fB" + plain(text) + L"\\fR"; }
std::wstring italic(std::wstring_view text) { return L"\\fI" + plain(text) + L"\\fR"; }

class Page {
 public:
  void line(const std::wstring& text) { text_ += text + L"\n"; }
  void section(const std::wstring& title) { line(L".SH " + title); }
  void paragraph(std::wstring_view text) {
    line(L".PP");
    line(plain(text));
  }
  void item(const std::wstring& term, std::wstring_view text) {
    line(L".TP");
    line(term);
    line(plain(text));
  }
  std::wstring take() {
    text_.pop_back();
    return std::move(text_);
  }

 private:
  std::wstring text_;
};

void addCall(Page& page, const CallRow& call) {
  page.line(std::wstring(L".SS ") + call.name);
  page.line(bold(std::wstring(L"kivcvt ") + call.name) + L" " + italic(call.synopsis));
  page.paragraph(tr(call.summary));
  for (const OptionRow& option : call.options) {
    std::wstring term = bold(option.name);
    if (option.value[0] != L'\0') term += L" " + italic(option.value);
    page.item(term, tr(option.help));
  }
  if (call.notes[0] != L'\0') page.paragraph(tr(call.notes));
}

void addSurroundings(Page& page) {
  page.section(tr(L"EXIT STATUS"));
  page.item(L"0", tr(L"everything was done"));
  page.item(L"1", tr(L"some drawing failed or had a problem, lines of the CVT file are dropped, or the log "
                     L"or standard output "
                     L"cannot be written; each is named on standard error"));
  page.item(L"2", tr(L"the command line or the CVT file is unusable"));
  page.item(L"130", tr(L"interrupted by Ctrl-C; by another signal as that signal ends programs"));
  page.section(tr(L"ENVIRONMENT"));
  page.item(
      bold(L"KIV_SUPPORT_PATH"),
      tr(L"folders, with \";\" between them, in which linetype files, shape fonts and drawings of arrows are "
         L"looked for behind the folder of the CVT file"));
  page.item(
      bold(L"LC_ALL") + L", " + bold(L"LC_MESSAGES") + L", " + bold(L"LANG") + L", " + bold(L"LANGUAGE"),
      tr(L"the language of help and messages: Japanese or English"));
  page.section(tr(L"FILES"));
  page.item(italic(L"KIVGUI.ARX"), tr(L"the module that converts, beside the program"));
  page.item(italic(L"support"), tr(L"the linetype files that come with the program, in a folder beside it"));
}

}  // namespace

std::wstring manualPage() {
  Page page;
  page.line(L".TH KIVCVT 1 \"\" \"kivcvt " KIV_VERSION L"\" KIV");
  page.line(L".ad l");
  page.section(tr(L"NAME"));
  page.line(L"kivcvt \\- " + plain(tr(L"converts CAD drawings by rules")));
  page.section(tr(L"SYNOPSIS"));
  bool isFirst = true;
  for (const CallRow* call : calls()) {
    if (!std::exchange(isFirst, false)) page.line(L".br");
    page.line(bold(std::wstring(L"kivcvt ") + call->name) + L" " + italic(call->synopsis));
  }
  page.section(tr(L"DESCRIPTION"));
  page.line(
      plain(tr(L"kivcvt converts CAD drawings by the rules of a conversion specification (a CVT file).")));
  page.paragraph(
      tr(L"Drawings are read and written as DXF and DWG. Each keeps its bytes but for what the rules name."));
  page.section(tr(L"CALLS"));
  for (const CallRow* call : calls()) addCall(page, *call);
  addSurroundings(page);
  page.section(tr(L"EXAMPLES"));
  page.line(L".nf");
  for (const CallRow* call : calls()) {
    for (const wchar_t* example : call->examples) page.line(plain(example));
  }
  page.line(L".fi");
  return page.take();
}

}  // namespace kivcli
