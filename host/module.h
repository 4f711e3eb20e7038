#pragma once
// The module as a library of the host: its state and its commands.

#include <string>

#include "platform/extension_module.h"

namespace kiv {

struct ModuleState {
  bool commandsRegistered = false;
  std::wstring startupFolder;  // the process's current folder when the host initialised the module
  void* moduleInstance = nullptr;
  ExtensionModule extension;
};

// Made when first asked for; detaching the library ends it.
ModuleState& moduleState();

// Group KIV_UTIL2: KIV_TOACAD (UT) and KIV_TOACAD2 (UT2).
void registerCommands();
void removeCommands();

void interactiveCommand();  // KIV_TOACAD
void conversionCommand();   // KIV_TOACAD2

// Types the interactive command, whatever waits for input before.
inline constexpr const wchar_t* kInteractiveCommandText =
    L"\x03"
    L"KIV_TOACAD\n";

}  // namespace kiv
