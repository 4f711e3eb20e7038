// The framework keeps the chain of resource libraries. A library of its extension kind shares the host's
// module state, so there is no state to switch on the way in; what is switched is whose resources are found
// first. Of the module only: the library's entry must attach and detach what <afxdllx.h> brings.
#include "platform/extension_module.h"

#include <afxwin.h>
// Brings the library's own part of the framework; once in a library.
#include <afxdllx.h>

namespace kiv {
namespace {

AFX_EXTENSION_MODULE record = {};

}  // namespace

bool attachExtensionModule(ExtensionModule& module, void* instance) {
  if (module.initialised) return true;
  if (!instance || !AfxInitExtensionModule(record, static_cast<HMODULE>(instance))) return false;
  module = {true, AfxGetResourceHandle(), instance, nullptr};
  new CDynLinkLibrary(record);  // the framework's, until the record is ended
  return true;
}

void detachExtensionModule(ExtensionModule& module) {
  if (!module.initialised) return;
  AfxTermExtensionModule(record);
  module = {};
}

ResourcesFirst::ResourcesFirst(ExtensionModule& module) : module_(&module) {
  if (!module.initialised) return;
  before_ = AfxGetResourceHandle();
  AfxSetResourceHandle(static_cast<HINSTANCE>(module.moduleInstance));
}

ResourcesFirst::~ResourcesFirst() {
  if (before_) AfxSetResourceHandle(static_cast<HINSTANCE>(before_));
}

}  // namespace kiv
