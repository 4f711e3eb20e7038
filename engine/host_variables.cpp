#include "engine/host_variables.h"

#include "acedads.h"
#include "adscodes.h"

namespace kiv {

std::optional<std::wstring> textVariable(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM || value.restype != RTSTR || value.resval.rstring == nullptr) {
    return std::nullopt;
  }
  std::wstring text = value.resval.rstring;
  acutDelString(value.resval.rstring);
  return text;
}

std::optional<int> integerVariable(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM) return std::nullopt;
  if (value.restype == RTSHORT) return value.resval.rint;
  if (value.restype == RTLONG) return value.resval.rlong;
  if (value.restype == RTSTR) acutDelString(value.resval.rstring);
  return std::nullopt;
}

bool setTextVariable(const wchar_t* name, const std::wstring& value) {
  std::wstring text = value;
  resbuf buffer{};
  buffer.restype = RTSTR;
  buffer.resval.rstring = text.data();
  return acedSetVar(name, &buffer) == RTNORM;
}

bool setShortVariable(const wchar_t* name, short value) {
  resbuf buffer{};
  buffer.restype = RTSHORT;
  buffer.resval.rint = value;
  return acedSetVar(name, &buffer) == RTNORM;
}

bool setRealVariable(const wchar_t* name, double value) {
  resbuf buffer{};
  buffer.restype = RTREAL;
  buffer.resval.rreal = value;
  return acedSetVar(name, &buffer) == RTNORM;
}

}  // namespace kiv
