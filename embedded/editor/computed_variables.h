#pragma once
// Values that the host makes up when somebody asks for them.

#include "embedded/drawing/storage.h"

namespace cad {

struct HostState;

Variable drawingName(HostState& state);      // DWGNAME: "plan.dxf"
Variable drawingFolder(HostState& state);    // DWGPREFIX, with its last separator
Variable drawingHasFile(HostState& state);   // DWGTITLED
Variable drawingModified(HostState& state);  // DBMOD: 0 or 1
Variable drawingCodePage(HostState& state);  // DWGCODEPAGE, as the drawing declares it
Variable drawingWritable(HostState& state);  // WRITESTAT
Variable supportFolders(HostState& state);   // ACADPREFIX, each with a semicolon
Variable temporaryFolder(HostState& state);  // TEMPPREFIX, with its last separator
Variable dateAndTime(HostState& state);      // CDATE: YYYYMMDD.HHMMSS
Variable commandNames(HostState& state);     // CMDNAMES: the running commands, outermost first
Variable commandsActive(HostState& state);   // CMDACTIVE: bit 1 while a command runs

}  // namespace cad
