// kivcvt convert.

#include <algorithm>
#include <iterator>
#include <utility>

#include "cli/commands.h"
#include "cli/options/calls.h"
#include "cli/options/takes.h"
#include "cli/reports/batch_report.h"

namespace kivcli {
namespace {

using base::Failure;
using base::Status;

Status takeFormat(Arguments& arguments, const std::wstring& value) {
  constexpr std::pair<std::wstring_view, SaveFormat> kWords[] = {
      {L"dwg", SaveFormat::kDwg}, {L"dxf", SaveFormat::kDxf}, {L"dwt", SaveFormat::kDwt}};
  const auto word = std::ranges::find(kWords, value, &std::pair<std::wstring_view, SaveFormat>::first);
  if (word == std::end(kWords)) return Failure{L"", tr(L"the format is dxf, dwg or dwt")};
  arguments.format = word->second;
  return {};
}

Status takeShard(Arguments& arguments, const std::wstring& value) {
  constexpr int kMost = 100'000;
  const std::size_t slash = value.find(L'/');
  const std::optional<int> count =
      slash == std::wstring::npos ? std::nullopt : wholeNumber(value.substr(slash + 1), 1, kMost);
  const std::optional<int> index = count ? wholeNumber(value.substr(0, slash), 1, *count) : std::nullopt;
  if (!index) return Failure{L"", tr(L"please give the part and the number of parts, for example 2/8")};
  arguments.shard = {*index, *count};
  return {};
}

Status takeReport(Arguments& arguments, const std::wstring& value) {
  if (!isReportName(value)) return Failure{L"", tr(L"the name of a report ends in .html or .json")};
  arguments.reports.push_back(value);
  return {};
}

constexpr OptionRow kOptions[] = {
    {L"--spec", L"FILE.cvt", L"the conversion specification", takeText<&Arguments::specification>},
    {L"--out", L"DIR",
     L"the folder for the converted drawings, which is made when it is missing; a.dxf becomes DIR/a.DXF",
     takeText<&Arguments::outputFolder>},
    {L"--format", L"dxf|dwg|dwt", L"the format to save; without it a drawing keeps its own", takeFormat},
    {L"--block-scope", L"0|1|2",
     L"what to do with block references: 0 convert the references (default), 1 convert what their "
     L"definitions hold, 2 both",
     takeBlockScope},
    {L"--ignore-locks", L"", L"convert objects on locked layers too; the layers are locked again afterwards",
     takeSwitch<&Arguments::ignoreLocks>},
    {L"--dry-run", L"", L"say what would change, setting by setting, and write nothing; --out is not needed",
     takeSwitch<&Arguments::isDryRun>},
    {L"--changes", L"", L"list each change, entity by entity", takeSwitch<&Arguments::listsChanges>},
    {L"--report", L"FILE.html|FILE.json",
     L"write a report of the batch: a page with pictures (.html), or the same facts for programs (.json)",
     takeReport, true},
    {L"--log", L"DIR", L"write the conversion log, a CSV file in code page 932, into DIR",
     takeText<&Arguments::logFolder>},
    {L"--files-from", L"FILE",
     L"convert also the drawings that FILE names, one a line, or with a zero byte behind each; - is standard "
     L"input",
     takeText<&Arguments::filesFrom>},
    {L"--recursive", L"",
     L"convert the drawings of folders that are given and of all below them; their folders are made "
     L"below DIR",
     takeSwitch<&Arguments::recursive>},
    {L"--shard", L"I/N",
     L"convert every N-th drawing only, beginning with the I-th: one of N machines that share the work",
     takeShard},
    {L"--resume", L"",
     L"skip drawings whose converted file is newer than the drawing, the CVT file and the text search lists "
     L"beside it",
     takeSwitch<&Arguments::resume>},
    {L"--jobs", L"N",
     L"how many drawings to convert at a time, 1 to 256; without it as many as there are processors to use",
     takeNumber<&Arguments::jobs, 1, 256>},
    {L"--timeout", L"SECONDS", L"give up a drawing that takes longer, and go on with the others",
     takeNumber<&Arguments::timeout, 1, 1'000'000>},
    {L"--no-sync", L"",
     L"do not wait until converted drawings have reached the disk: faster, but a power cut can damage them",
     takeSwitch<&Arguments::noSync>},
};

constexpr const wchar_t* kExamples[] = {
    L"kivcvt convert --spec office.cvt --out converted drawings/*.dxf",
    L"kivcvt convert --spec office.cvt --out converted --recursive --resume --log logs drawings",
    L"kivcvt convert --spec office.cvt --out converted --files-from drawings.txt --timeout 60",
    L"kivcvt convert --spec office.cvt --dry-run --changes plan.dxf",
};

Status checkComplete(const Arguments& arguments) {
  if (arguments.specification.empty()) {
    return Failure{L"--spec", tr(L"please name the conversion specification: --spec FILE.cvt")};
  }
  if (arguments.outputFolder.empty() && !arguments.isDryRun) {
    return Failure{L"--out", tr(L"please name the folder for the converted drawings: --out DIR")};
  }
  if (arguments.isDryRun && !arguments.logFolder.empty())
    return Failure{L"--log", tr(L"nothing is written with --dry-run")};
  if (arguments.files.empty() && arguments.filesFrom.empty())
    return Failure{L"", tr(L"please name the drawings")};
  return {};
}

constexpr CallRow kCalls[] = {
    {L"convert", L"--spec FILE.cvt --out DIR [OPTION...] DRAWING...",
     L"converts every drawing by the rules of a CVT file and saves it into DIR",
     L"Files that the CVT file names are looked up beside it, linetype files and drawings of arrows then in "
     L"the "
     L"folders that KIV_SUPPORT_PATH in the environment lists (with \";\" between them) and in the program's "
     L"own.",
     kOptions, kExamples, checkComplete, runConvert},
};

}  // namespace

std::span<const CallRow> convertCalls() { return kCalls; }

}  // namespace kivcli
