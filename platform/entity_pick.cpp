#include "platform/entity_pick.h"

#include "platform/module_loader.h"

namespace kiv {
namespace {

constexpr const wchar_t* kPickModule = L"KivDll.arx";

void keepValue(const wchar_t* value, void* context) {
  static_cast<std::vector<std::wstring>*>(context)->emplace_back(value);
}

}  // namespace

std::vector<std::wstring> pickEntity(const std::wstring& prompt, const EntityPick& wanted) {
  const Sibling module(kPickModule);
  const auto pick = module.function<PickEntity>("dll_kiv_entsel");
  if (pick == nullptr) return {};
  std::vector<std::wstring> values;
  const bool isPicked = pick(prompt.c_str(), static_cast<int>(wanted.item), wanted.variable.c_str(),
                             wanted.mask, keepValue, &values) == 1;
  return isPicked ? values : std::vector<std::wstring>();
}

}  // namespace kiv
