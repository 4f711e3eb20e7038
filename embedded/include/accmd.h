#pragma once
// The command stack: groups of commands that modules register.

#include "AdAChar.h"
#include "acadstrc.h"
#include "adesk.h"
#include "rxdict.h"

struct HINSTANCE__;
typedef HINSTANCE__* HINSTANCE;

class AcEdUIContext;

using AcRxFunctionPtr = void (*)();

constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x00000000;
constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x00000001;
constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x00000002;
constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x00000004;
constexpr Adesk::Int32 ACRX_CMD_SESSION = 0x00200000;

class AcEdCommand : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdCommand);
  virtual const ACHAR* globalName() const = 0;
  virtual const ACHAR* localName() const = 0;
  virtual Adesk::Int32 commandFlags() const = 0;
  virtual AcRxFunctionPtr functionAddr() const = 0;
};

class AcEdCommandStack : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcEdCommandStack);
  // Makes the group when it is missing. eDuplicateKey: the group has a command of that global or local name.
  virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName,
                                       Adesk::Int32 flags, AcRxFunctionPtr function,
                                       AcEdUIContext* context = nullptr, int fcode = -1,
                                       HINSTANCE resources = nullptr, AcEdCommand** made = nullptr) = 0;
  // By global or local name, ignoring case; NULL when absent. Groups are searched newest first.
  virtual AcEdCommand* lookupCmd(const ACHAR* name, bool globalName, bool allGroups = true) const = 0;
  virtual Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) = 0;
  virtual Acad::ErrorStatus removeGroup(const ACHAR* group) = 0;  // eKeyNotFound when there is none
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"))
