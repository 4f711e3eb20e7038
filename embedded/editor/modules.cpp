#include "embedded/editor/modules.h"

#include <algorithm>

#include "base/files.h"
#include "base/fold.h"
#include "embedded/editor/file_search.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/output.h"
#include "embedded/objects/api_version.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

ACRX_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject, nullptr)

namespace cad {

namespace {

// Why a library is no module for this host; empty when it is one.
std::wstring whyNoModule(const base::DynamicLibrary& library) {
  if (library.function<void*>("acrxEntryPoint") == nullptr) return L"It has no acrxEntryPoint.";
  const auto version = library.function<int (*)()>(kApiVersionFunction);
  if (version == nullptr) return L"It has no acrxGetApiVersion.";
  return version() == kApiVersion ? L"" : L"It was built for another release of the host.";
}

}  // namespace

Modules::Module* Modules::find(std::wstring_view name) const {
  const std::wstring file = base::pathText(base::pathFromText(name).filename());
  for (const auto& module : modules_)
    if (base::equalFolded(base::pathText(module->path.filename()), file)) return module.get();
  return nullptr;
}

Modules::Module* Modules::find(const void* packet) const {
  for (const auto& module : modules_)
    if (module.get() == packet) return module.get();
  return nullptr;
}

base::Status Modules::load(const std::filesystem::path& path) {
  if (isLoaded(base::pathText(path))) return {};
  base::Result<std::unique_ptr<base::DynamicLibrary>> library = base::DynamicLibrary::load(path);
  if (!library) return library.failure();
  auto module = std::make_unique<Module>();
  module->path = path;
  module->entry = library.value()->function<EntryPoint>("acrxEntryPoint");
  module->library = std::move(library.value());
  if (std::wstring reason = whyNoModule(*module->library); !reason.empty())
    return base::Failure{base::pathText(path), std::move(reason)};
  modules_.push_back(std::move(module));
  Module* loaded = modules_.back().get();
  if (loaded->entry(AcRx::kInitAppMsg, loaded) == AcRx::kRetOK) return {};
  std::erase_if(modules_, [&](const auto& each) { return each.get() == loaded; });
  return base::Failure{base::pathText(path), L"The module refused to start."};
}

base::Status Modules::unload(std::wstring_view name) {
  Module* module = find(name);
  if (module == nullptr) return base::Failure{std::wstring(name), L"The module is not loaded."};
  if (module->locked) return base::Failure{std::wstring(name), L"The module does not allow unloading."};
  module->entry(AcRx::kUnloadAppMsg, module);
  std::erase_if(modules_, [&](const auto& each) { return each.get() == module; });
  return {};
}

void Modules::quit() {
  sendToAll(AcRx::kQuitMsg);
  while (!modules_.empty()) modules_.pop_back();
}

void Modules::sendToAll(AcRx::AppMsgCode message) {
  // A module may load another while it handles the message; that one gets its own first message.
  const std::size_t count = modules_.size();
  for (std::size_t i = 0; i < std::min(count, modules_.size()); ++i)
    modules_[i]->entry(message, modules_[i].get());
}

bool Modules::setLocked(const void* packet, bool locked) {
  Module* module = find(packet);
  if (module != nullptr) module->locked = locked;
  return module != nullptr;
}

bool Modules::setMdiAware(const void* packet) {
  Module* module = find(packet);
  if (module != nullptr) module->mdiAware = true;
  return module != nullptr;
}

bool Modules::isLocked(std::wstring_view name) const {
  const Module* module = find(name);
  return module != nullptr && module->locked;
}

void* Modules::symbol(std::wstring_view name, const char* symbol) const {
  const Module* module = find(name);
  return module == nullptr ? nullptr : module->library->function<void*>(symbol);
}

std::vector<std::filesystem::path> Modules::paths() const {
  std::vector<std::filesystem::path> out;
  for (const auto& module : modules_) out.push_back(module->path);
  return out;
}

}  // namespace cad

bool acrxLoadModule(const ACHAR* file, bool printit, bool) {
  if (file == nullptr) return false;
  cad::Modules& modules = cad::hostState().modules;
  if (modules.isLoaded(file)) return true;
  const std::filesystem::path found = cad::findFile(file);
  const base::Status status =
      found.empty() ? base::Status(base::Failure{file, L"The module was not found."}) : modules.load(found);
  if (!status && printit) cad::printText(L"\n" + status.failure().text());
  return status.ok();
}

bool acrxUnloadModule(const ACHAR* file, bool) {
  return file != nullptr && cad::hostState().modules.unload(file).ok();
}

bool acrxUnlockApplication(void* appId) { return cad::hostState().modules.setLocked(appId, false); }
bool acrxRegisterAppMDIAware(void* appId) { return cad::hostState().modules.setMdiAware(appId); }
