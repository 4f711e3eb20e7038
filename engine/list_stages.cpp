// The stages that bring the entries of a specification's lists into the drawing: its dimension variables,
// linetypes, text styles and layers. Arrows have a file of their own.

#include "acdb.h"
#include "adscodes.h"
#include "base/fold.h"
#include "base/shape_fonts.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "engine/dimension_variables.h"
#include "engine/layers.h"
#include "engine/setting_observation.h"
#include "engine/stages.h"
#include "platform/host_variables.h"
#include "siblings/common/host_releases.h"
#include "spec/cvt_lines.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

// --- Dimension variables

constexpr std::size_t kLongestText = 255;

// The host takes a variable's own type only, and the catalogue's is another one for a few.
bool setNumber(const wchar_t* name, short catalogueType, double value) {
  // An integer is sent as sixteen bits, whatever it says; `check` tells what becomes of it.
  const double sent = catalogueType == RTSHORT ? static_cast<short>(static_cast<int>(value)) : value;
  if (setNumberVariable(name, catalogueType, sent)) return true;
  const short hostType = variableType(name);
  return hostType != catalogueType && setNumberVariable(name, hostType, value);
}

bool setVariable(int row, const std::wstring& text) {
  const auto value = dimensionValue(row, text);
  if (!value) return false;
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (const auto* name = std::get_if<std::wstring>(&*value))
    return setTextVariable(variable.name, name->substr(0, kLongestText));
  return setNumber(variable.name, variable.isInteger() ? RTSHORT : RTREAL, std::get<double>(*value));
}

// The host itself does not say why.
RefusalReason reasonOf(int row, const std::wstring& text) {
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (variableType(variable.name) == RTNONE) return RefusalReason::kNotInThisVersion;
  const bool isName = variable.namesRecord() && dimensionValue(row, text);
  return isName ? RefusalReason::kNoSuchName : RefusalReason::kBadValue;
}

// --- Text styles

using Status = Acad::ErrorStatus;

Status setFont(AcDbTextStyleTableRecord& style, const std::wstring& font, const std::wstring& bigFont) {
  const bool isShape = base::isShapeFont(font);
  const Status status = isShape ? style.setFileName(font.c_str()) : setTypeface(style, font.c_str());
  if (status != Acad::eOk) return status;
  if (isShape && !bigFont.empty()) return style.setBigFontFileName(bigFont.c_str());
  // Big fonts go with shape fonts only. A style that has none stays untouched.
  AcString present;
  if (style.bigFontFileName(present) == Acad::eOk && present.isEmpty()) return status;
  return style.setBigFontFileName(L"");
}

Status openOrMake(AcDbDatabase& database, const std::wstring& name,
                  AcDbObjectPointer<AcDbTextStyleTableRecord>& style) {
  const AcDbObjectId id = findInTable(database.textStyleTableId(), name);
  if (!id.isNull()) return style.open(id, AcDb::kForWrite);
  style.create();
  const Status named = style->setName(name.c_str());
  if (named != Acad::eOk) return named;
  AcDbTextStyleTablePointer table(&database, AcDb::kForWrite);
  return table.openStatus() == Acad::eOk ? table->add(style.object()) : table.openStatus();
}

// --- Layers

bool addNamed(AcDbDatabase& database, const std::wstring& name,
              AcDbObjectPointer<AcDbLayerTableRecord>& layer) {
  layer.create();
  AcDbLayerTablePointer table(&database, AcDb::kForWrite);
  return layer->setName(name.c_str()) == Acad::eOk && table.openStatus() == Acad::eOk &&
         table->add(layer.object()) == Acad::eOk;
}

