// What is asked of CVT files: kivcvt check, fmt and learn.

#include "base/fold.h"
#include "cli/commands.h"
#include "cli/language/language.h"
#include "cli/options/calls.h"
#include "cli/options/takes.h"

namespace kivcli {
namespace {

using base::Failure;
using base::Status;

constexpr OptionRow kCheckOptions[] = {
    {L"--drawings", L"DRAWING|FOLDER",
     L"also tell of layers, linetypes and text styles that these drawings, and those in the folder, lack or "
     L"do "
     L"not use; may be given more than once",
     takeInList<&Arguments::drawings>, true},
    {L"--json", L"", L"print what is found as JSON", takeSwitch<&Arguments::asJson>},
};
constexpr OptionRow kFmtOptions[] = {
    {L"--out", L"FILE.cvt", L"write there and leave the file as it is", takeText<&Arguments::outputFile>},
    {L"--check", L"", L"write nothing; name the files that would be written otherwise",
     takeSwitch<&Arguments::checksOnly>},
    {L"--drop", L"", L"also write files of which lines that do nothing get lost",
     takeSwitch<&Arguments::dropsLines>},
};
constexpr OptionRow kLearnOptions[] = {
    {L"--out", L"NEW.cvt", L"the CVT file that is written", takeText<&Arguments::outputFile>},
    {L"--json", L"", L"print what is found as JSON", takeSwitch<&Arguments::asJson>},
};

constexpr const wchar_t* kCheckExamples[] = {L"kivcvt check office.cvt archive.cvt",
                                             L"kivcvt check office.cvt --drawings received"};
constexpr const wchar_t* kFmtExamples[] = {L"kivcvt fmt office.cvt", L"kivcvt fmt --check *.cvt"};
constexpr const wchar_t* kLearnExamples[] = {L"kivcvt learn plan.dxf plan-by-hand.dxf --out learned.cvt"};

Status checkFiles(const Arguments& arguments) {
  if (arguments.files.empty()) return Failure{L"", tr(L"please name the CVT files to check")};
  return {};
}

Status checkFormatted(const Arguments& arguments) {
  if (arguments.files.empty()) return Failure{L"", tr(L"please name the CVT files to format")};
  if (!arguments.outputFile.empty() && arguments.checksOnly)
    return Failure{L"--out", tr(L"nothing is written with --check")};
  if (!arguments.outputFile.empty() && arguments.files.size() > 1)
    return Failure{L"--out", tr(L"one file is written; please name one CVT file")};
  return {};
}

Status checkLearned(const Arguments& arguments) {
  if (arguments.files.size() != 2)
    return Failure{L"", tr(L"please name two drawings: one before and one after it was converted by hand")};
  if (arguments.outputFile.empty())
    return Failure{L"--out", tr(L"please name the CVT file that is to be written: --out NEW.cvt")};
  // Not one of the drawings by a slip.
  if (!base::upper(arguments.outputFile).ends_with(L".CVT"))
    return Failure{L"--out " + arguments.outputFile, tr(L"a conversion specification is a file *.cvt")};
  return {};
}

constexpr CallRow kCalls[] = {
    {L"check", L"[OPTION...] FILE.cvt...",
     L"says what the reader makes of a CVT file, and every line it drops, with line number and reason",
     L"Names are held against drawings only where --drawings names some. What a setting, or a list of the "
     L"file, "
     L"writes itself counts as there.",
     kCheckOptions, kCheckExamples, checkFiles, runCheck},
    {L"fmt", L"[OPTION...] FILE.cvt...",
     L"writes CVT files in the form in which the dialog saves them, in place or to another file",
     L"What the reader keeps stays as it is. A file of which lines would be lost is left alone, and they are "
     L"named.",
     kFmtOptions, kFmtExamples, checkFormatted, runFmt},
    {L"learn", L"A.dxf B.dxf --out NEW.cvt",
     L"finds the rules that convert a drawing as somebody did by hand: A before it, B after it",
     L"A is converted with the new CVT file at once, and every change that the rules do not make is named. "
     L"The exit "
     L"status is 1 when there are any.",
     kLearnOptions, kLearnExamples, checkLearned, runLearn},
};

}  // namespace

std::span<const CallRow> specificationCalls() { return kCalls; }

}  // namespace kivcli
