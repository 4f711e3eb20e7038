#pragma once
// Those whom modules have asked to be told of commands.

#include <string>
#include <vector>

#include "aced.h"

namespace cad {

class EditorReactors : public AcEditor {
 public:
  using Event = void (AcEditorReactor::*)(const ACHAR* name);

  void addReactor(AcEditorReactor* reactor) override;
  void removeReactor(AcEditorReactor* reactor) override;
  // `name` is a command's global one. In the order in which they were added.
  void tell(Event event, const std::wstring& name) const;

 private:
  bool has(const AcEditorReactor* reactor) const;

  std::vector<AcEditorReactor*> reactors_;
};

}  // namespace cad
