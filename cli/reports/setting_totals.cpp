#include "cli/reports/setting_totals.h"

#include "cli/reports/change_text.h"

namespace kivcli {

void SettingSums::add(const std::vector<SettingFacts>& ofOneDrawing) {
  for (const SettingFacts& facts : ofOneDrawing) {
    const auto [place, isNew] = places_.try_emplace({facts.section, facts.number}, totals_.size());
    if (isNew)
      totals_.push_back({facts.section, facts.number, settingTitle(facts), facts.isEntry, 0, 0, 0, 0, 0});
    SettingTotals& totals = totals_[place->second];
    totals.drawings += facts.hits > 0 ? 1 : 0;
    totals.hits += facts.hits, totals.changed += facts.changed;
    totals.locked += facts.locked, totals.refused += facts.refused();
  }
}

}  // namespace kivcli
