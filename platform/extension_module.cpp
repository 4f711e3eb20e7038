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

ResourcesFirst::ResourcesFirst(const ExtensionModule& module) : module_(&module) {
  auto& modules = chain();
  const auto at = std::find(modules.begin(), modules.end(), module_);
  if (at == modules.end() || at == modules.begin()) return;
  before_ = *(at - 1);
  std::rotate(modules.begin(), at, at + 1);
}

ResourcesFirst::~ResourcesFirst() {
  auto& modules = chain();
  const auto now = std::find(modules.begin(), modules.end(), module_);
  const auto before = std::find(modules.begin(), modules.end(), before_);
  if (now == modules.end() || before == modules.end() || before < now) return;
  std::rotate(now, now + 1, before + 1);
}

}  // namespace kiv
