#include "platform/host_variables.h"

#include <cmath>
#include <limits>

#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "base/files.h"
#include "base/fold.h"

namespace kiv {
namespace {

bool isShort(double value) {
  using Limits = std::numeric_limits<short>;
  return std::trunc(value) == value && value >= Limits::min() && value <= Limits::max();
}

}  // namespace

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

bool setNumberVariable(const wchar_t* name, short type, double value) {
  resbuf buffer{};
  buffer.restype = type;
  if (type == RTREAL) {
    buffer.resval.rreal = value;
  } else if (type == RTSHORT && isShort(value)) {
    buffer.resval.rint = static_cast<short>(value);
  } else {
    return false;
  }
  return acedSetVar(name, &buffer) == RTNORM;
}

short variableType(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM) return RTNONE;
  if (value.restype == RTSTR) acutDelString(value.resval.rstring);
  return value.restype;
}

SaveableFormats saveableFormats() {
  const std::wstring told = base::upper(textVariable(L"SAVEFORMATS").value_or(L""));
  if (told.empty()) return {true, true, true};
  const auto names = [&](const wchar_t* format) { return (L"," + told + L",").find(format) != told.npos; };
  return {names(L",DWG,"), names(L",DXF,"), names(L",DWT,")};
}

base::SaveFormat savedFormat(base::SaveFormat chosen, const std::wstring& drawingPath) {
  using base::SaveFormat;
  if (textVariable(L"SAVEFORMATS").value_or(L"").empty()) return chosen;
  const auto own = base::saveFormatOfFile(base::pathFromText(drawingPath));
  if (!own) return chosen;
  // A template is a drawing of the same format.
  return (*own == SaveFormat::kDxf) == (chosen == SaveFormat::kDxf) ? chosen : *own;
}

}  // namespace kiv
