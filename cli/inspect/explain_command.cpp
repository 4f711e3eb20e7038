// kivcvt explain: what each setting of a specification does to a drawing, and why.

#include <algorithm>
#include <string>
#include <vector>

#include "base/codepage.h"
#include "base/files.h"
#include "base/paths.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/convert/drawing_conversion.h"
#include "cli/joined.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"
#include "cli/reports/change_text.h"
#include "cli/reports/report_json.h"
#include "cli/specifications/specification_check.h"
#include "embedded/editor/host.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

// --- All entities

void printSetting(const SettingFacts& facts) {
  printLine(L"  " + settingTitle(facts));
  if (facts.isEntry) {
    printLine(L"    " + entryText(facts));
    return;
  }
  printLine(L"    " + tr(L"looked at: %1", {std::to_wstring(facts.looked)}));
  for (const ConditionFacts& condition : facts.conditions) {
    printLine(L"    " + condition.text + L": " +
              tr(L"%1 pass, %2 left", {std::to_wstring(condition.passing), std::to_wstring(condition.left)}));
  }
  printLine(L"    " + hitsText(facts));
  for (const ResultFacts& result : facts.results) {
    std::wstring line =
        L"    -> " + result.text + L": " + tr(L"%1 changed", {std::to_wstring(result.changed)});
    if (result.refused > 0) line += L", " + tr(L"%1 refused", {std::to_wstring(result.refused)});
    printLine(line);
  }
}

// --- One entity

// Why the passes over the entities never looked at it.
std::wstring whyNotTested(const cad::Drawing& drawing, cad::RecordId id, int blockScope) {
  const cad::Record& record = drawing.record(id);
  if (record.kind == cad::RecordKind::kSubEntity)
    return tr(L"it is a part of another entity, with which it is converted");
  if (!drawing.isLayoutSpace(drawing.blockOf(id))) {
    return blockScope == 0
               ? tr(L"it is in a block definition; --block-scope 1 or 2 takes those that are referred to")
               : tr(L"it is in a block definition that no reference of the current space shows, or a "
                    L"reference inside one");
  }
  if (drawing.typeName(id) == "INSERT" && blockScope == 1)
    return tr(L"it is a block reference; --block-scope 0 or 2 takes these");
  return tr(L"no setting of the file is for entities of its kind");
}

std::wstring stepText(const SettingTrace& step) {
  switch (step.end) {
    case SettingTrace::End::kFailed:
      return step.value.empty() ? tr(L"does not meet %1", {step.condition})
                                : tr(L"does not meet %1: it has %2", {step.condition, step.value});
    case SettingTrace::End::kLocked:
      return tr(L"met, but it is on a locked layer");
    case SettingTrace::End::kRefused:
      return tr(L"met, but it could not be opened");
    case SettingTrace::End::kHit:
      break;
  }
  std::wstring text =
      step.done.empty() ? tr(L"met, and changes nothing") : tr(L"met, and changes %1", {joined(step.done)});
  if (!step.refused.empty()) text += L"; " + tr(L"refused: %1", {joined(step.refused)});
  return text;
}

struct Entity {
  std::wstring title, whyNotTested;
  std::wstring refusal;  // there is none: why
};

// "LAYER WALL"
std::wstring recordText(const cad::Drawing& drawing, cad::RecordId id) {
  const std::wstring type = base::fromUtf8(drawing.typeName(id));
  const cad::NameId name = drawing.recordName(id);
  return name == cad::kNoName ? type : type + L" " + drawing.names().text(name);
}

Entity entityOf(const Arguments& arguments, const std::wstring& file) {
  const auto drawing = cad::formats::open(base::pathFromText(file));
  if (!drawing.ok()) return {{}, {}, drawing.failure().text()};
  const cad::RecordId id = drawing.value()->findHandle(handleOfText(arguments.entity));
  if (id == cad::kNoRecord) return {{}, {}, tr(L"there is no entity with the handle %1", {arguments.entity})};
  const cad::Record& record = drawing.value()->record(id);
  if (record.kind != cad::RecordKind::kEntity && record.kind != cad::RecordKind::kSubEntity) {
    return {{},
            {},
            tr(L"%1 is the handle of %2, which is no entity",
               {arguments.entity, recordText(*drawing.value(), id)})};
  }
  const std::wstring type = base::fromUtf8(drawing.value()->typeName(id));
  return {type + L" " + arguments.entity, whyNotTested(*drawing.value(), id, arguments.blockScope), {}};
}

