#pragma once
// What the main dialog's pickers can ask the interactive command to pick.

#include <cstdint>

#include "platform/entity_pick.h"

namespace kiv {

struct PickTarget {
  PickItem item;
  const wchar_t* name;  // in the prompt
  std::uint32_t mask;
};

// Null unless the code is 1 to 16.
const PickTarget* pickTarget(int code);

}  // namespace kiv
