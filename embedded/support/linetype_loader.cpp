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

  // One definition, whole or not at all.
  LoadedLinetypes load(const LinetypeDefinition& definition);

 private:
  base::Failure at(const LinetypeDefinition& definition, const std::wstring& reason) const {
    return {file_ + L", line " + std::to_wstring(definition.line), definition.name + L": " + reason};
  }
  LoadedLinetypes refusal(const LinetypeDefinition& definition, LinetypeLoading why,
                          const std::wstring& reason) const {
    return {why, at(definition, reason), {}};
  }
  LoadedLinetypes add(const LinetypeDefinition& definition);
  bool findShape(const LinetypeDefinition& definition, const DashDefinition& dash, DashSymbol& symbol,
                 std::vector<base::Failure>& remarks);
  std::wstring currentStyle() const;

  Drawing& drawing_;
  std::wstring file_;
  const FileFinder& findFile_;
};

std::wstring Loader::currentStyle() const {
  const auto value = drawing_.headerVariable("TEXTSTYLE");
  const auto* name = value ? std::get_if<std::wstring>(&*value) : nullptr;
  return name ? *name : L"Standard";
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

LoadedLinetypes Loader::add(const LinetypeDefinition& definition) {
  using enum LinetypeLoading;
  if (!definition.refusal.empty()) return refusal(definition, kBadDefinition, definition.refusal);
  if (drawing_.find(Table::kLinetype, std::wstring_view(definition.name)) != kNoRecord)
    return refusal(definition, kInDrawing, L"The drawing has a linetype of this name");
  std::vector<Dash> dashes;
  LoadedLinetypes loaded;
  for (const DashDefinition& each : definition.dashes) {
    Dash dash = each.dash;
    if (dash.symbol && !drawing_.facts().linetypesHoldSymbols())
      return refusal(definition, kNotInThisVersion, kNoSymbolsHere);
    if (dash.symbol && each.shape.empty()) {
      const std::wstring style = each.source.empty() ? currentStyle() : each.source;
      dash.symbol->style = drawing_.find(Table::kTextStyle, std::wstring_view(style));
      if (dash.symbol->style == kNoRecord)
        return refusal(definition, kNoTextStyle,
                       L"The drawing has no text style \"" + style + L"\" for its text");
    } else if (dash.symbol && !findShape(definition, each, *dash.symbol, loaded.remarks)) {
      dash.symbol.reset();
    }
    dashes.push_back(std::move(dash));
  }
  const base::Result<RecordId> record = drawing_.addTableRecord(Table::kLinetype, definition.name);
  base::Status status = record ? base::Status() : base::Status(record.failure());
  if (status) status = drawing_.setText(record.value(), Property::kDescription, definition.description);
  if (status) status = drawing_.setDashes(record.value(), dashes);
  return status ? loaded : refusal(definition, kBadDefinition, status.failure().text());
}

LoadedLinetypes Loader::load(const LinetypeDefinition& definition) {
  Drawing::ChangeScope one(drawing_);
  LoadedLinetypes loaded = add(definition);
  if (loaded.result != LinetypeLoading::kLoaded) one.rollBack();
  return loaded;
}

// Loaded, once one was; the first refusal until then. All begin as not being in the file.
void addTo(LoadedLinetypes& all, LoadedLinetypes one) {
  all.remarks.insert(all.remarks.end(), one.remarks.begin(), one.remarks.end());
  if (one.result != LinetypeLoading::kLoaded && all.result != LinetypeLoading::kNotInFile) return;
  all.result = one.result;
  all.failure = std::move(one.failure);
}

}  // namespace

LoadedLinetypes loadLinetypes(Drawing& drawing, std::wstring_view wildcardName,
                              const std::filesystem::path& file, const FileFinder& findFile) {
  const base::Result<std::string> bytes = base::readFile(file);
  if (!bytes) return {LinetypeLoading::kNoFile, bytes.failure(), {}};
  const std::vector<LinetypeDefinition> definitions = parseLinetypes(bytes.value());
  Loader loader(drawing, file, findFile);
  for (const LinetypeDefinition& definition : definitions)
    if (base::equalFolded(definition.name, wildcardName)) return loader.load(definition);
  LoadedLinetypes all = {
      LinetypeLoading::kNotInFile,
      {base::pathText(file.filename()), L"The file has no linetype \"" + std::wstring(wildcardName) + L"\""},
      {}};
  const Drawing::ChangeScope together(drawing);  // all that one call loads is one step of undo
  const Wildcard pattern(wildcardName, true);
  for (const LinetypeDefinition& definition : definitions)
    if (pattern.matches(definition.name)) addTo(all, loader.load(definition));
  return all;
}

}  // namespace cad::support
