// kivcvt: converts drawings by a specification, from the command line.

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "base/child_process.h"
#include "base/codepage.h"
#include "base/files.h"
#include "base/temporary_files.h"
#include "base/terminal.h"
#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/options/calls.h"

namespace {

using namespace kivcli;

int run(const std::vector<std::wstring>& words) {
  const base::Result<Arguments> arguments = parseArguments(words);
  if (!arguments) {
    complainOfProgram(arguments.failure());
    return kUnusable;
  }
  return arguments.value().call->run(arguments.value());
}

// Nothing below throws on purpose; what is left is the system's own, memory above all.
int runGuarded(const std::vector<std::wstring>& words) {
  try {
    return run(words);
  } catch (const std::exception& error) {
    complain(L"kivcvt: " + tr(L"the run was given up: %1", {base::fromUtf8(error.what())}));
    return kSomeFailed;
  }
}

int runToEnd(const std::vector<std::wstring>& words) {
  base::prepareStandardStreams();
  base::removeTemporaryFilesOnSignals();
  const int status = runGuarded(words);
  if (!printingStatus()) {
    complain(L"kivcvt: " +
             tr(L"standard output cannot be written: %1", {translated(printingStatus().failure().reason)}));
  }
  base::endAsInterrupted();
  return printingStatus() ? status : std::max(status, kSomeFailed);
}

}  // namespace

#ifdef _WIN32
int wmain(int count, wchar_t** words) { return runToEnd({words + 1, words + count}); }
#else
int main(int count, char** words) {
  // Most words are file names, which a system may hold in another encoding than UTF-8.
  std::vector<std::wstring> wide;
  for (int i = 1; i < count; ++i) wide.push_back(base::pathText(words[i]));
  return runToEnd(wide);
}
#endif
