#pragma once
// The words after the program's name.

#include <string>
#include <vector>

#include "base/result.h"

namespace cadhost {

struct Arguments {
  std::vector<std::wstring> drawings;
  std::vector<std::wstring> modules;  // beside those that stand beside the program
  std::wstring script;                // empty: none
  int width = 0, height = 0;          // of the window, pixels; 0: the system chooses
};

// Refused: an option that is not known or has no value, a size that is none.
base::Result<Arguments> parseArguments(const std::vector<std::wstring>& words);

}  // namespace cadhost
