// Scripts by which shells complete command lines of kivcvt.

#include <cwctype>

#include "cli/joined.h"
#include "cli/language/language.h"
#include "cli/manual/manual.h"
#include "cli/manual/wanted_words.h"

namespace kivcli {
namespace {

std::wstring callNames() { return joined(wantedValue(L"CALL").words, L" "); }

// In single quotes, for any of the shells.
std::wstring quoted(std::wstring_view text, std::wstring_view apostrophe) {
  std::wstring quote = L"'";
  for (const wchar_t c : text) quote += c == L'\'' ? std::wstring(apostrophe) : std::wstring(1, c);
  return quote + L"'";
}

// "*.[cC][vV][tT]", since names of drawings come in both cases.
std::wstring filePattern(const WantedWord& wanted) {
  if (wanted.anyFile) return L"*";
  std::vector<std::wstring> patterns;
  for (const std::wstring& extension : wanted.extensions) {
    std::wstring pattern = L"*.";
    for (const wchar_t c : extension)
      pattern += std::wstring(L"[") + c + static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c))) + L"]";
    patterns.push_back(pattern);
  }
  return patterns.size() == 1 ? patterns[0] : L"@(" + joined(patterns, L"|") + L")";
}

// --- bash ----------------------------------------------------------------------------------------------

std::wstring bashAction(const WantedWord& wanted) {
  if (!wanted.words.empty()) return L"_kivcvt_words '" + joined(wanted.words, L" ") + L"'";
  if (wanted.folder) return L"_kivcvt_folders";
  return wanted.isFile() ? L"_kivcvt_files '" + filePattern(wanted) + L"'" : L":";
}

std::wstring bashCases(const CallRow& call) {
  const std::wstring name = call.name;
  std::wstring cases, options = L"--help";
  for (const OptionRow& option : call.options) {
    options += std::wstring(L" ") + option.name;
    if (option.value[0] == L'\0') continue;
    cases += L"    " + name + L"," + option.name + L",*) " + bashAction(wantedValue(option.value)) + L" ;;\n";
  }
  cases += L"    " + name + L",*,-*) _kivcvt_words '" + options + L"' ;;\n";
  return cases + L"    " + name + L",*) " + bashAction(wantedArgument(call)) + L" ;;\n";
}

std::wstring bashScript() {
  std::wstring script =
      LR"(# Completes kivcvt in bash: source <(kivcvt completion bash)
_kivcvt_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word"); }
_kivcvt_folders() { compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- "$word"); }
_kivcvt_files() {
  compopt -o filenames
  mapfile -t COMPREPLY < <({ compgen -d -- "$word"; compgen -f -X "!$1" -- "$word"; } | sort -u)
}
_kivcvt() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} extglob
  if [[ $word == = ]]; then word=
  elif [[ $before == = ]]; then before=${COMP_WORDS[COMP_CWORD-2]}
  fi
  COMPREPLY=()
  extglob=$(shopt -p extglob)
  shopt -s extglob
  case ${COMP_CWORD/#1/call},$before,$word in
    call,*) _kivcvt_words ')";
  script += callNames() +
            LR"( --help --version' ;;
    *) case ${COMP_WORDS[1]},$before,$word in
)";
  for (const CallRow* call : calls()) script += bashCases(*call);
  return script +
         LR"(    esac ;;
  esac
  $extglob
}
complete -F _kivcvt kivcvt)";
}

// --- zsh -----------------------------------------------------------------------------------------------

std::wstring zshAction(const WantedWord& wanted) {
  if (!wanted.words.empty()) return L"(" + joined(wanted.words, L" ") + L")";
  if (wanted.folder) return L"_files -/";
  if (!wanted.isFile()) return L" ";
  if (wanted.anyFile) return L"_files";
  return L"_files -g \"(#i)*.(" + joined(wanted.extensions, L"|") + L")\"";
}

