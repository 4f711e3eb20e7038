#pragma once
// What the settings of a specification did to all drawings of a batch.

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "cli/reports/drawing_report.h"

namespace kivcli {

struct SettingTotals {
  int section = 0, number = 0;  // as in the CVT file, from 1
  std::wstring title;           // in the user's language
  bool isEntry = false;         // of a list
  std::size_t drawings = 0;     // in which it met something
  std::size_t hits = 0, changed = 0, locked = 0, refused = 0;
};

class SettingSums {
 public:
  void add(const std::vector<SettingFacts>& ofOneDrawing);
  const std::vector<SettingTotals>& all() const { return totals_; }  // in the order of the run
  // Where all() has the setting, which was added before.
  std::size_t placeOf(const SettingFacts& facts) const { return places_.at({facts.section, facts.number}); }

 private:
  std::vector<SettingTotals> totals_;
  std::map<std::pair<int, int>, std::size_t> places_;
};

}  // namespace kivcli
