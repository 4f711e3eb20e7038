#include "base/files.h"
#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/wildcard.h"
#include "embedded/support/linetype_file.h"
#include "embedded/support/shape_file.h"

namespace cad::support {
namespace {

class Loader {
 public:
  Loader(Drawing& drawing, const std::filesystem::path& file, const FileFinder& findFile)
      : drawing_(drawing), file_(base::pathText(file.filename())), findFile_(findFile) {}

  // False when the definition was refused.
  bool add(const LinetypeDefinition& definition);
  void refuse(LinetypeLoading why, base::Failure failure) {
    if (!refused_) outcome_.failure = std::move(failure), outcome_.result = why;
    refused_ = true;
  }
  LoadedLinetypes finish(bool any) {
    if (any) outcome_.result = LinetypeLoading::kLoaded;
    return std::move(outcome_);
  }

 private:
  base::Failure at(const LinetypeDefinition& definition, const std::wstring& reason) const {
    return {file_ + L", line " + std::to_wstring(definition.line), definition.name + L": " + reason};
  }
  bool findStyle(const LinetypeDefinition& definition, const DashDefinition& dash, DashSymbol& symbol);
  bool findShape(const LinetypeDefinition& definition, const DashDefinition& dash, DashSymbol& symbol,
                 std::vector<base::Failure>& remarks);
  std::wstring currentStyle() const;

  Drawing& drawing_;
  std::wstring file_;
  const FileFinder& findFile_;
  LoadedLinetypes outcome_;
  bool refused_ = false;
};

std::wstring Loader::currentStyle() const {
  const auto value = drawing_.headerVariable("TEXTSTYLE");
  const auto* name = value ? std::get_if<std::wstring>(&*value) : nullptr;
  return name ? *name : L"Standard";
}

bool Loader::findStyle(const LinetypeDefinition& definition, const DashDefinition& dash, DashSymbol& symbol) {
  const std::wstring name = dash.source.empty() ? currentStyle() : dash.source;
  symbol.style = drawing_.find(Table::kTextStyle, std::wstring_view(name));
  if (symbol.style != kNoRecord) return true;
  refuse(LinetypeLoading::kNoTextStyle,
         at(definition, L"The drawing has no text style \"" + name + L"\" for its text"));
  return false;
}

// False when the symbol is to be left out: so does a host that cannot find the file or the shape.
bool Loader::findShape(const LinetypeDefinition& definition, const DashDefinition& dash, DashSymbol& symbol,
                       std::vector<base::Failure>& remarks) {
  const base::Result<int> number = shapeNumber(findFile_(dash.source), dash.source, dash.shape);
  base::Result<RecordId> record = base::Failure{};
  if (number) record = drawing_.shapeFile(dash.source);
  if (number && record) {
    symbol.shape = number.value();
    symbol.style = record.value();
    return true;
  }
  const base::Failure& why = number ? record.failure() : number.failure();
  remarks.push_back(at(definition, L"Loaded without its shape: " + why.text()));
  return false;
}

bool Loader::add(const LinetypeDefinition& definition) {
  const auto refused = [&](LinetypeLoading why, const std::wstring& reason) {
    refuse(why, at(definition, reason));
    return false;
  };
  if (!definition.refusal.empty()) return refused(LinetypeLoading::kBadDefinition, definition.refusal);
  if (drawing_.find(Table::kLinetype, std::wstring_view(definition.name)) != kNoRecord)
    return refused(LinetypeLoading::kInDrawing, L"The drawing has a linetype of this name");
  std::vector<Dash> dashes;
  std::vector<base::Failure> remarks;
  for (const DashDefinition& each : definition.dashes) {
    Dash dash = each.dash;
    if (dash.symbol && drawing_.facts().version < Version::kR13)
      return refused(LinetypeLoading::kNotInThisVersion,
                     L"A drawing of this version cannot hold texts and shapes in linetypes");
    if (dash.symbol && each.shape.empty() && !findStyle(definition, each, *dash.symbol)) return false;
    if (dash.symbol && !each.shape.empty() && !findShape(definition, each, *dash.symbol, remarks))
      dash.symbol.reset();
    dashes.push_back(std::move(dash));
  }
  const base::Result<RecordId> record = drawing_.addTableRecord(Table::kLinetype, definition.name);
  base::Status status = record ? base::Status() : base::Status(record.failure());
  if (status) status = drawing_.setText(record.value(), Property::kDescription, definition.description);
  if (status) status = drawing_.setDashes(record.value(), dashes);
  if (!status) return refused(LinetypeLoading::kBadDefinition, status.failure().text());
  outcome_.remarks.insert(outcome_.remarks.end(), remarks.begin(), remarks.end());
  return true;
}

}  // namespace

LoadedLinetypes loadLinetypes(Drawing& drawing, std::wstring_view wildcardName,
                              const std::filesystem::path& file, const FileFinder& findFile) {
  const base::Result<std::string> bytes = base::readFile(file);
  if (!bytes) return {LinetypeLoading::kNoFile, bytes.failure(), {}};
  const std::vector<LinetypeDefinition> definitions = parseLinetypes(bytes.value());
  Loader loader(drawing, file, findFile);
  Drawing::ChangeScope scope(drawing);
  const auto addWhole = [&](const LinetypeDefinition& definition) {
    Drawing::ChangeScope one(drawing);
    const bool added = loader.add(definition);
    if (!added) one.rollBack();
    return added;
  };
  for (const LinetypeDefinition& definition : definitions)
    if (base::equalFolded(definition.name, wildcardName)) return loader.finish(addWhole(definition));
  const Wildcard pattern(wildcardName, true);
  bool any = false;
  for (const LinetypeDefinition& definition : definitions)
    if (pattern.matches(definition.name)) any |= addWhole(definition);
  loader.refuse(
      LinetypeLoading::kNotInFile,
      {base::pathText(file.filename()), L"The file has no linetype \"" + std::wstring(wildcardName) + L"\""});
  return loader.finish(any);
}

}  // namespace cad::support
