#pragma once
// Dimension variables as the tests write them: "DIMTOL=1 DIMPOST=<>mm".

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "base/codepage.h"
#include "base/numbers.h"
#include "embedded/drawing/dim_variables.h"

namespace cad {

// Calls take(variable, value) for each.
template <typename Take>
void forEachSetting(std::string_view settings, Take take) {
  while (!settings.empty()) {
    const std::string_view setting = settings.substr(0, settings.find(' '));
    settings.remove_prefix(std::min(settings.size(), setting.size() + 1));
    const std::size_t equals = setting.find('=');
    const DimVariableInfo* info = findDimVariable(setting.substr(0, equals));
    if (info == nullptr || equals == std::string_view::npos) {
      ADD_FAILURE() << "no variable and value: " << setting;
      continue;
    }
    const std::wstring text = base::fromUtf8(setting.substr(equals + 1));
    Variable value = text;
    if (info->isInteger()) value = std::int64_t{base::leadingInteger(text)};
    if (info->type == DimType::kReal) value = base::leadingReal(text);
    take(*info, value);
  }
}

inline void take(DimVariables& variables, std::string_view settings) {
  forEachSetting(settings,
                 [&](const DimVariableInfo& info, const Variable& value) { variables.set(info, value); });
}

}  // namespace cad
