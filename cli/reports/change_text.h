#pragma once
// Differences and facts of settings as lines for a person, in the user's language.

#include <string>
#include <vector>

#include "cli/reports/drawing_report.h"

namespace kivcli {

// "TEXT 2F", with the layer, or the name of a table's record.
std::wstring objectText(const cad::RecordDifference& difference);
std::wstring changeText(const cad::ValueChange& change);  // "layer: A -> B"
std::wstring fateText(cad::RecordFate fate);

// Everything that differs, each object with its changes below it, indented.
std::vector<std::wstring> differenceLines(const cad::DrawingDifferences& differences);
ChangeCounts countsOf(const cad::DrawingDifferences& differences);
std::wstring countsText(const ChangeCounts& counts);

// What is told of a drawing that was looked at more closely than by converting it: of a dry run what would
// change, setting by setting, and each change where it was asked for. None for other drawings.
std::vector<std::wstring> changeLines(const DrawingReport& report);

std::wstring sectionName(int section);                 // 1 to 10
std::wstring entryText(const SettingFacts& facts);     // what became of an entry of a list
std::wstring hitsText(const SettingFacts& facts);      // hits, changes, refusals
std::wstring settingTitle(const SettingFacts& facts);  // "texts 2: 画層=A* -> 画層=B"

}  // namespace kivcli
