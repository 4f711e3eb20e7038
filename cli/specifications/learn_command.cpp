// kivcvt learn: from a drawing before and after a person converted it, the rules that do the same.

#include <algorithm>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <system_error>
#include <tuple>

#include "base/codepage.h"
#include "base/files.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/temporary_files.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/specifications/learned_rules.h"
#include "cli/specifications/specification_check.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;
using base::Failure;
using base::Result;

// Rules are tried in a folder of their own, so that a file of the wanted name stays until they are found.
class TrialFolder {
 public:
  TrialFolder() : path_(base::temporaryName(fs::temp_directory_path(error_))) {
    if (!error_) fs::create_directory(path_, error_);
  }
  TrialFolder(const TrialFolder&) = delete;
  TrialFolder& operator=(const TrialFolder&) = delete;
  ~TrialFolder() {
    std::error_code unknown;
    fs::remove_all(path_, unknown);
  }
  base::Status status() const {
    if (!error_) return {};
    return Failure{base::pathText(path_), translated(base::fromUtf8(error_.message()))};
  }
  const fs::path& path() const { return path_; }

 private:
  std::error_code error_;
  fs::path path_;
};

// One value of one object that differs, or an object that only one drawing has.
struct Change {
  std::wstring object;  // "1A3 LINE", "LAYER WALL"
  std::wstring what;
  std::wstring before, after;
};
// Records of the first drawing keep their numbers when it is converted.
using ChangeKey = std::tuple<int, cad::RecordId, std::string>;
using Changes = std::map<ChangeKey, Change>;

std::wstring objectText(const cad::RecordDifference& difference) {
  std::wstring text = difference.handle;
  for (const std::wstring& part : {base::fromUtf8(difference.type), difference.name}) {
    if (!part.empty()) text += (text.empty() ? L"" : L" ") + part;
  }
  return text;
}

void addChanges(int category, const std::vector<cad::RecordDifference>& differences, Changes& changes) {
  for (const cad::RecordDifference& difference : differences) {
    const std::wstring object = objectText(difference);
    if (difference.fate == cad::RecordFate::kAdded) {
      changes.insert({{category + 1, difference.after, {}}, {object, tr(L"added"), {}, {}}});
    } else if (difference.fate == cad::RecordFate::kRemoved) {
      changes.insert({{category, difference.before, {}}, {object, tr(L"removed"), {}, {}}});
    }
    for (const cad::ValueChange& value : difference.changes) {
      // Names that differ in case are one name.
      const bool isName = value.property != cad::Property::kCount &&
                          cad::propertyInfo(value.property).type == cad::PropertyType::kName;
      // Whoever draws a dimension numbers its block anew; what it shows is told beside it.
      if (value.property == cad::Property::kDimBlock) continue;
      if ((isName || category > 0) && base::equalFolded(value.before, value.after)) continue;
      changes.insert({{category, difference.before, value.name},
                      {object, base::fromUtf8(value.name), value.before, value.after}});
    }
  }
}

Changes changesOf(const cad::DrawingDifferences& differences) {
  Changes changes;
  addChanges(0, differences.entities, changes);
  addChanges(2, differences.records, changes);
  for (const cad::ValueChange& value : differences.variables) {
    if (base::equalFolded(value.before, value.after)) continue;
    changes.insert({{4, cad::kNoRecord, value.name},
                    {tr(L"drawing"), base::fromUtf8(value.name), value.before, value.after}});
  }
  return changes;
}

struct Outcome {
  LearnedRules rules;
  Changes left;  // what differs from the second drawing after the conversion
};

class Learning {
 public:
  Learning(Session& session, const Arguments& arguments)
      : session_(session),
        first_(arguments.files[0]),
        second_(arguments.files[1]),
        file_(base::pathFromText(base::fullPath(arguments.outputFile))) {}

  Result<Outcome> run(Changes& all) {
    Result<std::unique_ptr<cad::Drawing>> before = open(first_);
    if (!before) return before.failure();
    Result<std::unique_ptr<cad::Drawing>> after = open(second_);
    if (!after) return after.failure();
    const cad::DrawingDifferences differences = cad::compareDrawings(*before.value(), *after.value());
    all = changesOf(differences);
    if (all.empty())
      return Failure{second_, tr(L"nothing differs from %1, so there is nothing to learn", {first_})};
    const std::vector<fs::path> support = cad::usualSupportPath(file_.parent_path());
    session_.host().setSupportPath(support);
    const std::vector<LearnedEntry> entries =
        learnEntries(*before.value(), *after.value(), differences, support);
    LearnedDrawing drawing(*before.value(), *after.value(), differences);
    std::optional<Outcome> best;
    for (const int scope : drawing.needsDefinitions() ? std::vector{0, 1, 2} : std::vector{0}) {
      Outcome outcome{learnSettings(drawing, {scope, drawing.needsLocks()}), {}};
      outcome.rules.entries = entries;
      if (base::Status tried = measure(*after.value(), outcome); !tried) return tried.failure();
      if (!best || outcome.left.size() < best->left.size()) best = std::move(outcome);
    }
    if (base::Status written = write(best->rules, file_); !written) return written.failure();
    return std::move(*best);
  }

