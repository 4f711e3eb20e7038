#include <string_view>

#include "aced.h"
#include "embedded/editor/host_state.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

ACRX_DEFINE_MEMBERS(AcRxDictionary, AcRxObject, nullptr)

namespace cad {
namespace {

class DynamicLinker : public AcRxDynamicLinker {
 public:
  bool loadModule(const ACHAR* file, bool printit, bool asCmd) override {
    return acrxLoadModule(file, printit, asCmd);
  }
  bool unloadModule(const ACHAR* file, bool asCmd) override { return acrxUnloadModule(file, asCmd); }
  bool unlockApplication(void* packet) const override { return hostState().modules.setLocked(packet, false); }
  bool lockApplication(void* packet) const override { return hostState().modules.setLocked(packet, true); }
  bool isApplicationLocked(const ACHAR* file) const override {
    return file != nullptr && hostState().modules.isLocked(file);
  }
};

class SystemRegistry : public AcRxDictionary {
 public:
  AcRxObject* at(const ACHAR* key) const override {
    const std::wstring_view wanted = key == nullptr ? L"" : key;
    if (wanted == L"DynamicLinker") return &linker_;
    if (wanted == L"ACAD_REGISTERED_COMMANDS") return &hostState().commands;
    if (wanted == ACED_EDITOR_OBJ) return &hostState().editorReactors;
    return nullptr;
  }

 private:
  mutable DynamicLinker linker_;
};

}  // namespace
}  // namespace cad

AcRxDictionary* acrxSysRegistry() {
  static cad::SystemRegistry registry;
  return &registry;
}
