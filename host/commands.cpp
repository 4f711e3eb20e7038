#include "host/commands.h"

#include "accmd.h"
#include "platform/host_output.h"
#include "rxdict.h"

namespace kiv {
namespace {

constexpr wchar_t kGroup[] = L"KIV_UTIL2";

// Null, and said so, when the host offers none.
AcEdCommandStack* commandStack() {
  AcEdCommandStack* stack = acedRegCmds;
  if (stack == nullptr) printError(L"ｺﾏﾝﾄﾞを登録できる環境がありません.");
  return stack;
}

void addCommand(const wchar_t* globalName, const wchar_t* localName, AcRxFunctionPtr handler) {
  AcEdCommandStack* stack = commandStack();
  if (stack == nullptr) return;
  const Acad::ErrorStatus status =
      stack->addCommand(kGroup, globalName, localName, ACRX_CMD_MODAL, handler, nullptr, -1, nullptr);
  if (status != Acad::eOk) printError(std::wstring(L"ｺﾏﾝﾄﾞ[") + globalName + L"]を登録できませんでした.");
}

}  // namespace

void registerCommands() {
  addCommand(L"KIV_TOACAD", L"UT", interactiveCommand);
  addCommand(L"KIV_TOACAD2", L"UT2", conversionCommand);
}

void removeCommands() {
  if (AcEdCommandStack* stack = commandStack()) stack->removeGroup(kGroup);
}

}  // namespace kiv
