#include "embedded/editor/editor_reactors.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcEditorReactor, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcEditor, AcRxObject, nullptr)

void AcEditorReactor::commandWillStart(const ACHAR*) {}
void AcEditorReactor::commandEnded(const ACHAR*) {}
void AcEditorReactor::commandCancelled(const ACHAR*) {}
void AcEditorReactor::commandFailed(const ACHAR*) {}

namespace cad {

bool EditorReactors::has(const AcEditorReactor* reactor) const {
  return std::ranges::find(reactors_, reactor) != reactors_.end();
}

void EditorReactors::addReactor(AcEditorReactor* reactor) {
  if (reactor != nullptr && !has(reactor)) reactors_.push_back(reactor);
}

void EditorReactors::removeReactor(AcEditorReactor* reactor) { std::erase(reactors_, reactor); }

void EditorReactors::tell(Event event, const std::wstring& name) const {
  // A reactor may remove itself, or another one, while it is told.
  const std::vector<AcEditorReactor*> reactors = reactors_;
  for (AcEditorReactor* each : reactors)
    if (has(each)) (each->*event)(name.c_str());
}

}  // namespace cad
