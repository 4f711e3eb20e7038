#include "engine/host_arrows.h"

#include "base/fold.h"

namespace kiv {

std::wstring hostArrowName(std::wstring_view name) {
  return std::wstring(base::equalFolded(name, L"_ARCHTIC") ? L"_ARCHTICK" : name);
}

}  // namespace kiv
