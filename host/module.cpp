#include "host/module.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "accmd.h"
#include "base/files.h"
#include "host/automation.h"
#include "host/batch_turns.h"
#include "host/conversion_context.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/screen_scale.h"
#include "platform/settings.h"
#include "rxdefs.h"
#include "rxdict.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "ui/main_dialog.h"

namespace kiv {
namespace {

// Not a static object: detaching uses it while the library's statics go.
ModuleState* theState = nullptr;

enum LibraryReason { kDetach = 0, kAttach = 1 };

// The library comes or goes. Always 1; other reasons do nothing.
int libraryEntry(void* instance, int reason) {
  if (reason == kAttach) {
    attachExtensionModule(moduleState().extension, instance);
    moduleState().moduleInstance = instance;
  } else if (reason == kDetach && theState) {
    detachExtensionModule(theState->extension);
    delete std::exchange(theState, nullptr);
  }
  return 1;
}

// --- The commands

constexpr wchar_t kGroup[] = L"KIV_UTIL2";

void addCommand(AcEdCommandStack& stack, const wchar_t* globalName, const wchar_t* localName,
                AcRxFunctionPtr handler) {
  const Acad::ErrorStatus status =
      stack.addCommand(kGroup, globalName, localName, ACRX_CMD_MODAL, handler, nullptr, -1, nullptr);
  if (status != Acad::eOk) printError(std::wstring(L"ｺﾏﾝﾄﾞ[") + globalName + L"]を登録できませんでした.");
}

// --- The host's application messages

constexpr std::size_t kLongestFolder = 260;

void captureStartupFolder() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::current_path(error);
  if (error) return;
  const std::wstring text = base::pathText(folder);
  if (text.size() <= kLongestFolder) moduleState().startupFolder = text;
}

void initialise(void* packet) {
  if (auto* linker = AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"))) {
    linker->unlockApplication(packet);
  }
  acrxRegisterAppMDIAware(packet);
  if (!moduleState().commandsRegistered) {
    moduleState().commandsRegistered = true;
    registerCommands();
  }
  initScreenScale(hostMainWindow());
  captureStartupFolder();
}

void withdraw() {
  abandonBatch();
  // A dialog hidden for a batch would be left to windows whose code has gone.
  conversionContext().dialog.reset();
  releaseDialogs();
  closeSettingsStore();
  if (!moduleState().commandsRegistered) return;
  moduleState().commandsRegistered = false;
  removeCommands();
}

void handle(AcRx::AppMsgCode message, void* packet) {
  switch (message) {
    case AcRx::kInitAppMsg:
      return initialise(packet);
    case AcRx::kUnloadAppMsg:
    case AcRx::kQuitMsg:
      return withdraw();
    default:
      return;
  }
}

}  // namespace

ModuleState& moduleState() {
  if (!theState) theState = new ModuleState;
  return *theState;
}

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

extern "C" KIV_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
  kiv::guarded([&] { kiv::handle(message, packet); });
  return AcRx::kRetOK;
}

#if defined(_WIN32)

extern "C" int __stdcall DllMain(void* instance, unsigned long reason, void*) {
  return kiv::libraryEntry(instance, static_cast<int>(reason));
}

#else

namespace {

// Any address inside the module tells it from others.
const char instanceMark = 0;

[[gnu::constructor]] void attach() { kiv::libraryEntry(const_cast<char*>(&instanceMark), kiv::kAttach); }
[[gnu::destructor]] void detach() { kiv::libraryEntry(const_cast<char*>(&instanceMark), kiv::kDetach); }

}  // namespace

#endif
