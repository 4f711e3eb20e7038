#pragma once
// Functions that are called by their names (acedInvoke).

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "adsdef.h"

namespace cad {

class ExternalFunctions {
 public:
  using Function = std::function<void()>;

  // In place of one of the same name, ignoring case; an empty function takes it away.
  void define(const std::wstring& name, Function function);
  // The name, a text, and what it is called with. RTERROR when there is no such function. `result` gets what
  // the function returned last, the caller's to release; NULL: nothing.
  int invoke(const resbuf* call, resbuf** result);

  // What the running function was called with; NULL: nothing, or none runs. Released after the call.
  resbuf* arguments() const { return calls_.empty() ? nullptr : calls_.back().arguments; }
  bool isArguments(const resbuf* list) const;
  // The value that the running function returns, in place of an earlier one. False: none runs.
  bool setResult(resbuf* value);

 private:
  struct Call {
    resbuf* arguments = nullptr;
    resbuf* result = nullptr;
  };

  std::map<std::wstring, Function> functions_;
  std::vector<Call> calls_;  // those that run, the innermost last
};

}  // namespace cad