 private:
  Result<std::unique_ptr<cad::Drawing>> open(const std::wstring& file) {
    auto drawing = cad::formats::open(base::pathFromText(file));
    if (!drawing) return Failure{file, translated(drawing.failure().reason)};
    return drawing;
  }

  base::Status write(const LearnedRules& rules, const fs::path& file) {
    const std::wstring remark =
        tr(L"learned from %1 and %2", {base::pathText(base::pathFromText(first_).filename()),
                                       base::pathText(base::pathFromText(second_).filename())});
    return writeLearned(session_, rules, remark, file);
  }

  // By the conversion itself, with the file as it is written.
  base::Status measure(const cad::Drawing& after, Outcome& outcome) {
    if (base::Status made = trial_.status(); !made) return made;
    const fs::path trial = trial_.path() / file_.filename();
    if (base::Status written = write(outcome.rules, trial); !written) return written;
    cad::Host& host = session_.host();
    if (base::Status opened = host.openDocument(base::pathFromText(first_)); !opened) return opened;
    const std::wstring specification = base::pathText(trial);
    KivConversion conversion{};
    conversion.specification = specification.c_str();
    conversion.blockScope = outcome.rules.scope.blockScope;
    conversion.ignoreLocks = outcome.rules.scope.ignoresLocks ? 1 : 0;
    const bool isSet = session_.setConversion(conversion);
    const base::Status executed = host.execute(L"KIV_TOACAD2");
    const bool isConverted = isSet && executed && session_.lastRunReport().end == kKivConverted;
    if (isConverted) outcome.left = changesOf(cad::compareDrawings(host.currentDrawing(), after));
    session_.takeOutput();
    if (base::Status closed = host.closeDocument(); !closed) return closed;
    if (!isConverted) return Failure{first_, tr(L"the conversion by the learned rules did not run")};
    return {};
  }

  Session& session_;
  std::wstring first_, second_;
  fs::path file_;
  TrialFolder trial_;
};

std::wstring changeText(const Change& change) {
  if (change.before.empty() && change.after.empty()) return change.object + L": " + change.what;
  return change.object + L": " + change.what + L": " + change.before + L" -> " + change.after;
}

std::size_t explained(const Changes& all, const Changes& left) {
  return static_cast<std::size_t>(
      std::ranges::count_if(all, [&](const auto& change) { return !left.contains(change.first); }));
}

void tell(const Arguments& arguments, const Changes& all, const Outcome& outcome) {
  const std::size_t done = explained(all, outcome.left);
  printLine(
      arguments.outputFile + L": " +
      tr(L"%1 and %2 explain %3 of %4 changes (%5 %)",
         {counted(static_cast<int>(outcome.rules.settings.size()), L"1 setting", L"%1 settings"),
          counted(static_cast<int>(outcome.rules.entries.size()), L"1 list entry", L"%1 list entries"),
          std::to_wstring(done), std::to_wstring(all.size()), std::to_wstring(done * 100 / all.size())}));
  const LearnedScope& scope = outcome.rules.scope;
  std::wstring options;
  if (scope.blockScope != 0) options += L" --block-scope " + std::to_wstring(scope.blockScope);
  if (scope.ignoresLocks) options += L" --ignore-locks";
  if (!options.empty()) printLine(tr(L"to be converted with%1", {options}));
  for (const auto& [key, change] : outcome.left) {
    const auto given = all.find(key);
    printLine(given != all.end() ? tr(L"not explained: %1", {changeText(given->second)})
                                 : tr(L"done by the rules and not by hand: %1", {changeText(change)}));
  }
}

void tellAsJson(const Arguments& arguments, const Changes& all, const Outcome& outcome) {
  nlohmann::ordered_json json;
  json["file"] = base::toUtf8(arguments.outputFile);
  json["settings"] = outcome.rules.settings.size();
  json["entries"] = outcome.rules.entries.size();
  json["changes"] = all.size();
  json["explained"] = explained(all, outcome.left);
  json["blockScope"] = outcome.rules.scope.blockScope;
  json["ignoreLocks"] = outcome.rules.scope.ignoresLocks;
  json["left"] = nlohmann::ordered_json::array();
  for (const auto& [key, change] : outcome.left) {
    const auto given = all.find(key);
    const Change& told = given != all.end() ? given->second : change;
    json["left"].push_back({{"object", base::toUtf8(told.object)},
                            {"property", base::toUtf8(told.what)},
                            {"before", base::toUtf8(told.before)},
                            {"after", base::toUtf8(told.after)},
                            {"byHand", given != all.end()}});
  }
  printText(base::fromUtf8(json.dump(2)));
}

}  // namespace

int runLearn(const Arguments& arguments) {
  base::Result<std::unique_ptr<Session>> session = Session::start();
  if (!session) {
    complainOfProgram(session.failure());
    return kUnusable;
  }
  Changes all;
  const Result<Outcome> outcome = Learning(*session.value(), arguments).run(all);
  if (!outcome) {
    complainOfProgram(outcome.failure());
    return kUnusable;
  }
  (arguments.asJson ? tellAsJson : tell)(arguments, all, outcome.value());
  return outcome.value().left.empty() ? kAllDone : kSomeFailed;
}

}  // namespace kivcli
