// The host's application messages.

#include <filesystem>
#include <system_error>

#include "base/files.h"
#include "host/automation.h"
#include "host/commands.h"
#include "host/conversion_context.h"
#include "host/module_state.h"
#include "platform/guard.h"
#include "platform/host_messages.h"
#include "platform/release.h"
#include "platform/screen_scale.h"
#include "rxdefs.h"
#include "rxdict.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "ui/main_dialog.h"

namespace kiv {
namespace {

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
  // A dialog hidden for a batch would be left to windows whose code has gone.
  conversionContext().dialog.reset();
  releasePlatform();
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
}  // namespace kiv

extern "C" KIV_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
  kiv::guarded([&] { kiv::handle(message, packet); });
  return AcRx::kRetOK;
}
