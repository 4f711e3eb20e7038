#include "tests/embedded/dwg/typed_values.h"

#include <stdexcept>

#include "base/codepage.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/dwg/loader.h"
#include "tests/support/temp_path.h"

namespace cad::dwg {
namespace {

using P = Property;

// Besides those of dimensions, with what they name.
constexpr std::pair<std::string_view, Table> kVariables[] = {
    {"CLAYER", Table::kLayer},      {"CELTYPE", Table::kLinetype}, {"TEXTSTYLE", Table::kTextStyle},
    {"DIMSTYLE", Table::kDimStyle}, {"CECOLOR", Table::kNone},     {"TILEMODE", Table::kNone},
    {"ATTMODE", Table::kNone},      {"MIRRTEXT", Table::kNone},    {"ORTHOMODE", Table::kNone},
    {"USERI1", Table::kNone},       {"FILLMODE", Table::kNone},    {"LTSCALE", Table::kNone},
    {"TEXTSIZE", Table::kNone},     {"ELEVATION", Table::kNone},   {"USERR1", Table::kNone}};

class Values {
 public:
  Values(const Drawing& source, const std::vector<Handle>& handles, Drawing& target)
      : source_(source), handles_(handles), target_(target) {}

  void copy() {
    for (RecordId id = 0; id < source_.recordCount(); ++id) {
      const Record& record = source_.record(id);
      const bool hasValues = record.hasTableName() || record.kind == RecordKind::kEntity ||
                             record.kind == RecordKind::kSubEntity;
      if (!hasValues || record.table == Table::kBlockRecord) continue;
      copyRecord(id);
    }
    copyHeader();
  }

 private:
  RecordId targetOf(RecordId id) const {
    const RecordId found = target_.findHandle(handles_[id]);
    if (found == kNoRecord)
      throw std::logic_error("a record is missing: " + std::string(source_.typeName(id)));
    return found;
  }

  void expect(const base::Status& status, std::string_view what) const {
    if (!status.ok())
      throw std::logic_error(std::string(what) + ": " + base::toUtf8(status.failure().text()));
  }

  // What the file has once its objects are there.
  static bool isMade(const Record& record, Property property) {
    const bool isBlock = record.kind == RecordKind::kBlockBegin;
    return property == P::kName || property == P::kColorIndex || property == P::kBlockName ||
           property == P::kDimBlock || (isBlock && property == P::kStandardFlags);
  }

  void copyRecord(RecordId id) {
    const Record& record = source_.record(id);
    const RecordId target = targetOf(id);
    for (const PropertyInfo& info : allProperties()) {
      if (!isMade(record, info.property) && target_.canHold(target, info.property))
        expect(copyProperty(id, target, info),
               std::string(source_.typeName(id)) + " " + std::string(info.name));
    }
    if (record.table == Table::kLinetype && !source_.dashes(id).empty()) copyDashes(id, target);
    if (!record.implied()) copyDimVariables(id, target);
    if (record.table == Table::kDimStyle && record.implied()) copyDimVariables(id, target);
  }

  base::Status copyProperty(RecordId id, RecordId target, const PropertyInfo& info) {
    if (info.names != Table::kNone) {
      const RecordId named = source_.reference(id, info.property);
      return named == kNoRecord ? base::Status()
                                : target_.setReference(target, info.property, targetOf(named));
    }
    if (info.type == PropertyType::kInteger) {
      const auto value = source_.integer(id, info.property);
      return value ? target_.setInteger(target, info.property, *value) : base::Status();
    }
    if (info.type == PropertyType::kReal) {
      const auto value = source_.real(id, info.property);
      return value ? target_.setReal(target, info.property, *value) : base::Status();
    }
    const auto value = source_.text(id, info.property);
    return value ? target_.setText(target, info.property, *value) : base::Status();
  }

  void copyDashes(RecordId id, RecordId target) {
    std::vector<Dash> dashes = source_.dashes(id);
    for (Dash& dash : dashes)
      if (dash.symbol && dash.symbol->style != kNoRecord) dash.symbol->style = targetOf(dash.symbol->style);
    expect(target_.setDashes(target, dashes), "a pattern");
  }

  // A style of a file has all of them.
  void copyDimVariables(RecordId id, RecordId target) {
    const bool isStyle = source_.record(id).table == Table::kDimStyle;
    for (const DimVariableInfo& variable : kDimVariables) {
      std::optional<Variable> value = source_.dimVariable(id, variable);
      if (!value && isStyle && target_.dimVariable(target, variable)) value = defaultValue(variable);
      if (value) expect(target_.setDimVariable(target, variable, *value), variable.name);
    }
  }

  // A DWG file cannot name what is not there.
  bool namesNothing(Table table, const Variable& value) const {
    const auto* name = std::get_if<std::wstring>(&value);
    return table != Table::kNone && !name->empty() &&
           source_.find(table, std::wstring_view(*name)) == kNoRecord;
  }

  void copyHeader() {
    for (const DimVariableInfo& variable : kDimVariables) copyVariable(variable.name, tableOf(variable.type));
    for (const auto& [name, table] : kVariables) copyVariable(name, table);
  }

  void copyVariable(std::string_view name, Table table) {
    const std::optional<Variable> value = source_.headerVariable(name);
    if (value && !namesNothing(table, *value)) expect(target_.setHeaderVariable(name, *value), name);
  }

  const Drawing& source_;
  const std::vector<Handle>& handles_;
  Drawing& target_;
};

}  // namespace

std::string withTypedValues(const Drawing& source, const std::vector<Handle>& handles, std::string file) {
  auto target = read(std::make_shared<SourceBytes>(std::move(file)));
  if (!target.ok()) throw std::logic_error(base::toUtf8(target.failure().text()));
  Values(source, handles, *target.value()).copy();
  const auto path = test_support::tempPath("kiv_dwg_copy");
  const base::Status saved = target.value()->save(path);
  if (!saved.ok()) throw std::logic_error(base::toUtf8(saved.failure().text()));
  auto bytes = base::readFile(path);
  std::error_code ignored;
  std::filesystem::remove(path, ignored);
  return std::move(bytes.value());
}

}  // namespace cad::dwg
