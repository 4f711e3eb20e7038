// Attaching and detaching of the module's library.

#include "host/module_state.h"

namespace kiv {

ModuleState& moduleState() {
  // Never destroyed: detaching uses it while the library's statics go.
  static ModuleState& state = *new ModuleState;
  return state;
}

int libraryEntry(void* instance, int reason) {
  ModuleState& state = moduleState();
  if (reason == kAttach) {
    attachExtensionModule(state.extension, instance);
    state.moduleInstance = instance;
  } else if (reason == kDetach) {
    detachExtensionModule(state.extension);
  }
  return 1;
}

}  // namespace kiv

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
