#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <utility>

namespace kivcli {
namespace {

using base::Failure;
using base::Result;
using base::Status;

Status setFormat(Arguments& arguments, const std::wstring& value) {
  constexpr std::pair<std::wstring_view, SaveFormat> kWords[] = {
      {L"dwg", SaveFormat::kDwg}, {L"dxf", SaveFormat::kDxf}, {L"dwt", SaveFormat::kDwt}};
  const auto word = std::ranges::find(kWords, value, &std::pair<std::wstring_view, SaveFormat>::first);
  if (word == std::end(kWords)) return Failure{L"--format " + value, L"the format is dxf, dwg or dwt"};
  arguments.format = word->second;
  return {};
}

Status setBlockScope(Arguments& arguments, const std::wstring& value) {
  if (value.size() != 1 || value[0] < L'0' || value[0] > L'2') {
    return Failure{L"--block-scope " + value,
                   L"the scope is 0 (block references), 1 (their definitions) or 2 (both)"};
  }
  arguments.blockScope = value[0] - L'0';
  return {};
}

struct Option {
  const wchar_t* name;
  bool takesValue;
  Status (*apply)(Arguments&, const std::wstring& value);
};

const std::array kConvertOptions = {
    Option{
        L"--spec", true,
        [](Arguments& a, const std::wstring& value) -> Status { return a.specification = value, Status(); }},
    Option{
        L"--out", true,
        [](Arguments& a, const std::wstring& value) -> Status { return a.outputFolder = value, Status(); }},
    Option{L"--format", true, setFormat},
    Option{L"--block-scope", true, setBlockScope},
    Option{L"--ignore-locks", false,
           [](Arguments& a, const std::wstring&) -> Status { return a.ignoreLocks = true, Status(); }},
    Option{L"--log", true,
           [](Arguments& a, const std::wstring& value) -> Status { return a.logFolder = value, Status(); }},
};

struct CallName {
  const wchar_t* name;
  Call call;
};
constexpr CallName kCallNames[] = {
    {L"convert", Call::kConvert}, {L"check", Call::kCheck},       {L"info", Call::kInfo},
    {L"help", Call::kHelp},       {L"--help", Call::kHelp},       {L"-h", Call::kHelp},
    {L"version", Call::kVersion}, {L"--version", Call::kVersion},
};

// Takes the option at words[at], and its value when it has one; `at` is left on the last word taken. `given`:
// the options in front of it.
Status takeOption(Arguments& arguments, const std::vector<std::wstring>& words, std::size_t& at,
                  std::set<std::wstring>& given) {
  const std::wstring& word = words[at];
  const std::size_t equals = word.find(L'=');
  const std::wstring name = word.substr(0, equals);
  const auto* option = std::find_if(kConvertOptions.begin(), kConvertOptions.end(),
                                    [&](const Option& candidate) { return name == candidate.name; });
  if (arguments.call != Call::kConvert || option == kConvertOptions.end()) {
    return Failure{name, L"there is no such option here; `kivcvt help` lists them"};
  }
  if (!given.insert(name).second) return Failure{name, L"this option is given twice"};
  if (!option->takesValue) {
    if (equals != std::wstring::npos) return Failure{name, L"this option takes no value"};
    return option->apply(arguments, L"");
  }
  std::wstring value;
  if (equals != std::wstring::npos) {
    value = word.substr(equals + 1);
  } else if (at + 1 < words.size()) {
    value = words[++at];
  }
  if (value.empty()) return Failure{name, L"this option needs a value after it"};
  return option->apply(arguments, value);
}

Status requireComplete(const Arguments& arguments) {
  if (arguments.call == Call::kConvert) {
    if (arguments.specification.empty()) {
      return Failure{L"--spec", L"please name the conversion specification: --spec FILE.cvt"};
    }
    if (arguments.outputFolder.empty()) {
      return Failure{L"--out", L"please name the folder for the converted drawings: --out DIR"};
    }
  }
  if (arguments.files.empty()) {
    return Failure{L"", arguments.call == Call::kCheck ? L"please name the CVT files to check"
                                                       : L"please name the drawings"};
  }
  if (std::find(arguments.files.begin(), arguments.files.end(), L"") != arguments.files.end()) {
    return Failure{L"", L"the name of a file is empty"};
  }
  return {};
}

}  // namespace

Result<Arguments> parseArguments(const std::vector<std::wstring>& words) {
  if (words.empty()) return Failure{L"", L"please say what to do: convert, check, info or help"};
  const auto* call = std::find_if(std::begin(kCallNames), std::end(kCallNames),
                                  [&](const CallName& name) { return words[0] == name.name; });
  if (call == std::end(kCallNames)) {
    return Failure{words[0], L"there is no such call; it is convert, check, info or help"};
  }
  Arguments arguments;
  arguments.call = call->call;
  if (arguments.call == Call::kHelp || arguments.call == Call::kVersion) return arguments;

  bool optionsEnded = false;
  std::set<std::wstring> given;
  for (std::size_t at = 1; at < words.size(); ++at) {
    const std::wstring& word = words[at];
    if (optionsEnded || !word.starts_with(L"-") || word == L"-") {
      arguments.files.push_back(word);
    } else if (word == L"--") {
      optionsEnded = true;
    } else if (word == L"--help" || word == L"-h") {
      arguments.call = Call::kHelp;
      return arguments;
    } else if (Status taken = takeOption(arguments, words, at, given); !taken) {
      return taken.failure();
    }
  }
  if (Status complete = requireComplete(arguments); !complete) return complete.failure();
  return arguments;
}

std::wstring usageText() {
  return LR"(kivcvt converts CAD drawings by the rules of a conversion specification (a CVT file).

  kivcvt convert --spec FILE.cvt --out DIR [OPTION...] DRAWING...
      converts every drawing into DIR, which is made when it is missing; a.dxf becomes DIR/a.DXF
      --format dxf|dwg|dwt   the format to save; without it a drawing keeps its own
      --block-scope 0|1|2    what to do with block references: 0 convert the references (default),
                             1 convert what their definitions hold, 2 both
      --ignore-locks         convert objects on locked layers too; the layers are locked again afterwards
      --log DIR              write the conversion log, a CSV file in code page 932, into DIR
      Files that the CVT file names are looked up beside it, linetype files and drawings of arrows then in the
      folders that KIV_SUPPORT_PATH in the environment lists (with ";" between them) and in the program's own.

  kivcvt check FILE.cvt...
      says what the reader makes of a CVT file, and every line it drops, with line number and reason

  kivcvt info DRAWING...
      version, code page, and counts of entities by type, layers, linetypes, text styles, blocks

  kivcvt help, kivcvt --version

Exit status: 0 all done; 1 some drawing failed or had a problem, lines of the CVT file are dropped, or
the log or standard output cannot be written, each named on standard error; 2 the command line or the
CVT file is unusable. Drawings are read and written as DXF; DWG and DWT are refused for now.)";
}

std::wstring versionText() { return L"kivcvt " KIV_VERSION; }

}  // namespace kivcli
