#pragma once
// The editor, and who is told of its commands.

#include "acadstrc.h"
#include "accmd.h"
#include "acdb.h"
#include "acdocman.h"
#include "acedCmdNF.h"
#include "acedads.h"
#include "rxregsvc.h"

// Told of every command, also of those that a program or a script runs, by its global name, upper-case.
// Nothing may be asked or run by commands meanwhile; sendStringToExecute() is the way.
class AcEditorReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEditorReactor);
  virtual void commandWillStart(const ACHAR* cmdStr);
  // One of the three for each that has started.
  virtual void commandEnded(const ACHAR* cmdStr);
  virtual void commandCancelled(const ACHAR* cmdStr);
  virtual void commandFailed(const ACHAR* cmdStr);
};

class AcEditor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEditor);
  // The reactor stays its owner's, who removes it before it goes; also while it is told something.
  virtual void addReactor(AcEditorReactor* newObj) = 0;
  virtual void removeReactor(AcEditorReactor* delObj) = 0;
};

#define ACED_EDITOR_OBJ L"AcEditor"
#define acedEditor AcEditor::cast(acrxSysRegistry()->at(ACED_EDITOR_OBJ))
