#pragma once
// What the running host holds, for the files of this folder.

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/storage.h"
#include "embedded/editor/command_line.h"
#include "embedded/editor/command_stack.h"
#include "embedded/editor/documents.h"
#include "embedded/editor/editor_reactors.h"
#include "embedded/editor/external_functions.h"
#include "embedded/editor/host.h"
#include "embedded/editor/modules.h"
#include "embedded/editor/picking.h"
#include "embedded/editor/selection_sets.h"

struct tagMSG;

namespace cad {

// As the host's interface has it; told here in plain types, because its header must come before the system's.
using MessageFilter = int (*)(tagMSG* message);

struct HostState {
  bool running = false;

  std::function<void(std::wstring_view)> output;
  std::optional<base::Failure> newestFailure;
  std::vector<base::Failure> remarks;
  std::optional<SaveReport> lastSave;

  std::vector<std::filesystem::path> supportPath;
  std::map<std::string, Variable> sessionVariables;  // only those that were set

  Meter meter;
  std::function<void(const Meter&)> meterObserver;
  std::function<void(const ScriptProgress&)> scriptObserver;
  std::function<bool()> breakQuery;
  std::function<std::optional<InputEvent>()> inputSource;
  void* mainWindow = nullptr;
  Picking picking;
  std::vector<MessageFilter> messageFilters;  // the one registered last is the last

  Documents documents;
  CommandStack commands;
  EditorReactors editorReactors;
  CommandLine commandLine;
  ExternalFunctions functions;
  Modules modules;
  SelectionSets selectionSets;
};

HostState& hostState();

}  // namespace cad
