#include "base/files.h"
#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace cad {

Outcome runOpen(TokenReader& input, HostState& state) {
  const std::optional<Token> typed = input.nextPath();
  if (!typed) return Outcome::kNeedInput;
  std::filesystem::path path = findFile(typed->text);
  if (path.empty()) path = base::pathFromText(typed->text);
  const bool readOnlyAccepted = input.takeIf(L"Y", L"YES");
  if (isWriteProtected(path) && !readOnlyAccepted) {
    if (input.takeIf(L"N", L"NO") || input.peek()) {
      report({base::pathText(path), L"The drawing is write-protected and was not opened."});
      return Outcome::kRefused;
    }
    return Outcome::kNeedInput;
  }
  const base::Status opened = state.documents.open(path);
  if (opened) return Outcome::kDone;
  report(opened.failure());
  return Outcome::kRefused;
}

}  // namespace cad
