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
  const bool isOpen = state.documents.find(path) != nullptr;
  const bool asks = isOpen || asksForReadOnly(path);
  if (asks && !readOnlyAccepted) {
    if (!input.takeIf(L"N", L"NO") && !input.peek()) return Outcome::kNeedInput;
    report({base::pathText(path), isOpen ? L"The drawing is open already and was not opened again."
                                         : L"The drawing is write-protected and was not opened."});
    return Outcome::kRefused;
  }
  const base::Status opened = asks ? state.documents.openReadOnly(path) : state.documents.open(path);
  if (opened) return Outcome::kDone;
  report(opened.failure());
  return Outcome::kRefused;
}

}  // namespace cad
