#include "cadhost/command_runner.h"

#include <exception>

#include "base/codepage.h"
#include "base/fold.h"

namespace cadhost {
namespace {

std::wstring_view restOf(std::wstring_view line) {
  line = base::trim(line);
  const std::size_t blank = line.find(L' ');
  return blank == std::wstring_view::npos ? std::wstring_view() : base::trim(line.substr(blank));
}

}  // namespace

void CommandRunner::runLines() {
  while (const std::optional<std::wstring> line = input_.takeLine()) {
    if (*line == kCancelLine) {
      cancelPrompt();
      continue;
    }
    const bool isName = !host_.hasOpenPrompt();
    hands_.print((isName ? L"\nコマンド: " : L"\n: ") + *line);
    const std::wstring name = isName ? cad::commandName(*line) : std::wstring();
    const std::wstring rest = base::upper(restOf(*line));
    if ((name == L"QUIT" || name == L"EXIT") && (rest.empty() || rest == L"Y" || rest == L"YES")) {
      if (hands_.quit(!rest.empty())) return;
      continue;
    }
    static_cast<void>(run(*line));  // the host has printed what went wrong
  }
}

base::Status CommandRunner::run(const std::wstring& line) {
  if (input_.isRunning()) return base::Failure{line, L"コマンドの実行中です。"};
  input_.beginCommand();
  hands_.begun();
  base::Status status;
  try {
    status = host_.execute(line);
  } catch (const std::exception& error) {
    status = base::Failure{line, base::fromUtf8(error.what())};
    hands_.print(L"\n" + status.failure().text());
  }
  input_.endCommand();
  hands_.ended();
  return status;
}

void CommandRunner::cancelPrompt() {
  if (input_.isRunning() || !host_.hasOpenPrompt()) return;
  host_.cancelPrompt();
  hands_.print(L"\n*キャンセル*");
  hands_.ended();
}

}  // namespace cadhost
