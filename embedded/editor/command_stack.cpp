#include "embedded/editor/command_stack.h"

#include <algorithm>

#include "base/fold.h"

ACRX_DEFINE_MEMBERS(AcEdCommand, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject, nullptr)

namespace cad {

CommandStack::Group* CommandStack::find(const ACHAR* group) {
  const auto found = std::find_if(groups_.begin(), groups_.end(),
                                  [&](const Group& each) { return base::equalFolded(each.name, group); });
  return found == groups_.end() ? nullptr : &*found;
}

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* group, const ACHAR* globalName,
                                           const ACHAR* localName, Adesk::Int32 flags,
                                           AcRxFunctionPtr function, AcEdUIContext*, int, HINSTANCE,
                                           AcEdCommand** made) {
  const auto isEmpty = [](const ACHAR* text) { return text == nullptr || *text == 0; };
  if (isEmpty(group) || isEmpty(globalName) || function == nullptr) return Acad::eInvalidInput;
  const std::wstring local = isEmpty(localName) ? globalName : localName;
  Group* target = find(group);
  if (target == nullptr) {
    groups_.push_front({group, {}});
    target = &groups_.front();
  }
  const bool taken = std::any_of(target->commands.begin(), target->commands.end(), [&](const auto& each) {
    return base::equalFolded(each->globalName(), globalName) || base::equalFolded(each->localName(), local);
  });
  if (taken) return Acad::eDuplicateKey;
  target->commands.push_back(std::make_unique<RegisteredCommand>(globalName, local, flags, function));
  if (made != nullptr) *made = target->commands.back().get();
  return Acad::eOk;
}

AcEdCommand* CommandStack::lookupCmd(const ACHAR* name, bool globalName, bool) const {
  if (name == nullptr) return nullptr;
  for (const Group& group : groups_)
    for (const auto& command : group.commands)
      if (base::equalFolded(globalName ? command->globalName() : command->localName(), name))
        return command.get();
  return nullptr;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* group, const ACHAR* globalName) {
  Group* target = group == nullptr || globalName == nullptr ? nullptr : find(group);
  if (target == nullptr) return Acad::eKeyNotFound;
  const auto removed = std::erase_if(
      target->commands, [&](const auto& each) { return base::equalFolded(each->globalName(), globalName); });
  return removed == 0 ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* group) {
  if (group == nullptr) return Acad::eInvalidInput;
  const auto removed =
      std::erase_if(groups_, [&](const Group& each) { return base::equalFolded(each.name, group); });
  return removed == 0 ? Acad::eKeyNotFound : Acad::eOk;
}

}  // namespace cad
