#pragma once
// The record by which the user-interface framework finds the resources of a module that extends the host.

namespace kiv {

struct ExtensionModule {
  bool initialised = false;
  void* resourceHandle = nullptr;  // of the module's state at the time of attaching
  void* moduleInstance = nullptr;
  ExtensionModule* next = nullptr;  // in the chain; the framework's own business
};

// Initialises the record and enters it into the framework's chain of resource libraries, to which the record
// itself belongs until it is detached. A record that is initialised already stays as it is. False, and the
// record untouched, for a null instance.
bool attachExtensionModule(ExtensionModule& module, void* instance);

// Takes an initialised record out of the chain and clears it; otherwise nothing.
void detachExtensionModule(ExtensionModule& module);

// While it lives, the module's resources are the first to be found; then the order is what it was. Modules
// may come and go meanwhile. No effect for a module that is not in the chain.
class ResourcesFirst {
 public:
  explicit ResourcesFirst(ExtensionModule& module);
  ~ResourcesFirst();
  ResourcesFirst(const ResourcesFirst&) = delete;
  ResourcesFirst& operator=(const ResourcesFirst&) = delete;

 private:
  ExtensionModule* module_;
  void* before_ = nullptr;  // what the resources came from before; null: nothing was changed
};

}  // namespace kiv
