#include "embedded/editor/variables.h"

#include "acedads.h"
#include "base/codepage.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/integer_part.h"
#include "embedded/editor/result_buffer.h"
#include "embedded/support/arrow_blocks.h"

namespace cad {
namespace {

base::Failure refusal(const SystemVariable& variable, std::wstring why) {
  return {base::fromUtf8(variable.name), std::move(why)};
}

Variable defaultOf(const SystemVariable& variable) {
  if (variable.meaning == VariableMeaning::kCharacter)
    return std::wstring(1, static_cast<wchar_t>(variable.defaultNumber));
  if (variable.type == VariableType::kText) return std::wstring(variable.defaultText);
  if (variable.type == VariableType::kReal) return variable.defaultNumber;
  return static_cast<std::int64_t>(variable.defaultNumber);
}

// A stored value in the variable's own type, whatever the group that the header keeps it in.
Variable typed(const SystemVariable& variable, const Variable& stored) {
  if (variable.type == VariableType::kText) return shownForm(variable, stored);
  const double* realValue = std::get_if<double>(&stored);
  const std::int64_t* integerValue = std::get_if<std::int64_t>(&stored);
  if (realValue == nullptr && integerValue == nullptr) return defaultOf(variable);
  if (variable.type == VariableType::kReal)
    return realValue != nullptr ? *realValue : static_cast<double>(*integerValue);
  if (integerValue != nullptr) return *integerValue;
  const std::optional<std::int64_t> whole = integerPart(*realValue);
  return whole ? Variable(*whole) : defaultOf(variable);
}

base::Status check(const SystemVariable& variable, const Variable& value) {
  const bool isText = std::holds_alternative<std::wstring>(value);
  const bool isReal = std::holds_alternative<double>(value);
  if (isText != (variable.type == VariableType::kText) || isReal != (variable.type == VariableType::kReal))
    return refusal(variable, L"The value is of another type.");
  if (isText) return {};
  const double number = isReal ? std::get<double>(value) : static_cast<double>(std::get<std::int64_t>(value));
  if (!variable.limits.hold(number)) return refusal(variable, L"The value is outside its limits.");
  return {};
}

// What the header has. An arrow whose block the drawing does not have is drawn as the default one.
std::optional<Variable> storedVariable(const SystemVariable& variable, const Drawing& drawing) {
  std::optional<Variable> stored = drawing.headerVariable(variable.name);
  const std::wstring* text = stored ? std::get_if<std::wstring>(&*stored) : nullptr;
  if (variable.meaning != VariableMeaning::kArrow || text == nullptr) return stored;
  const RecordId block = support::arrowBlockOfFile(drawing, *text);
  if (block == kNoRecord) return Variable(std::wstring());
  return Variable(drawing.text(block, Property::kName).value_or(*text));
}

base::Status setInDrawing(const SystemVariable& variable, const Variable& value, Drawing& drawing) {
  if (!variable.existsIn(drawing.facts().version))
    return refusal(variable, L"The drawing's version does not have it.");
  Variable kept = value;
  if (const std::wstring* text = std::get_if<std::wstring>(&value)) {
    base::Result<Variable> form = headerForm(variable, *text, drawing);
    if (!form) return form.failure();
    kept = std::move(form.value());
  }
  const std::optional<Variable> present = storedVariable(variable, drawing);
  const bool isPresent = typed(variable, kept) == (present ? typed(variable, *present) : defaultOf(variable));
  return isPresent ? base::Status() : drawing.setHeaderVariable(variable.name, kept);
}

}  // namespace

Variable readVariable(const SystemVariable& variable, HostState& state) {
  if (variable.home == VariableHome::kComputed) return variable.compute(state);
  if (variable.home == VariableHome::kSession) {
    const auto found = state.sessionVariables.find(std::string(variable.name));
    return found == state.sessionVariables.end() ? defaultOf(variable) : found->second;
  }
  const std::optional<Variable> stored = storedVariable(variable, state.documents.current()->drawing());
  return stored ? typed(variable, *stored) : defaultOf(variable);
}

base::Status setVariable(const SystemVariable& variable, const Variable& value, HostState& state) {
  if (variable.readOnly) return refusal(variable, L"The variable is read-only.");
  if (base::Status checked = check(variable, value); !checked) return checked;
  if (variable.home == VariableHome::kDrawing)
    return setInDrawing(variable, value, state.documents.current()->drawing());
  state.sessionVariables[std::string(variable.name)] = value;
  return {};
}

}  // namespace cad

int acedGetVar(const ACHAR* name, resbuf* result) {
  cad::HostState& state = cad::hostState();
  if (name == nullptr || result == nullptr || state.documents.current() == nullptr) return RTERROR;
  const cad::SystemVariable* variable = cad::findSystemVariable(name);
  if (variable == nullptr) return RTERROR;
  if (!variable->existsIn(state.documents.current()->drawing().facts().version)) return RTERROR;
  const cad::Variable value = cad::readVariable(*variable, state);
  result->rbnext = nullptr;
  if (const std::wstring* text = std::get_if<std::wstring>(&value)) {
    result->restype = RTSTR;
    result->resval.rstring = cad::newText(*text);
  } else if (const double* number = std::get_if<double>(&value)) {
    result->restype = RTREAL;
    result->resval.rreal = *number;
  } else {
    result->restype = RTSHORT;
    result->resval.rint = static_cast<short>(std::get<std::int64_t>(value));
  }
  return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* value) {
  cad::HostState& state = cad::hostState();
  if (name == nullptr || value == nullptr || state.documents.current() == nullptr) return RTERROR;
  const cad::SystemVariable* variable = cad::findSystemVariable(name);
  if (variable == nullptr) return RTERROR;
  cad::Variable given;
  switch (value->restype) {
    case RTSTR:
      if (value->resval.rstring == nullptr) return RTERROR;
      given = std::wstring(value->resval.rstring);
      break;
    case RTREAL:
      given = value->resval.rreal;
      break;
    case RTSHORT:
      given = std::int64_t{value->resval.rint};
      break;
    default:
      return RTERROR;
  }
  return cad::setVariable(*variable, given, state).ok() ? RTNORM : RTERROR;
}
