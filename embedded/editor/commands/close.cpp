#include <algorithm>

#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace cad {
namespace {

Outcome refuseModified(const Document& document) {
  report({document.name(), L"the drawing has unsaved changes and was not closed"});
  return Outcome::kRefused;
}

}  // namespace

Outcome runClose(TokenReader& input, HostState& state) {
  Document* document = state.documents.current();
  const bool discard = input.takeIf(L"Y", L"YES");
  if (document->drawing().isModified() && !discard) return refuseModified(*document);
  state.documents.closeAfterCommands(document);
  return Outcome::kDone;
}

// Closes every document; the process itself belongs to the program around the host.
Outcome runQuit(TokenReader& input, HostState& state) {
  const bool discard = input.takeIf(L"Y", L"YES");
  const auto& documents = state.documents.all();
  const auto modified = std::find_if(documents.begin(), documents.end(),
                                     [](const auto& each) { return each->drawing().isModified(); });
  if (modified != documents.end() && !discard) return refuseModified(**modified);
  for (const auto& each : documents) state.documents.closeAfterCommands(each.get());
  return Outcome::kDone;
}

}  // namespace cad
