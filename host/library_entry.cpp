// Attaching and detaching of the module's library.

#include <utility>

#include "host/module_state.h"

namespace kiv {

namespace {

// Not a static object: detaching uses it while the library's statics go.
ModuleState* theState = nullptr;

}  // namespace

ModuleState& moduleState() {
  if (!theState) theState = new ModuleState;
  return *theState;
}

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
