// What is asked of the program itself: help, version, and what a system wants to know of it.

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/manual/manual.h"
#include "cli/options/calls.h"

namespace kivcli {
namespace {

using base::Failure;
using base::Status;

constexpr const wchar_t* kHelpNames[] = {L"--help", L"-h"};
constexpr const wchar_t* kHelpExamples[] = {L"kivcvt help convert", L"kivcvt convert --help"};
constexpr const wchar_t* kVersionNames[] = {L"--version"};

Status checkCall(const Arguments& arguments) {
  if (arguments.files.size() > 1) return Failure{arguments.files[1], tr(L"please name one call")};
  if (!arguments.files.empty() && findCall(arguments.files[0]) == nullptr) {
    return Failure{arguments.files[0], tr(L"there is no such call; `kivcvt help` lists them")};
  }
  return {};
}

Status checkNothing(const Arguments& arguments) {
  if (!arguments.files.empty()) return Failure{arguments.files[0], tr(L"this call takes no files")};
  return {};
}

int runHelp(const Arguments& arguments) {
  printText(arguments.files.empty() ? programHelp() : callHelp(*findCall(arguments.files[0])));
  return kAllDone;
}

int runVersion(const Arguments&) {
  printText(L"kivcvt " KIV_VERSION);
  return kAllDone;
}

constexpr const wchar_t* kManualExamples[] = {L"kivcvt manual | man -l -"};
constexpr const wchar_t* kCompletionExamples[] = {L"source <(kivcvt completion bash)"};

Status checkShell(const Arguments& arguments) {
  if (arguments.files.size() == 1 && !completionScript(arguments.files[0]).empty()) return {};
  return Failure{arguments.files.empty() ? L"" : arguments.files[0],
                 tr(L"please name the shell: bash, zsh or fish")};
}

int runManual(const Arguments&) {
  printText(manualPage());
  return kAllDone;
}

int runCompletion(const Arguments& arguments) {
  printText(completionScript(arguments.files[0]));
  return kAllDone;
}

constexpr CallRow kCalls[] = {
    {L"help",
     L"[CALL]",
     L"tells what a call does and which options it takes",
     L"",
     {},
     kHelpExamples,
     checkCall,
     runHelp,
     kHelpNames},
    {L"manual",
     L"",
     L"prints the manual page, for man(1)",
     L"",
     {},
     kManualExamples,
     checkNothing,
     runManual},
    {L"completion",
     L"bash|zsh|fish",
     L"prints the script by which a shell completes the program's calls, options and files",
     L"",
     {},
     kCompletionExamples,
     checkShell,
     runCompletion},
    {L"version", L"", L"tells the program's version", L"", {}, {}, checkNothing, runVersion, kVersionNames},
};

}  // namespace

std::span<const CallRow> programCalls() { return kCalls; }

}  // namespace kivcli
