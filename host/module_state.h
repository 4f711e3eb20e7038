#pragma once
// State of the module as a library of the host.

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

enum LibraryReason { kDetach = 0, kAttach = 1 };

// Always 1. Other reasons do nothing.
int libraryEntry(void* instance, int reason);

}  // namespace kiv
