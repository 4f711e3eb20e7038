// A whole DWG drawing of every version, in which the input changes bytes of its objects, header and classes
// before they get their checksums. Any is read or refused. One that was read answers every question, takes or
// refuses changes, and what is saved is read again; undo gives the file back.

#include <filesystem>

#include "embedded/drawing/dim_variables.h"
#include "embedded/dwg/loader.h"
#include "fuzz/dwg_container.h"
#include "fuzz/saved_bytes.h"
#include "tests/embedded/dwg/built_drawing.h"

namespace {

using cad::Drawing;
using cad::RecordId;
using cad::Table;
using fuzz::require;
using P = cad::Property;
using enum base::Version;

constexpr base::Version kVersions[] = {kR13, kR14, kR2000, kR2004, kR2007, kR2010, kR2013, kR2018};

std::unique_ptr<Drawing> opened(std::string bytes) {
  auto drawing = cad::dwg::read(std::make_shared<cad::SourceBytes>(std::move(bytes)));
  return drawing.ok() ? std::move(drawing.value()) : nullptr;
}

void ask(const Drawing& drawing) {
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    const cad::Record& record = drawing.record(id);
    for (const cad::PropertyInfo& info : cad::allProperties())
      (void)drawing.storage().property(record, info.property);
    (void)drawing.storage().holdsSame(record, drawing.storage(), record);
    (void)drawing.dimVariables(record);
    (void)drawing.geometry(id);
    if (record.kind == cad::RecordKind::kEntity) (void)drawing.looks(id);
    if (record.table == Table::kLinetype) (void)drawing.dashes(id);
    if (record.kind == cad::RecordKind::kBlockBegin) (void)drawing.basePoint(id);
  }
  (void)drawing.layouts();
  (void)drawing.storage().headerVariables(drawing);
}

// Refusals are as good as successes here.
void change(Drawing& drawing) {
  drawing.beginUndoGroup();
  (void)drawing.addTableRecord(Table::kLayer, L"New").ok();
  (void)drawing.renameLayer(drawing.find(Table::kLayer, std::wstring_view(L"Layer1")), L"Renamed").ok();
  const auto count = static_cast<RecordId>(drawing.recordCount());
  for (RecordId id = 0; id < count; ++id) {
    if (drawing.record(id).kind != cad::RecordKind::kEntity || drawing.record(id).erased()) continue;
    if (drawing.setText(id, P::kLayer, L"New").ok()) require(drawing.text(id, P::kLayer) == L"New");
    if (drawing.canHold(id, P::kTextHeight) && drawing.setReal(id, P::kTextHeight, 7).ok())
      require(drawing.real(id, P::kTextHeight) == 7);
    if (drawing.canHold(id, P::kTextString)) (void)drawing.setText(id, P::kTextString, L"another").ok();
    (void)drawing.setDimVariable(id, cad::dimRow("DIMTXT"), 4.5).ok();
  }
  const cad::Shape shapes[] = {cad::LineShape{{0, 0}, {1, 1}}};
  const auto block = drawing.defineBlock(L"NEW", shapes);
  if (block && drawing.modelSpace() != cad::kNoRecord)
    (void)drawing.addInsert(drawing.modelSpace(), {.block = block.value()}).ok();
  if (drawing.modelSpace() != cad::kNoRecord)
    for (const RecordId id : drawing.entitiesOf(drawing.modelSpace()))
      if (id % 3 == 0) (void)drawing.setErased(id, true).ok();
  (void)drawing.setHeaderVariable("LTSCALE", 2.5).ok();
  drawing.endUndoGroup();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Share share("drawings");
  static std::map<base::Version, cad::dwg::SmallDrawing> built;
  if (size == 0) return 0;
  const base::Version version = kVersions[data[0] % std::size(kVersions)];
  if (!built.contains(version)) built[version] = cad::dwg::builtParts(version);
  cad::dwg::SmallDrawing parts = built[version];
  fuzz::spoilBy(data + 1, size - 1, parts);
  const std::string bytes = cad::dwg::bytesOf(parts);
  const auto drawing = opened(bytes);
  share.add(drawing != nullptr);
  if (!drawing) return 0;
  ask(*drawing);
  change(*drawing);
  ask(*drawing);
  static const std::filesystem::path path = fuzz::scratchPath(".dwg");
  if (drawing->save(path).ok()) {
    const auto saved = base::readFile(path);
    require(saved.ok() && opened(saved.value()) != nullptr, "what is saved is read again");
    std::filesystem::remove(path);
  }
  while (drawing->undo()) {
  }
  require(fuzz::savedBytes(*drawing) == bytes, "undo gives the file back");
  return 0;
}
