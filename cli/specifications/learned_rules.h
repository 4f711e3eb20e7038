#pragma once
// What is learned of two drawings, as a CVT file.

#include <filesystem>
#include <string>
#include <vector>

#include "base/result.h"
#include "cli/session.h"
#include "cli/specifications/learned_drawing.h"

namespace kivcli {

struct LearnedSetting {
  int section = 0;
  std::vector<RuleColumn> columns;  // that the rule speaks of
  Rule rule;
};
struct LearnedEntry {
  int section = 0;
  std::vector<std::wstring> fields;
  cad::RecordId record = cad::kNoRecord;  // of the second drawing, that it makes; kNoRecord: a variable's
};
struct LearnedRules {
  LearnedScope scope;
  std::vector<LearnedSetting> settings;
  std::vector<LearnedEntry> entries;
  std::size_t left = 0;  // values of entities that no setting explains
};

LearnedRules learnSettings(LearnedDrawing& drawing, const LearnedScope& scope);

// What the second drawing has and the first one lacks, as far as lists bring it: layers, linetypes that a
// file of the support path defines, text styles, arrows, dimension variables.
std::vector<LearnedEntry> learnEntries(const cad::Drawing& before, const cad::Drawing& after,
                                       const cad::DrawingDifferences& differences,
                                       const std::vector<std::filesystem::path>& supportPath);

// Writes the file, and beside it its text search lists: NAME-1.LIST and so on.
base::Status writeLearned(Session& session, const LearnedRules& rules, const std::wstring& remark,
                          const std::filesystem::path& file);

}  // namespace kivcli
