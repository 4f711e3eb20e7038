#pragma once
// The suite's sibling modules: small libraries beside this module, loaded when first needed.

#include <memory>
#include <string>

namespace kiv {

class SiblingModule {
 public:
  // Looks beside this module first, then where the system looks. Null when there is none.
  static std::unique_ptr<SiblingModule> load(const wchar_t* fileName);

  virtual ~SiblingModule() = default;  // releases the module

  // An exported plain function; null when the module lacks it.
  template <class Function>
  Function function(const char* name) const {
    return reinterpret_cast<Function>(address(name));
  }

 protected:
  using PlainFunction = void (*)();
  virtual PlainFunction address(const char* name) const = 0;
};

}  // namespace kiv
