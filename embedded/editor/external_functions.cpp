#include "embedded/editor/external_functions.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "acedads.h"
#include "base/fold.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/result_buffer.h"

namespace cad {

void ExternalFunctions::define(const std::wstring& name, Function function) {
  if (function) {
    functions_[base::upper(name)] = std::move(function);
  } else {
    functions_.erase(base::upper(name));
  }
}

int ExternalFunctions::invoke(const resbuf* call, resbuf** result) {
  if (result == nullptr) return RTERROR;
  *result = nullptr;
  if (call == nullptr || call->restype != RTSTR || call->resval.rstring == nullptr) return RTERROR;
  const auto found = functions_.find(base::upper(call->resval.rstring));
  if (found == functions_.end()) return RTERROR;
  const Function function = found->second;  // may be defined anew while it runs
  ResultChain arguments;
  for (const resbuf* each = call->rbnext; each != nullptr; each = each->rbnext) arguments.copy(*each);
  calls_.push_back({arguments.release(), nullptr});
  bool hasReturned = true;
  try {
    function();
  } catch (...) {  // the callers are functions of C
    hasReturned = false;
  }
  const Call ended = calls_.back();
  calls_.pop_back();
  acutRelRb(ended.arguments);
  if (hasReturned) *result = ended.result;
  if (!hasReturned) acutRelRb(ended.result);
  return hasReturned ? RTNORM : RTERROR;
}

bool ExternalFunctions::isArguments(const resbuf* list) const {
  return list != nullptr &&
         std::ranges::any_of(calls_, [list](const Call& each) { return each.arguments == list; });
}

bool ExternalFunctions::setResult(resbuf* value) {
  if (calls_.empty()) return acutRelRb(value), false;
  acutRelRb(std::exchange(calls_.back().result, value));
  return true;
}

namespace {

int giveBack(resbuf* value) { return hostState().functions.setResult(value) ? RTNORM : RTERROR; }

}  // namespace
}  // namespace cad

int acedInvoke(const resbuf* args, resbuf** result) {
  return cad::hostState().functions.invoke(args, result);
}

resbuf* acedGetArgs() { return cad::hostState().functions.arguments(); }

int acedRetInt(int value) {
  using Short = std::numeric_limits<short>;
  if (value < Short::min() || value > Short::max()) return RTERROR;
  return cad::giveBack(acutBuildList(RTSHORT, value, RTNONE));
}

int acedRetNil() { return cad::giveBack(acutBuildList(RTNIL, RTNONE)); }
