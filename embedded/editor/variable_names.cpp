// Variables whose text names something in the drawing.

#include <cwchar>

#include "base/codepage.h"
#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/variables.h"
#include "embedded/support/arrow_blocks.h"

namespace cad {
namespace {

constexpr std::int64_t kByBlock = 0, kByLayer = 256;

base::Failure refusal(const SystemVariable& variable, std::wstring_view text) {
  return {base::fromUtf8(variable.name), L"\"" + std::wstring(text) + L"\" cannot be its value."};
}

base::Result<Variable> colorForm(const SystemVariable& variable, const std::wstring& text) {
  if (base::equalFolded(text, L"BYLAYER")) return Variable(kByLayer);
  if (base::equalFolded(text, L"BYBLOCK")) return Variable(kByBlock);
  wchar_t* end = nullptr;
  const long index = std::wcstol(text.c_str(), &end, 10);
  if (text.empty() || *end != 0 || index < kByBlock || index > kByLayer) return refusal(variable, text);
  return Variable(std::int64_t{index});
}

// The spelling of the table's own record, whatever the case that was typed.
base::Result<Variable> recordForm(const SystemVariable& variable, const std::wstring& text, Table table,
                                  const Drawing& drawing) {
  const RecordId record = drawing.find(table, text);
  if (record == kNoRecord) return refusal(variable, text);
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
  if (record == kNoRecord) return refusal(variable, text);
  return Variable(drawing.text(record, Property::kName).value_or(text));
}

}  // namespace

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
      if (text.size() != 1 || !variable.limits.hold(text.front())) return refusal(variable, text);
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

}  // namespace cad
