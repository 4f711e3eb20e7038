#include "cli/drawing_summary.h"

#include <algorithm>

#include "base/codepage.h"

namespace kivcli {
namespace {

std::size_t countStored(const cad::Drawing& drawing, cad::Table table) {
  const std::vector<cad::RecordId>& records = drawing.tableRecords(table);
  return static_cast<std::size_t>(std::count_if(records.begin(), records.end(), [&](cad::RecordId id) {
    return (drawing.record(id).flags & cad::Record::kImplied) == 0;
  }));
}

const wchar_t* releaseName(cad::Version version) {
  switch (version) {
    case cad::Version::kR12:
      return L"R12";
    case cad::Version::kR13:
      return L"R13";
    case cad::Version::kR14:
      return L"R14";
    case cad::Version::kR2000:
      return L"2000";
    case cad::Version::kR2004:
      return L"2004";
    case cad::Version::kR2007:
      return L"2007";
    case cad::Version::kR2010:
      return L"2010";
    case cad::Version::kR2013:
      return L"2013";
    case cad::Version::kR2018:
      return L"2018";
    case cad::Version::kUnknown:
      break;
  }
  return L"unknown release";
}

std::wstring row(std::wstring label, const std::wstring& value) {
  constexpr std::size_t kLabelWidth = 16;
  label.resize(std::max(label.size() + 1, kLabelWidth), L' ');
  return L"  " + label + value;
}

std::wstring row(const wchar_t* label, std::size_t count) { return row(label, std::to_wstring(count)); }

}  // namespace

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

std::vector<std::wstring> summaryLines(const DrawingSummary& summary) {
  const cad::DrawingFacts& facts = summary.facts;
  std::vector<std::wstring> lines;
  lines.push_back(row(L"version", base::fromUtf8(facts.versionCode) + L" (" + releaseName(facts.version) +
                                      (facts.form.empty() ? L")" : L", " + facts.form + L")")));
  lines.push_back(row(L"code page",
                      std::to_wstring(facts.codePage) +
                          (facts.codePageName.empty() ? std::wstring(L" (none declared)")
                                                      : L" (" + base::fromUtf8(facts.codePageName) + L")")));
  lines.push_back(row(L"entities", summary.entities));
  for (const auto& [type, count] : summary.entitiesByType) {
    lines.push_back(row(L"  " + base::fromUtf8(type), std::to_wstring(count)));
  }
  lines.push_back(row(L"in blocks", summary.blockEntities));
  lines.push_back(row(L"layers", summary.layers));
  lines.push_back(row(L"linetypes", summary.linetypes));
  lines.push_back(row(L"text styles", summary.textStyles));
  lines.push_back(row(L"blocks", summary.blocks));
  return lines;
}

}  // namespace kivcli
