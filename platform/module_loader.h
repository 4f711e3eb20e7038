#pragma once
// The suite's sibling modules: small libraries beside this module, loaded when first needed.

#include <memory>

#include "base/dynamic_library.h"

namespace kiv {

// Looks beside this module first, ignoring case, then where the system looks. Null when there is none.
std::unique_ptr<base::DynamicLibrary> loadSibling(const wchar_t* fileName);

// A sibling that is let go with the object. The host's command line says what of it is missing.
class Sibling {
 public:
  explicit Sibling(const wchar_t* fileName);

  explicit operator bool() const { return library_ != nullptr; }
  // Null when the sibling or its function is missing.
  template <class Function>
  Function* function(const char* name) const {
    if (!library_) return nullptr;
    Function* const found = library_->function<Function*>(name);
    if (found == nullptr) sayMissing(name);
    return found;
  }

 private:
  void sayMissing(const char* name) const;

  const wchar_t* fileName_;
  std::unique_ptr<base::DynamicLibrary> library_;
};

}  // namespace kiv
