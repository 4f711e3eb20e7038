#include "cli/specifications/learned_rules.h"

#include <algorithm>
#include <deque>
#include <filesystem>
#include <set>

#include "base/codepage.h"
#include "base/files.h"
#include "base/fold.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/support/arrow_blocks.h"
#include "embedded/support/linetype_file.h"
#include "spec/item_kinds.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;
using cad::Property;
using cad::Table;

void add(int section, const RuleTable& table, std::vector<Rule> rules,
         std::vector<LearnedSetting>& settings) {
  for (Rule& rule : rules) {
    // Every setting of layers names one.
    const bool needsLayer =
        section == kiv::kLayerSettingSection &&
        std::ranges::find(rule.conditions, 0U, &RuleCondition::column) == rule.conditions.end();
    if (needsLayer) rule.conditions.insert(rule.conditions.begin(), {0, false, L"*"});
    settings.push_back({section, table.columns, std::move(rule)});
  }
}

std::vector<cad::RecordId> newRecords(const cad::Drawing& before, const cad::Drawing& after, Table table) {
  std::vector<cad::RecordId> found;
  for (const cad::RecordId id : after.tableRecords(table)) {
    const cad::NameId name = after.recordName(id);
    if (name != cad::kNoName && !after.names().text(name).empty() &&
        before.find(table, after.names().text(name)) == cad::kNoRecord)
      found.push_back(id);
  }
  return found;
}

// A layer that only has another name now is not made.
bool isRenamed(cad::RecordId layer, const cad::DrawingDifferences& differences) {
  return std::ranges::any_of(differences.records, [&](const cad::RecordDifference& difference) {
    return difference.fate == cad::RecordFate::kChanged && difference.type == "LAYER" &&
           difference.after == layer;
  });
}

// Name, colour and linetype; the rest where it is not what a new layer has. What no entry can say is left
// out.
std::vector<std::wstring> creationFields(const cad::Drawing& drawing, cad::RecordId layer) {
  const std::vector<std::wstring> usual = {L"ON", L"OFF", L"OFF", L"ON", L"DEFAULT", L"0"};
  std::vector<std::wstring> fields = layerFields(drawing, layer);
  for (std::size_t i = 1; i < fields.size(); ++i)
    if (fields[i].starts_with(L"<")) fields[i] = i < 3 ? L"" : usual[i - 3];
  if (std::equal(fields.begin() + 3, fields.end(), usual.begin(), usual.end())) fields.resize(3);
  return fields;
}

std::vector<fs::path> linetypeFiles(const std::vector<fs::path>& folders) {
  std::vector<fs::path> files;
  for (const fs::path& folder : folders) {
    std::vector<fs::path> here;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
      if (base::equalFolded(base::pathText(entry.path().extension()), L".lin")) here.push_back(entry.path());
    }
    std::ranges::sort(here);
    files.insert(files.end(), here.begin(), here.end());
  }
  return files;
}

bool isSamePattern(const cad::support::LinetypeDefinition& definition, const std::vector<cad::Dash>& dashes) {
  return std::ranges::equal(definition.dashes, dashes,
                            [](const cad::support::DashDefinition& a, const cad::Dash& b) {
                              return std::abs(a.dash.length - b.length) < 1e-6;
                            });
}

// The file with the very pattern, else the first one with the name; empty: none has it.
std::wstring fileOfLinetype(const std::wstring& name, const std::vector<cad::Dash>& dashes,
                            const std::vector<fs::path>& files) {
  std::wstring found;
  for (const fs::path& file : files) {
    const auto content = base::readFile(file);
    if (!content.ok()) continue;
    for (const auto& definition : cad::support::parseLinetypes(content.value())) {
      if (!base::equalFolded(definition.name, name)) continue;
      if (isSamePattern(definition, dashes)) return base::pathText(file.filename());
      if (found.empty()) found = base::pathText(file.filename());
    }
  }
  return found;
}

// Style, font and big font; without a big font two fields.
std::vector<std::wstring> styleFields(const cad::Drawing& drawing, cad::RecordId style) {
  const auto text = [&](Property property) { return drawing.text(style, property).value_or(L""); };
  const std::wstring typeface = text(Property::kTypeface), bigFont = text(Property::kBigFontFile);
  std::vector<std::wstring> fields = {drawing.names().text(drawing.recordName(style)),
                                      typeface.empty() ? text(Property::kFontFile) : typeface};
  if (typeface.empty() && !bigFont.empty()) fields.push_back(bigFont);
  return fields;
}

