#include "platform/entity_pick.h"

#include "platform/host_output.h"
#include "platform/module_loader.h"

namespace kiv {
namespace {

constexpr const wchar_t* kPickModule = L"KivDll.arx";

void keepValue(const wchar_t* value, void* context) {
  static_cast<std::vector<std::wstring>*>(context)->emplace_back(value);
}

}  // namespace

bool pickEntity(const std::wstring& prompt, PickItem item, std::uint32_t mask,
                std::vector<std::wstring>& values) {
  values.clear();
  const std::unique_ptr<base::DynamicLibrary> module = loadSibling(kPickModule);
  if (!module) {
    printOnCommandLine(L"\n cannot found " + std::wstring(kPickModule) + L".");
    return false;
  }
  const auto pick = module->function<PickEntity*>("dll_kiv_entsel");
  if (pick == nullptr) {
    printOnCommandLine(L"\n cannot found dll_kiv_entsel() in " + std::wstring(kPickModule) + L".");
    return false;
  }
  const bool picked = pick(prompt.c_str(), static_cast<int>(item), mask, keepValue, &values) == 1;
  if (!picked) values.clear();
  return picked;
}

}  // namespace kiv
