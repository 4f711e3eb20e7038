#pragma once
// The sheets of a drawing: model space, and each paper space with its name.

#include <string>

#include "embedded/drawing/record.h"

namespace cad {

struct Layout {
  std::wstring name;           // "Model" for model space
  RecordId block = kNoRecord;  // the space
  double millimetres = 1;      // of a unit of the paper; of model space it says nothing
};

}  // namespace cad