bool isFoldedEqual(const std::vector<std::wstring>& a, const std::vector<std::wstring>& b) {
  return std::ranges::equal(
      a, b, [](const std::wstring& x, const std::wstring& y) { return base::equalFolded(x, y); });
}

void addStyles(const cad::Drawing& before, const cad::Drawing& after, std::vector<LearnedEntry>& entries) {
  for (const cad::RecordId style : after.tableRecords(Table::kTextStyle)) {
    if (after.recordName(style) == cad::kNoName || after.isShapeFile(style)) continue;
    std::vector<std::wstring> fields = styleFields(after, style);
    const cad::RecordId old = before.find(Table::kTextStyle, fields[0]);
    if (fields[1].empty() || (old != cad::kNoRecord && isFoldedEqual(styleFields(before, old), fields)))
      continue;
    entries.push_back({kiv::kFontSection, std::move(fields), style});
  }
}

void addVariables(const cad::Drawing& after, const cad::DrawingDifferences& differences,
                  std::vector<LearnedEntry>& entries) {
  for (const cad::ValueChange& change : differences.variables) {
    const cad::DimVariableInfo* info = cad::findDimVariable(change.name);
    const auto value = after.headerVariable(change.name);
    if (info == nullptr || !info->isOffered() || !value) continue;
    const std::wstring text = variableValue(*info, *value);
    if (!text.starts_with(L"<"))
      entries.push_back({kiv::kDimensionSettingSection, {base::fromUtf8(change.name), text}, cad::kNoRecord});
  }
}

// Texts and arrays that the module's entry is pointed to.
class Given {
 public:
  const wchar_t* keep(std::wstring text) { return texts_.emplace_back(std::move(text)).c_str(); }

  void add(const LearnedSetting& setting, const std::wstring& textList) {
    std::vector<KivItem>& conditions = items_.emplace_back();
    for (const RuleCondition& condition : setting.rule.conditions)
      conditions.push_back(item(setting.columns[condition.column], condition.value, condition.inverted));
    if (!textList.empty()) conditions.push_back({kiv::kTextListKind, 0, L"", keep(textList)});
    std::vector<KivItem>& results = items_.emplace_back();
    for (const RuleResult& result : setting.rule.results)
      results.push_back(item(setting.columns[result.column], result.value, false));
    settings.push_back({setting.section, static_cast<int>(conditions.size()), conditions.data(),
                        static_cast<int>(results.size()), results.data()});
  }

  void add(const LearnedEntry& entry) {
    std::vector<const wchar_t*>& fields = fields_.emplace_back();
    for (const std::wstring& field : entry.fields) fields.push_back(keep(field));
    entries.push_back({entry.section, static_cast<int>(fields.size()), fields.data()});
  }

  std::vector<KivSetting> settings;
  std::vector<KivEntry> entries;

 private:
  KivItem item(const RuleColumn& column, const std::wstring& value, bool inverted) {
    return {column.kind, inverted ? 1 : 0, keep(column.variable), keep(value)};
  }

  std::deque<std::wstring> texts_;
  std::deque<std::vector<KivItem>> items_;
  std::deque<std::vector<const wchar_t*>> fields_;
};

base::Status written(const fs::path& file, const wchar_t* refusal) {
  if (refusal[0] == L'\0') return {};
  return base::Failure{base::pathText(file), refusal};
}

std::size_t valuesLeft(const RuleTable& table) {
  std::size_t left = 0;
  for (const RuleObject& object : table.objects) {
    for (std::size_t c = 0; c < table.columns.size(); ++c)
      left += object.isHome && object.before[c] != object.after[c] ? object.count : 0;
  }
  return left;
}

LearnedRules settingsFor(LearnedDrawing& drawing, const LearnedScope& scope) {
  LearnedRules learned;
  learned.scope = scope;
  RuleTable layers = drawing.layers();
  add(kiv::kLayerSettingSection, layers, searchRules(layers), learned.settings);
  drawing.begin(scope);
  for (const int section :
       {kiv::kTextSection, kiv::kDimensionSection, kiv::kHatchSection, kiv::kOtherSection}) {
    RuleTable entities = drawing.entities(section);
    add(section, entities, searchRules(entities), learned.settings);
    learned.left += valuesLeft(entities);
    drawing.take(entities);
  }
  return learned;
}

