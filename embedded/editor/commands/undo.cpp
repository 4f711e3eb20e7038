#include "embedded/editor/commands/builtin.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"

namespace cad {
namespace {

Outcome undoGroups(Document& document, int count) {
  if (document.undoGroupOpen) {
    document.drawing().endUndoGroup();
    document.undoGroupOpen = false;
  }
  for (int i = 0; i < count; ++i) {
    if (document.drawing().undo()) continue;
    printText(L"\nEverything has been undone.");
    break;
  }
  return Outcome::kDone;
}

}  // namespace

Outcome runUndo(TokenReader& input, HostState& state) {
  const std::optional<Token> option = input.next();
  if (!option) return Outcome::kNeedInput;
  Document& document = *state.documents.current();
  if (option->is(L"BE") || option->is(L"BEGIN")) {
    document.drawing().beginUndoGroup();
    document.undoGroupOpen = true;
    return Outcome::kDone;
  }
  if (option->is(L"E") || option->is(L"END")) {
    if (document.undoGroupOpen) document.drawing().endUndoGroup();
    document.undoGroupOpen = false;
    return Outcome::kDone;
  }
  const std::optional<double> number = option->text.empty() ? 1 : option->number();
  if (number && *number >= 1 && *number <= 32767) return undoGroups(document, static_cast<int>(*number));
  report({L"UNDO", L"\"" + option->text + L"\" is neither a number of commands, Begin nor End."});
  return Outcome::kRefused;
}

Outcome runUndoOne(TokenReader&, HostState& state) { return undoGroups(*state.documents.current(), 1); }

Outcome runRegen(TokenReader&, HostState&) { return Outcome::kDone; }

}  // namespace cad
