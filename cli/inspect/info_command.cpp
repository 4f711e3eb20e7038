// kivcvt info: what drawings contain, in numbers.

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "base/codepage.h"
#include "base/files.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/text_width.h"
#include "embedded/drawing/handle_text.h"
#include "embedded/editor/host.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

struct DrawingSummary {
  cad::DrawingFacts facts;
  std::map<std::string, std::size_t> entitiesByType;  // of model space and every paper space
  std::size_t entities = 0;                           // their sum
  std::size_t blockEntities = 0;                      // inside block definitions
  // Records that stand in the drawing, without those that the host only implies.
  std::size_t layers = 0, linetypes = 0, textStyles = 0;
  std::size_t blocks = 0;  // definitions, without the spaces
};

std::size_t countStored(const cad::Drawing& drawing, cad::Table table) {
  const std::vector<cad::RecordId>& records = drawing.tableRecords(table);
  return static_cast<std::size_t>(std::count_if(records.begin(), records.end(), [&](cad::RecordId id) {
    return (drawing.record(id).flags & cad::Record::kImplied) == 0;
  }));
}

std::wstring row(std::wstring label, const std::wstring& value) {
  constexpr std::size_t kLabelWidth = 16;
  label.resize(label.size() + std::max<std::size_t>(kLabelWidth, columnsOf(label) + 1) - columnsOf(label),
               L' ');
  return L"  " + label + value;
}

std::wstring row(const std::wstring& label, std::size_t count) { return row(label, std::to_wstring(count)); }

DrawingSummary summarize(const cad::Drawing& drawing) {
  DrawingSummary summary;
  summary.facts = drawing.facts();
  for (const cad::RecordId block : drawing.tableRecords(cad::Table::kBlock)) {
    const bool isSpace = drawing.isLayoutSpace(block);
    if (!isSpace) ++summary.blocks;
    for (const cad::RecordId entity : drawing.entitiesOf(block)) {
      if (drawing.record(entity).erased()) continue;
      if (!isSpace) {
        ++summary.blockEntities;
        continue;
      }
      ++summary.entities;
      ++summary.entitiesByType[std::string(drawing.typeName(entity))];
    }
  }
  summary.layers = countStored(drawing, cad::Table::kLayer);
  summary.linetypes = countStored(drawing, cad::Table::kLinetype);
  summary.textStyles = countStored(drawing, cad::Table::kTextStyle);
  return summary;
}

// One line for each fact, to be printed below the drawing's name.
std::vector<std::wstring> summaryLines(const DrawingSummary& summary) {
  const cad::DrawingFacts& facts = summary.facts;
  std::vector<std::wstring> lines;
  lines.push_back(row(tr(L"version"), base::fromUtf8(facts.versionCode) + L" (" +
                                          translated(base::releaseName(facts.version)) +
                                          (facts.form.empty() ? L")" : L", " + tr(facts.form) + L")")));
  lines.push_back(row(tr(L"code page"),
                      std::to_wstring(facts.codePage) +
                          (facts.codePageName.empty() ? L" (" + tr(L"none declared") + L")"
                                                      : L" (" + base::fromUtf8(facts.codePageName) + L")")));
  lines.push_back(row(tr(L"entities"), summary.entities));
  for (const auto& [type, count] : summary.entitiesByType) {
    lines.push_back(row(L"  " + base::fromUtf8(type), std::to_wstring(count)));
  }
  lines.push_back(row(tr(L"in blocks"), summary.blockEntities));
  lines.push_back(row(tr(L"layers"), summary.layers));
  lines.push_back(row(tr(L"linetypes"), summary.linetypes));
  lines.push_back(row(tr(L"text styles"), summary.textStyles));
  lines.push_back(row(tr(L"blocks"), summary.blocks));
  return lines;
}

// "LAYER WALL"; of an entity the block that it is in, "TEXT (MARK)".
std::wstring objectText(const cad::Drawing& drawing, cad::RecordId id) {
  std::wstring text = base::fromUtf8(drawing.typeName(id));
  const cad::Record& record = drawing.record(id);
  const bool isEntity = record.kind == cad::RecordKind::kEntity;
  const cad::RecordId block = isEntity ? drawing.blockOf(id) : cad::kNoRecord;
  if (isEntity && block == cad::kNoRecord) return text;
  const cad::NameId name = drawing.recordName(isEntity ? block : id);
  if (name == cad::kNoName) return text;
  return text + (isEntity ? L" (" : L" ") + drawing.names().text(name) + (isEntity ? L")" : L"");
}

// Every one, for the message that the drawing is damaged names but the first.
std::vector<std::wstring> damageLines(const cad::Drawing& drawing) {
  std::vector<std::wstring> lines;
  const auto add = [&](const std::vector<cad::Handle>& objects, const std::wstring& what) {
    if (!objects.empty()) lines.push_back(row(what, objects.size()));
    for (const cad::Handle handle : objects) {
      const cad::RecordId id = drawing.findHandle(handle);
      lines.push_back(
          row(L"  " + cad::handleText(handle), id == cad::kNoRecord ? L"" : objectText(drawing, id)));
      while (lines.back().ends_with(L' ')) lines.back().pop_back();
    }
  };
  const cad::DamagedObjects& damage = drawing.facts().damage;
  add(damage.unreadable, tr(L"unreadable"));
  add(damage.withWrongChecksum, tr(L"wrong checksum"));
  add(damage.ownerless, tr(L"in no block"));
  return lines;
}

}  // namespace

int runInfo(const Arguments& arguments) {
  cad::Host& host = cad::Host::instance();
  host.start();
  int status = kAllDone;
  for (const std::wstring& file : arguments.files) {
    if (base::Status opened = host.openDocument(base::pathFromText(file)); !opened) {
      complainAbout(file, opened.failure());
      status = kSomeFailed;
      continue;
    }
    for (const std::wstring& warning : cad::formats::warningsAbout(host.currentDrawing())) {
      complain(file + L": " + translated(warning));
      status = kSomeFailed;
    }
    printLine(file);
    for (const std::wstring& line : summaryLines(summarize(host.currentDrawing()))) printLine(line);
    for (const std::wstring& line : damageLines(host.currentDrawing())) printLine(line);
    if (base::Status closed = host.closeDocument(); !closed) {
      complainAbout(file, closed.failure());
      status = kSomeFailed;
    }
  }
  host.stop();
  return status;
}

}  // namespace kivcli