// A file for a text list that does not stand there yet, in any case: whose it is, nobody knows.
fs::path newListFile(const fs::path& file, int& number) {
  std::set<std::wstring> taken;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(file.parent_path(), error))
    taken.insert(base::upper(base::pathText(entry.path().filename())));
  std::wstring name;
  do {
    name = base::pathText(file.stem()) + L"-" + std::to_wstring(++number) + L".LIST";
  } while (taken.contains(base::upper(name)));
  return file.parent_path() / base::pathFromText(name);
}

base::Status writeTexts(Session& session, const std::vector<std::wstring>& texts, const fs::path& file) {
  std::vector<const wchar_t*> rows;
  for (const std::wstring& text : texts) rows.push_back(text.c_str());
  const KivNames names{static_cast<int>(rows.size()), rows.data()};
  return written(file, session.specifications().writeTextList(&names, base::pathText(file).c_str()));
}

}  // namespace

LearnedRules learnSettings(LearnedDrawing& drawing, const LearnedScope& scope) {
  LearnedRules best = settingsFor(drawing, scope);
  if (!drawing.hasLeaders()) return best;
  LearnedScope other = scope;
  other.leadersAreOthers = true;
  LearnedRules rules = settingsFor(drawing, other);
  const auto cost = [](const LearnedRules& learned) {
    return std::pair(learned.left, learned.settings.size());
  };
  return cost(rules) < cost(best) ? rules : best;
}

std::vector<LearnedEntry> learnEntries(const cad::Drawing& before, const cad::Drawing& after,
                                       const cad::DrawingDifferences& differences,
                                       const std::vector<fs::path>& supportPath) {
  std::vector<LearnedEntry> entries;
  addVariables(after, differences, entries);
  for (const cad::RecordId layer : newRecords(before, after, Table::kLayer)) {
    if (!isRenamed(layer, differences))
      entries.push_back({kiv::kLayerCreationSection, creationFields(after, layer), layer});
  }
  const std::vector<fs::path> files = linetypeFiles(supportPath);
  for (const cad::RecordId linetype : newRecords(before, after, Table::kLinetype)) {
    const std::wstring& name = after.names().text(after.recordName(linetype));
    const std::wstring file = fileOfLinetype(name, after.dashes(linetype), files);
    if (!file.empty()) entries.push_back({kiv::kLinetypeSection, {name, file}, linetype});
  }
  addStyles(before, after, entries);
  for (const cad::RecordId block : newRecords(before, after, Table::kBlock)) {
    const std::wstring& name = after.names().text(after.recordName(block));
    // The list spells this one in a way of its own.
    const bool isTick = base::equalFolded(name, L"_ArchTick");
    if (cad::support::findArrowBlock(name) != nullptr)
      entries.push_back({kiv::kArrowSection, {isTick ? L"_ARCHTIC" : base::upper(name)}, block});
  }
  return entries;
}

base::Status writeLearned(Session& session, const LearnedRules& rules, const std::wstring& remark,
                          const fs::path& file) {
  Given given;
  int number = 0;
  std::vector<fs::path> lists;
  const auto withoutLists = [&](base::Status failed) {
    std::error_code unknown;
    for (const fs::path& list : lists) fs::remove(list, unknown);
    return failed;
  };
  for (const LearnedSetting& setting : rules.settings) {
    std::wstring name;
    if (!setting.rule.texts.empty()) {
      const fs::path list = newListFile(file, number);
      name = base::pathText(list.filename());
      if (base::Status status = writeTexts(session, setting.rule.texts, list); !status)
        return withoutLists(std::move(status));
      lists.push_back(list);
    }
    given.add(setting, name);
  }
  for (const LearnedEntry& entry : rules.entries) given.add(entry);
  const KivSpecification specification{remark.c_str(), static_cast<int>(given.settings.size()),
                                       given.settings.data(), static_cast<int>(given.entries.size()),
                                       given.entries.data()};
  base::Status status =
      written(file, session.specifications().write(&specification, base::pathText(file).c_str()));
  return status ? std::move(status) : withoutLists(std::move(status));
}

}  // namespace kivcli
