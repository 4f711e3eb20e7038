#include "platform/extension_module.h"

namespace kiv {
namespace {

// The chain owns nothing, so nothing of it is left when the library goes.
ExtensionModule* first = nullptr;

// The link that leads to the module; that at the end, which is null, when it is not in the chain.
ExtensionModule** linkTo(const ExtensionModule* module) {
  ExtensionModule** link = &first;
  while (*link && *link != module) link = &(*link)->next;
  return link;
}

void insertAt(ExtensionModule** link, ExtensionModule& module) {
  module.next = *link;
  *link = &module;
}

void takeOut(ExtensionModule** link) { *link = (*link)->next; }

}  // namespace

bool attachExtensionModule(ExtensionModule& module, void* instance) {
  if (module.initialised) return true;
  if (!instance) return false;
  module = {true, instance, instance, nullptr};
  insertAt(&first, module);
  return true;
}

void detachExtensionModule(ExtensionModule& module) {
  if (!module.initialised) return;
  if (ExtensionModule** link = linkTo(&module); *link) takeOut(link);
  module = {};
}

ResourcesFirst::ResourcesFirst(ExtensionModule& module) : module_(&module) {
  ExtensionModule** link = linkTo(module_);
  if (!*link || link == &first) return;
  ExtensionModule* before = first;
  while (before->next != module_) before = before->next;
  before_ = before;
  takeOut(link);
  insertAt(&first, module);
}

ResourcesFirst::~ResourcesFirst() {
  auto* before = static_cast<ExtensionModule*>(before_);
  if (!before || !*linkTo(before)) return;
  ExtensionModule** link = linkTo(module_);
  if (!*link) return;
  takeOut(link);
  insertAt(&before->next, *module_);
}

}  // namespace kiv
