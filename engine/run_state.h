#pragma once
// What the stages of one run share.

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "dbmain.h"
#include "engine/run_interfaces.h"
#include "engine/symbol_names.h"
#include "platform/host_output.h"
#include "spec/cvt_run_reader.h"

namespace kiv {

struct RunState {
  AcDbDatabase& database;
  ProblemSink& problems;
  const WorkLists& work;
  std::filesystem::path specificationFolder;
  SymbolNames names{};  // filled only after the stages that rename layers

  // A problem that is read on the command line as well as in the log. The log has no reasons.
  void tell(const std::wstring& problem, const std::wstring& reason = {}) const {
    printError(problem + (reason.empty() ? L"" : L": " + reason) + L".");
    problems.addProblem(problem, reason);
  }
  const std::vector<std::wstring>& list(std::size_t index) const { return work.lists[index]; }
};

// Indexes of the work lists.
inline constexpr std::size_t kDimensionVariableList = 4;
inline constexpr std::size_t kLayerSettingList = 5;
inline constexpr std::size_t kLayerCreationList = 6;
inline constexpr std::size_t kLinetypeList = 7;
inline constexpr std::size_t kTextStyleList = 8;
inline constexpr std::size_t kArrowList = 9;

}  // namespace kiv
