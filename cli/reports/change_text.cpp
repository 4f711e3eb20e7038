#include "cli/reports/change_text.h"

#include <unordered_set>

#include "base/codepage.h"
#include "cli/joined.h"
#include "cli/language/language.h"

namespace kivcli {
namespace {

constexpr const wchar_t* kSections[] = {
    L"texts",          L"dimensions",       L"hatches",           L"other entities", L"dimension settings",
    L"layer settings", L"layers to create", L"linetypes to load", L"text styles",    L"arrows"};

std::wstring valueText(const std::wstring& value) { return value.empty() ? tr(L"(none)") : value; }

void addLines(std::vector<std::wstring>& lines, const std::vector<cad::RecordDifference>& differences) {
  for (const cad::RecordDifference& difference : differences) {
    lines.push_back(objectText(difference) + L": " + fateText(difference.fate));
    for (const cad::ValueChange& change : difference.changes) lines.push_back(L"  " + changeText(change));
  }
}

template <class Items>
std::wstring texts(const Items& items) {
  return joined(items, L", ", &Items::value_type::text);
}

}  // namespace

std::wstring objectText(const cad::RecordDifference& difference) {
  std::wstring text = base::fromUtf8(difference.type);
  if (!difference.handle.empty()) text += L" " + difference.handle;
  if (!difference.name.empty()) text += L" " + difference.name;
  if (!difference.layer.empty()) text += L", " + tr(L"layer %1", {difference.layer});
  if (!difference.block.empty() && !difference.block.starts_with(L"*"))
    text += L", " + tr(L"in block %1", {difference.block});
  return text;
}

std::wstring changeText(const cad::ValueChange& change) {
  const std::wstring name = tr(base::fromUtf8(change.name));
  if (change.before.empty() && change.after.empty()) return tr(L"%1: another one", {name});
  return name + L": " + valueText(change.before) + L" -> " + valueText(change.after);
}

std::wstring fateText(cad::RecordFate fate) {
  switch (fate) {
    case cad::RecordFate::kAdded:
      return tr(L"added");
    case cad::RecordFate::kRemoved:
      return tr(L"removed");
    default:
      return tr(L"changed");
  }
}

std::vector<std::wstring> differenceLines(const cad::DrawingDifferences& differences) {
  std::vector<std::wstring> lines;
  if (differences.pairedByOrder && !differences.entities.empty())
    lines.push_back(tr(L"entities without handles: paired by their order within their block"));
  addLines(lines, differences.entities);
  addLines(lines, differences.records);
  addLines(lines, differences.objects);
  if (!differences.variables.empty()) lines.push_back(tr(L"variables of the drawing: changed"));
  for (const cad::ValueChange& change : differences.variables) lines.push_back(L"  " + changeText(change));
  return lines;
}

ChangeCounts countsOf(const cad::DrawingDifferences& differences) {
  return {differences.entities.size(), differences.records.size(),
          differences.objects.size() + differences.variables.size()};
}

std::wstring countsText(const ChangeCounts& counts) {
  if (counts.all() == 0) return tr(L"no differences");
  return tr(
      L"entities: %1, records of tables: %2, other objects and variables: %3",
      {std::to_wstring(counts.entities), std::to_wstring(counts.records), std::to_wstring(counts.others)});
}

std::vector<std::wstring> changeLines(const DrawingReport& report) {
  std::vector<std::wstring> lines;
  if (report.isDryRun && report.outcome != Outcome::kNotConverted) {
    lines.push_back(report.given + L": " + tr(L"would change: %1", {countsText(report.counts)}));
    for (const SettingFacts& facts : report.settings) {
      if (facts.hits == 0) continue;
      lines.push_back(L"  " + settingTitle(facts));
      if (!facts.isEntry) lines.push_back(L"    " + hitsText(facts));
      if (facts.isEntry && facts.refused() > 0) lines.push_back(L"    " + entryText(facts));
    }
  }
  for (const std::wstring& line : differenceLines(report.changes)) lines.push_back(L"  " + line);
  return lines;
}

std::wstring hitsText(const SettingFacts& facts) {
  std::wstring text =
      tr(L"hits: %1, changed: %2", {std::to_wstring(facts.hits), std::to_wstring(facts.changed)});
  if (facts.locked > 0) text += L", " + tr(L"on locked layers: %1", {std::to_wstring(facts.locked)});
  if (facts.refused() > 0) text += L", " + tr(L"refused: %1", {std::to_wstring(facts.refused())});
  return text;
}

std::wstring entryText(const SettingFacts& facts) {
  const bool isRefused = facts.refused() > 0, isDone = facts.results.front().changed > 0;
  if (isRefused) return tr(isDone ? L"changes the drawing; a part of it is refused" : L"refused");
  return tr(isDone ? L"changes the drawing" : L"changes nothing");
}

std::wstring sectionName(int section) {
  return section >= 1 && section <= 10 ? tr(kSections[section - 1]) : std::to_wstring(section);
}

std::wstring settingTitle(const SettingFacts& facts) {
  std::wstring text = sectionName(facts.section) + L" " + std::to_wstring(facts.number) + L": ";
  if (facts.isEntry) return text + texts(facts.results);
  return text + (facts.conditions.empty() ? tr(L"all") : texts(facts.conditions)) + L" -> " +
         texts(facts.results);
}

}  // namespace kivcli