// What is said of an option or call, without the marks of the specification that it stands in.
std::wstring zshText(std::wstring_view text) {
  std::wstring escaped;
  for (const wchar_t c : text) {
    if (c == L'[' || c == L']' || c == L':' || c == L'\\') escaped += L'\\';
    escaped += c;
  }
  return escaped;
}

std::wstring zshWord(const std::wstring& text) { return quoted(text, L"'\\''"); }

std::wstring zshScript() {
  std::wstring script =
      L"#compdef kivcvt\n# Completes kivcvt in zsh: source <(kivcvt completion zsh)\n"
      L"_kivcvt() {\n  local -a calls=(\n";
  for (const CallRow* call : calls())
    script += L"    " + zshWord(std::wstring(call->name) + L":" + zshText(tr(call->summary))) + L"\n";
  script +=
      L"  )\n  if ((CURRENT == 2)); then _describe call calls; return; fi\n"
      L"  local call=$words[2]\n  shift words; ((CURRENT--))\n  case $call in\n";
  for (const CallRow* call : calls()) {
    script += std::wstring(L"    ") + call->name + L") _arguments";
    for (const OptionRow& option : call->options) {
      std::wstring row = std::wstring(option.repeats ? L"*" : L"") + option.name;
      if (option.value[0] != L'\0') row += L"=";
      row += L"[" + zshText(tr(option.help)) + L"]";
      if (option.value[0] != L'\0')
        row += L":" + zshText(option.value) + L":" + zshAction(wantedValue(option.value));
      script += L" \\\n      " + zshWord(row);
    }
    script += L" \\\n      " + zshWord(L"*: :" + zshAction(wantedArgument(*call))) + L" ;;\n";
  }
  // Read from a folder of the shell's functions, the file is the function's first call.
  return script +
         L"  esac\n}\n"
         L"if [[ $funcstack[1] == _kivcvt ]]; then _kivcvt \"$@\"; else compdef _kivcvt kivcvt; fi";
}

// --- fish ----------------------------------------------------------------------------------------------

std::wstring fishArguments(const WantedWord& wanted) {
  if (!wanted.words.empty()) return L" -a '" + joined(wanted.words, L" ") + L"'";
  if (wanted.folder) return L" -a '(__fish_complete_directories)'";
  if (wanted.anyFile) return L" -F";
  std::wstring commands;
  for (const std::wstring& extension : wanted.extensions)
    commands += (commands.empty() ? L"" : L"; ") + std::wstring(L"__fish_complete_suffix .") + extension;
  return commands.empty() ? L"" : L" -a '(" + commands + L")'";
}

std::wstring fishScript() {
  std::wstring script =
      L"# Completes kivcvt in fish: kivcvt completion fish | source\ncomplete -c kivcvt -f\n";
  for (const CallRow* call : calls()) {
    const auto text = [](const wchar_t* english) { return quoted(tr(english), L"\\'"); };
    script += std::wstring(L"complete -c kivcvt -n __fish_use_subcommand -a ") + call->name + L" -d " +
              text(call->summary) + L"\n";
    const std::wstring start =
        std::wstring(L"complete -c kivcvt -n '__fish_seen_subcommand_from ") + call->name + L"'";
    for (const OptionRow& option : call->options) {
      script += start + L" -l " + std::wstring_view(option.name).substr(2).data();
      if (option.value[0] != L'\0') script += L" -r" + fishArguments(wantedValue(option.value));
      script += L" -d " + text(option.help) + L"\n";
    }
    if (const std::wstring arguments = fishArguments(wantedArgument(*call)); !arguments.empty())
      script += start + arguments + L"\n";
  }
  script.pop_back();
  return script;
}

}  // namespace

std::wstring completionScript(std::wstring_view shell) {
  if (shell == L"bash") return bashScript();
  if (shell == L"zsh") return zshScript();
  return shell == L"fish" ? fishScript() : std::wstring();
}

}  // namespace kivcli
