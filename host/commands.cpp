#include "host/commands.h"

#include "accmd.h"
#include "platform/host_output.h"
#include "rxdict.h"

namespace kiv {
namespace {

constexpr wchar_t kGroup[] = L"KIV_UTIL2";

void addCommand(AcEdCommandStack& stack, const wchar_t* globalName, const wchar_t* localName,
                AcRxFunctionPtr handler) {
  const Acad::ErrorStatus status =
      stack.addCommand(kGroup, globalName, localName, ACRX_CMD_MODAL, handler, nullptr, -1, nullptr);
  if (status != Acad::eOk) printError(std::wstring(L"ｺﾏﾝﾄﾞ[") + globalName + L"]を登録できませんでした.");
}

}  // namespace

void registerCommands() {
  AcEdCommandStack* stack = acedRegCmds;
  if (stack == nullptr) return printError(L"ｺﾏﾝﾄﾞを登録できる環境がありません.");
  addCommand(*stack, L"KIV_TOACAD", L"UT", interactiveCommand);
  addCommand(*stack, L"KIV_TOACAD2", L"UT2", conversionCommand);
}

void removeCommands() {
  if (AcEdCommandStack* stack = acedRegCmds) stack->removeGroup(kGroup);
}

}  // namespace kiv
