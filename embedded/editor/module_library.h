#pragma once
// A loadable library of the system. Each system has its own implementation file.

#include <filesystem>
#include <memory>

#include "base/result.h"

namespace cad {

class ModuleLibrary {
 public:
  static base::Result<std::unique_ptr<ModuleLibrary>> load(const std::filesystem::path& path);
  virtual ~ModuleLibrary() = default;                // releases the library
  virtual void* symbol(const char* name) const = 0;  // null when it exports none of that name
};

// The running program's own file; empty when the system does not tell.
std::filesystem::path programPath();

}  // namespace cad
