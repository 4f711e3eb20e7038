#pragma once
// A drawing before and after a person converted it, as tables of values that rules could have changed.

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "cli/specifications/rule_search.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/drawing_diff.h"

namespace kivcli {

// How the drawing is to be converted: what a rule reaches.
struct LearnedScope {
  int blockScope = 0;  // 0 references, 1 their definitions, 2 both
  bool ignoresLocks = false;
  bool leadersAreOthers = false;  // rules for leaders are looked for among those of other objects
};

// What entities have, once and for all sections; rules change it section by section.
class LearnedDrawing {
 public:
  // All must outlive this object.
  LearnedDrawing(const cad::Drawing& before, const cad::Drawing& after,
                 const cad::DrawingDifferences& differences);

  // Some entity that differs stands in a definition of a block; is on a locked layer.
  bool needsDefinitions() const { return needsDefinitions_; }
  bool needsLocks() const { return needsLocks_; }
  // Leaders, which two sections reach, are among what differs.
  bool hasLeaders() const { return hasLeaders_; }

  // Before the first entities() of each scope: all values are those of the first drawing again.
  void begin(const LearnedScope& scope);
  // The entities that settings of this section (1 to 4) reach, as they are now, in objects of equal values.
  RuleTable entities(int section);
  // Brings what the rules of that section have changed into the entities.
  void take(const RuleTable& table);
  RuleTable layers() const;

 private:
  struct Entity {
    std::vector<int> before, after;
    unsigned sections = 0;  // that reach it, one bit each
    int home = 0;
    bool isLeader = false;
  };
  struct Pair {
    cad::RecordId before, after;
  };

  int number(const std::wstring& value);
  void pairUp(const cad::DrawingDifferences& differences);
  void readValues(const Pair& pair, Entity& entity);
  void readSide(const cad::Drawing& drawing, cad::RecordId id, bool isAfter, std::vector<int>& values);
  void readVariables(const cad::Drawing& drawing, cad::RecordId id, const cad::DimVariables& all,
                     std::vector<int>& values);
  void reachFrom(cad::RecordId block, std::map<cad::RecordId, bool>& reached) const;
  unsigned sectionsOf(cad::RecordId entity, const LearnedScope& scope,
                      const std::map<cad::RecordId, bool>& definitions) const;
  bool isLockedInTheEnd(cad::RecordId entity) const;

  const cad::Drawing &before_, &after_;
  cad::RecordId space_;  // the current one of the first drawing
  std::vector<std::wstring> values_;
  std::unordered_map<std::wstring, int> numbers_;
  std::map<std::wstring, std::wstring> renamedLayers_;  // folded
  std::vector<Pair> pairs_, layerPairs_;                // with kNoRecord before: one that is to be created
  std::vector<Entity> original_, entities_;
  std::vector<std::size_t> members_;  // of the newest table: its object by entity; -1: not in it
  bool needsDefinitions_ = false, needsLocks_ = false, hasLeaders_ = false;
};

// Values as a CVT file has them. What it cannot have stands in "<>".
std::wstring variableValue(const cad::DimVariableInfo& info, const cad::Variable& value);
std::vector<std::wstring> layerFields(const cad::Drawing& drawing, cad::RecordId layer);

}  // namespace kivcli
