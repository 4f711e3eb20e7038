#pragma once
// The modules that the host has loaded.

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

#include "base/dynamic_library.h"
#include "base/result.h"
#include "rxdefs.h"

namespace cad {

class Modules {
 public:
  // Sends kInitAppMsg. A module that is loaded already is left as it is. Refused: a library without
  // acrxEntryPoint, and one that answers kInitAppMsg with an error.
  base::Status load(const std::filesystem::path& path);
  base::Status unload(std::wstring_view name);  // by file name; refused while it is locked
  void quit();                                  // kQuitMsg to all, then releases them, newest first
  void sendToAll(AcRx::AppMsgCode message);

  bool isLoaded(std::wstring_view name) const { return find(name) != nullptr; }
  bool setLocked(const void* packet, bool locked);
  bool setMdiAware(const void* packet);
  bool isLocked(std::wstring_view name) const;
  void* symbol(std::wstring_view name, const char* symbol) const;
  std::vector<std::filesystem::path> paths() const;

 private:
  using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);
  // The module's address is the packet of its messages.
  struct Module {
    std::filesystem::path path;
    std::unique_ptr<base::DynamicLibrary> library;
    EntryPoint entry = nullptr;
    bool locked = true;
    bool mdiAware = false;
  };
  Module* find(std::wstring_view name) const;
  Module* find(const void* packet) const;

  std::vector<std::unique_ptr<Module>> modules_;
};

}  // namespace cad
