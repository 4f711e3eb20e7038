#include "embedded/editor/variables.h"

#include <cwchar>

#include "acedads.h"
#include "base/codepage.h"
#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host_state.h"
#include "embedded/editor/integer_part.h"
#include "embedded/editor/result_buffer.h"
#include "embedded/support/arrow_blocks.h"

namespace cad {
namespace {

base::Failure refusal(const SystemVariable& variable, std::wstring why) {
  return {base::fromUtf8(variable.name), std::move(why)};
}

// --- Texts that name something in the drawing

constexpr std::int64_t kByBlock = 0, kByLayer = 256;

base::Failure refusalOf(std::wstring_view text, const SystemVariable& variable) {
  return refusal(variable, L"\"" + std::wstring(text) + L"\" cannot be its value.");
}

base::Result<Variable> colorForm(const SystemVariable& variable, const std::wstring& text) {
  if (base::equalFolded(text, L"BYLAYER")) return Variable(kByLayer);
  if (base::equalFolded(text, L"BYBLOCK")) return Variable(kByBlock);
  wchar_t* end = nullptr;
  const long index = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end != 0 || index < kByBlock || index > kByLayer) return refusalOf(text, variable);
  return Variable(std::int64_t{index});
}

// The spelling of the table's own record, whatever the case that was typed.
base::Result<Variable> recordForm(const SystemVariable& variable, const std::wstring& text, Table table,
                                  const Drawing& drawing) {
  const RecordId record = drawing.find(table, text);
  if (record == kNoRecord) return refusalOf(text, variable);
  if (table == Table::kLayer &&
      (drawing.integer(record, Property::kStandardFlags).value_or(0) & LayerFlag::kFrozen))
    return base::Failure{text, L"A frozen layer cannot be current."};
  return Variable(drawing.text(record, Property::kName).value_or(text));
}

// A built-in arrow becomes a block of the drawing when it is first used.
base::Result<Variable> arrowForm(const SystemVariable& variable, const std::wstring& text, Drawing& drawing) {
  if (text.empty() || text == L".") return Variable(std::wstring());
  RecordId record = drawing.find(Table::kBlock, text);
  if (record == kNoRecord && support::findArrowBlock(text) != nullptr) {
    const base::Result<RecordId> made = support::ensureArrowBlock(drawing, text);
    if (!made) return made.failure();
    record = made.value();
  }
  if (record == kNoRecord) return refusalOf(text, variable);
  return Variable(drawing.text(record, Property::kName).value_or(text));
}

// The value as the header keeps it; refused when it is not one.
base::Result<Variable> headerForm(const SystemVariable& variable, const std::wstring& text,
                                  Drawing& drawing) {
  switch (variable.meaning) {
    case VariableMeaning::kColor:
      return colorForm(variable, text);
    case VariableMeaning::kLayer:
      return recordForm(variable, text, Table::kLayer, drawing);
    case VariableMeaning::kTextStyle:
      return recordForm(variable, text, Table::kTextStyle, drawing);
    case VariableMeaning::kDimStyle:
      return recordForm(variable, text, Table::kDimStyle, drawing);
    case VariableMeaning::kLinetype:
      if (text.empty() && variable.name.starts_with("DIM")) return Variable(text);
      return recordForm(variable, text, Table::kLinetype, drawing);
    case VariableMeaning::kArrow:
      return arrowForm(variable, text, drawing);
    case VariableMeaning::kCharacter:
      if (text.size() != 1 || !variable.limits.hold(text.front())) return refusalOf(text, variable);
      return Variable(std::int64_t{text.front()});
    default:
      return Variable(text);
  }
}

std::wstring shownForm(const SystemVariable& variable, const Variable& header) {
  const std::int64_t* number = std::get_if<std::int64_t>(&header);
  if (variable.meaning == VariableMeaning::kColor && number != nullptr) {
    if (*number == kByLayer) return L"BYLAYER";
    return *number == kByBlock ? L"BYBLOCK" : std::to_wstring(*number);
  }
  if (variable.meaning == VariableMeaning::kCharacter && number != nullptr)
    return *number == 0 ? std::wstring() : std::wstring(1, static_cast<wchar_t>(*number));
  const std::wstring* text = std::get_if<std::wstring>(&header);
  return text == nullptr ? std::wstring() : *text;
}

// --- Values by the variable's own type

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