// False: the layer was not made, or it refused a property.
bool createLayer(RunState& run, const std::vector<std::wstring>& fields) {
  const std::wstring& name = fields[0];
  AcDbObjectPointer<AcDbLayerTableRecord> layer;
  if (!addNamed(run.database, name, layer)) {
    run.problems.addProblem(layerNotCreatedProblem(name));
    return false;
  }
  bool isWhole = true;
  for (std::size_t i = 0; i < kLayerFieldKinds.size() && i + 1 < fields.size(); ++i) {
    const std::wstring& value = fields[i + 1];
    if (value.empty()) continue;  // what a new layer has stays
    const Acad::ErrorStatus status =
        setLayerProperty(*layer.object(), kLayerFieldKinds[i], value, run.database);
    if (status == Acad::eOk) continue;
    const wchar_t* key = itemKind(kLayerFieldKinds[i])->key;
    const std::wstring written = asWritten(kLayerFieldKinds[i], value);
    run.problems.addToLog(layerCreationProblem(name, key, written));
    run.problems.addNote({key, written, refusalOf(status), 1, Refuser::kLayer});
    isWhole = false;
  }
  switchOffAndOn(*layer.object());
  return isWhole;
}

}  // namespace

void setDimensionVariables(RunState& run) {
  int number = 0;
  for (const std::wstring& entry : run.list(kDimensionSettingSection)) {
    ObservedEntry observed(run.observer, kDimensionSettingSection, ++number, entry);
    const auto assignment = splitAssignment(entry);
    const int row = assignment ? findDimensionVariable(assignment->key) : -1;
    if (row < 0 || setVariable(row, assignment->value)) continue;
    const RefusalReason reason = reasonOf(row, assignment->value);
    run.problems.addNote({assignment->key, assignment->value, reason, 1, Refuser::kDrawing});
    observed.refuse();
  }
}

void loadLinetypes(RunState& run) {
  int number = 0;
  for (const std::wstring& entry : run.list(kLinetypeSection)) {
    ObservedEntry observed(run.observer, kLinetypeSection, ++number, entry);
    const std::size_t comma = entry.find(L',');
    if (comma == std::wstring::npos) continue;
    const std::wstring file(base::trim(std::wstring_view(entry).substr(0, comma)));
    const std::wstring linetype(base::trim(std::wstring_view(entry).substr(comma + 1)));
    if (file.empty() || linetype.empty()) continue;
    if (!findInTable(run.database.linetypeTableId(), linetype).isNull()) continue;
    const Acad::ErrorStatus status = acdbLoadLineTypeFile(linetype.c_str(), file.c_str(), &run.database);
    if (status == Acad::eOk) continue;
    run.tell(linetypeProblem(linetype), linetypeReason(file, status));
    observed.refuse();
  }
}

void setUpTextStyles(RunState& run) {
  int number = 0;
  for (const std::wstring& entry : run.list(kFontSection)) {
    ObservedEntry observed(run.observer, kFontSection, ++number, entry);
    const std::vector<std::wstring> fields = splitFields(entry);
    if (fields.size() < 2 || fields[0].empty()) continue;
    const bool hasBigFont = fields.size() > 2 && fields[2].find(L"----") == std::wstring::npos;
    AcDbObjectPointer<AcDbTextStyleTableRecord> style;
    Status status = openOrMake(run.database, fields[0], style);
    if (status == Acad::eOk) {
      status = setFont(*style.object(), fields[1], hasBigFont ? fields[2] : std::wstring());
    }
    if (status != Acad::eOk) {
      run.problems.addNote({itemKind(kFontKind)->key, fields[0], refusalOf(status), 1, Refuser::kDrawing});
      observed.refuse();
    }
  }
}

void createLayers(RunState& run) {
  int number = 0;
  for (const std::wstring& entry : run.list(kLayerCreationSection)) {
    ObservedEntry observed(run.observer, kLayerCreationSection, ++number, entry);
    const std::vector<std::wstring> fields = splitFields(entry);
    if (fields[0].empty() || !findInTable(run.database.layerTableId(), fields[0]).isNull()) continue;
    if (!createLayer(run, fields)) observed.refuse();
  }
}

}  // namespace kiv
