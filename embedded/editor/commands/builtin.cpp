#include "embedded/editor/commands/builtin.h"

#include "base/fold.h"

namespace cad {
namespace {

constexpr BuiltinCommand kCommands[] = {
    {L"UNDO", runUndo, false},      {L"U", runUndoOne, false},       {L"REGEN", runRegen, false},
    {L"REGENALL", runRegen, false}, {L"-INSERT", runInsert, true},   {L"OPEN", runOpen, false},
    {L"SAVEAS", runSaveAs, false},  {L"QSAVE", runQuickSave, false}, {L"CLOSE", runClose, false},
    {L"QUIT", runQuit, false},      {L"SCRIPT", runScript, false},   {L"RESUME", runResume, false},
};

}  // namespace

const BuiltinCommand* findBuiltin(std::wstring_view name) {
  for (const BuiltinCommand& command : kCommands)
    if (base::equalFolded(command.name, name)) return &command;
  return nullptr;
}

}  // namespace cad
