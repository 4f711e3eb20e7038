#pragma once
// The host's own commands, each in its own file.

#include "embedded/editor/command_line.h"

namespace cad {

Outcome runUndo(TokenReader& input, HostState& state);       // UNDO Begin | End | number
Outcome runUndoOne(TokenReader& input, HostState& state);    // U
Outcome runRegen(TokenReader& input, HostState& state);      // nothing is drawn, so nothing to do
Outcome runInsert(TokenReader& input, HostState& state);     // -INSERT name, options, point
Outcome runOpen(TokenReader& input, HostState& state);       // OPEN path
Outcome runSaveAs(TokenReader& input, HostState& state);     // SAVEAS format, options, path
Outcome runQuickSave(TokenReader& input, HostState& state);  // QSAVE
Outcome runClose(TokenReader& input, HostState& state);      // CLOSE, Y to discard changes
Outcome runQuit(TokenReader& input, HostState& state);       // QUIT, Y to discard changes
Outcome runScript(TokenReader& input, HostState& state);     // SCRIPT path
Outcome runResume(TokenReader& input, HostState& state);     // RESUME

}  // namespace cad
