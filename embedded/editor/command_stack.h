#pragma once
// The commands that modules have registered, in groups.

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "accmd.h"

namespace cad {

class RegisteredCommand : public AcEdCommand {
 public:
  RegisteredCommand(std::wstring globalName, std::wstring localName, Adesk::Int32 flags,
                    AcRxFunctionPtr function)
      : globalName_(std::move(globalName)),
        localName_(std::move(localName)),
        flags_(flags),
        function_(function) {}
  const ACHAR* globalName() const override { return globalName_.c_str(); }
  const ACHAR* localName() const override { return localName_.c_str(); }
  Adesk::Int32 commandFlags() const override { return flags_; }
  AcRxFunctionPtr functionAddr() const override { return function_; }

 private:
  std::wstring globalName_, localName_;
  Adesk::Int32 flags_;
  AcRxFunctionPtr function_;
};

class CommandStack : public AcEdCommandStack {
 public:
  Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName, const ACHAR* localName,
                               Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context,
                               int fcode, HINSTANCE resources, AcEdCommand** made) override;
  AcEdCommand* lookupCmd(const ACHAR* name, bool globalName, bool allGroups) const override;
  Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) override;
  Acad::ErrorStatus removeGroup(const ACHAR* group) override;

 private:
  struct Group {
    std::wstring name;
    std::vector<std::unique_ptr<RegisteredCommand>> commands;
  };
  Group* find(const ACHAR* group);

  std::deque<Group> groups_;  // newest first
};

}  // namespace cad
