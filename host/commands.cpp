#include "host/commands.h"

#include "accmd.h"
#include "rxdict.h"

namespace kiv {
namespace {

constexpr wchar_t kGroup[] = L"KIV_UTIL2";

AcEdCommandStack* commandStack() {
  return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

void addCommand(const wchar_t* globalName, const wchar_t* localName, AcRxFunctionPtr handler) {
  commandStack()->addCommand(kGroup, globalName, localName, ACRX_CMD_MODAL, handler, nullptr, -1, nullptr);
}

}  // namespace

void registerCommands() {
  addCommand(L"KIV_TOACAD", L"UT", interactiveCommand);
  addCommand(L"KIV_TOACAD2", L"UT2", conversionCommand);
}

void removeCommands() { commandStack()->removeGroup(kGroup); }

}  // namespace kiv
