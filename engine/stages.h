#pragma once
// The stages of a run, in their order, and what they share. Entries and settings are taken in list order; one
// that cannot be had or applied never stops the run.

#include <filesystem>
#include <string>
#include <vector>

#include "engine/host_access.h"
#include "engine/problems.h"
#include "engine/run_observer.h"
#include "platform/host_output.h"
#include "spec/cvt_reader.h"

namespace kiv {

struct RunState {
  AcDbDatabase& database;
  ProblemSink& problems;
  const WorkLists& work;
  std::filesystem::path specificationFolder;
  const KivRunObserver* observer = nullptr;
  SymbolNames names{};  // filled only after the stages that rename layers

  // A problem that is read on the command line as well as in the log. The log has no reasons.
  void tell(const std::wstring& problem, const std::wstring& reason = {}) const {
    printError(problem + (reason.empty() ? L"" : L": " + reason) + L".");
    problems.addProblem(problem, reason);
  }
  // The lines of a section, 1 to 10.
  const std::vector<std::wstring>& list(int section) const {
    return work.lists[static_cast<std::size_t>(section - 1)];
  }
};

// Built-in arrowheads by name, others from drawing files.
void loadArrows(RunState& run);
// "variable,value" or "variable=value": the drawing's current dimension settings.
void setDimensionVariables(RunState& run);
// "linetype file,linetype"; one that the drawing has is not loaded again.
void loadLinetypes(RunState& run);
// "style,font" or "style,font,big font": made, or given another font.
void setUpTextStyles(RunState& run);
// Makes the layers that the drawing does not have; an existing one is left as it is.
void createLayers(RunState& run);
// Tests every layer, as it is when the stage begins, against each setting and writes the results.
void applyLayerSettings(RunState& run);

enum class BlockScope { kReferences = 0, kDefinitions = 1, kBoth = 2 };

// Texts, dimensions, hatches, all others, in this order; in each every setting. Of block references the scope
// takes them as they stand, the entities of their definitions, or both.
void runEntityPasses(RunState& run, BlockScope scope);

}  // namespace kiv
