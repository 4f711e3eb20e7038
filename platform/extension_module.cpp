#include "platform/extension_module.h"

#include <algorithm>

namespace kiv {
namespace {

std::vector<const ExtensionModule*>& chain() {
  // Never destroyed: modules are detached while the library's statics go.
  static auto& modules = *new std::vector<const ExtensionModule*>;
  return modules;
}

}  // namespace

bool attachExtensionModule(ExtensionModule& module, void* instance) {
  if (module.initialised) return true;
  if (!instance) return false;
  module = {true, instance, instance};
  chain().insert(chain().begin(), &module);
  return true;
}

void detachExtensionModule(ExtensionModule& module) {
  if (!module.initialised) return;
  auto& modules = chain();
  modules.erase(std::remove(modules.begin(), modules.end(), &module), modules.end());
  module = {};
}

const std::vector<const ExtensionModule*>& resourceChain() { return chain(); }

}  // namespace kiv