// Does some step go for the entity itself?
bool isTested(const std::vector<SettingTrace>& trace) {
  return std::ranges::any_of(trace, [](const SettingTrace& step) { return step.layer.empty(); });
}

void printEntity(const Entity& entity, const std::vector<SettingTrace>& trace) {
  printLine(L"  " + entity.title);
  for (const SettingTrace& step : trace) {
    const std::wstring layer = step.layer.empty() ? L"" : tr(L"its layer %1", {step.layer}) + L": ";
    printLine(L"    " + sectionName(step.section) + L" " + std::to_wstring(step.number) + L": " + layer +
              stepText(step));
  }
  if (!isTested(trace)) printLine(L"    " + entity.whyNotTested);
}

Json entityJson(const Entity& entity, const std::vector<SettingTrace>& trace) {
  constexpr const char* kEnds[] = {"failed", "hit", "locked", "refused"};
  Json steps = Json::array();
  for (const SettingTrace& step : trace) {
    Json json = {{"section", step.section},
                 {"number", step.number},
                 {"end", kEnds[static_cast<std::size_t>(step.end)]}};
    if (!step.layer.empty()) json["layer"] = base::toUtf8(step.layer);
    if (step.end == SettingTrace::End::kFailed) {
      json["condition"] = base::toUtf8(step.condition), json["value"] = base::toUtf8(step.value);
    }
    for (const auto& [name, texts] :
         {std::pair{"changed", &step.done}, {"unchanged", &step.without}, {"refused", &step.refused}})
      for (const std::wstring& text : *texts) json[name].push_back(base::toUtf8(text));
    steps.push_back(std::move(json));
  }
  Json json = {{"entity", base::toUtf8(entity.title)}, {"settings", std::move(steps)}};
  if (!isTested(trace)) json["notTested"] = base::toUtf8(entity.whyNotTested);
  return json;
}

// --- A drawing

struct Explanation {
  int status = kAllDone;
  Json json = Json::array();  // of all drawings
};

// Without the layer settings that left its layer as it was.
std::vector<SettingTrace> stepsOf(const RunFacts& facts) {
  std::vector<SettingTrace> steps = facts.trace();
  std::erase_if(steps, [](const SettingTrace& step) {
    return !step.layer.empty() && step.end == SettingTrace::End::kHit && step.done.empty() &&
           step.refused.empty();
  });
  return steps;
}

void explain(DrawingConversion& conversion, const Arguments& arguments, const std::wstring& file,
             Explanation& out) {
  const DrawingReport report = conversion.run({file, {}, base::SaveFormat::kDxf, whyNotReadTwice(file)});
  for (const std::wstring& message : report.messages) complain(message);
  if (report.outcome != Outcome::kConverted) out.status = kSomeFailed;
  if (report.outcome == Outcome::kNotConverted) return;
  Entity entity;
  if (!arguments.entity.empty()) entity = entityOf(arguments, file);
  if (!entity.refusal.empty()) {
    complain(file + L": " + entity.refusal);
    out.status = kSomeFailed;
    return;
  }
  if (arguments.asJson) {
    Json json = toJson(report);
    if (!entity.title.empty()) json["traced"] = entityJson(entity, stepsOf(conversion.facts()));
    out.json.push_back(std::move(json));
    return;
  }
  printLine(file + L": " + countsText(report.counts));
  if (!entity.title.empty()) return printEntity(entity, stepsOf(conversion.facts()));
  for (const SettingFacts& facts : report.settings) printSetting(facts);
}

}  // namespace

int runExplain(const Arguments& given) {
  base::Result<std::unique_ptr<Session>> session = Session::start();
  if (!session) {
    complainOfProgram(session.failure());
    return kUnusable;
  }
  Arguments arguments = given;
  arguments.isDryRun = true;
  const std::wstring specification = base::fullPath(arguments.specification);
  session.value()->host().setSupportPath(
      cad::usualSupportPath(base::pathFromText(specification).parent_path()));
  const KivSpecificationReport rules = session.value()->checkSpecification(specification);
  if (!reportSpecification(arguments.specification, rules)) return kUnusable;
  DrawingConversion conversion(*session.value(), arguments, {}, true);
  Explanation explanation;
  if (droppedLines(rules) > 0 || rules.changes == 0) explanation.status = kSomeFailed;
  for (const std::wstring& file : arguments.files) explain(conversion, arguments, file, explanation);
  if (arguments.asJson) printText(base::fromUtf8(explanation.json.dump(2)));
  return explanation.status;
}

}  // namespace kivcli
