// kivcvt learn: from a drawing before and after a person converted it, the rules that do the same.

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>

#include "base/codepage.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/temporary_files.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/joined.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"
#include "cli/reports/change_text.h"
#include "cli/reports/report_json.h"
#include "cli/specifications/learned_changes.h"
#include "cli/specifications/learned_rules.h"
#include "cli/specifications/specification_check.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;
using base::Failure;
using base::Result;
using base::Status;

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
  Status status() const {
    if (!error_) return {};
    const Failure failure = base::fileFailure(path_, error_);
    return Failure{failure.place, translated(failure.reason)};
  }
  const fs::path& path() const { return path_; }

 private:
  std::error_code error_;
  fs::path path_;
};

struct Learned {
  LearnedRules rules;
  std::size_t changes = 0;       // made by hand, or by the rules alone
  std::vector<LeftChange> left;  // what differs from the second drawing after the conversion

  std::size_t explained() const { return changes - left.size(); }
  bool hasRules() const { return !rules.settings.empty() || !rules.entries.empty(); }
};

class Learning {
 public:
  Learning(Session& session, const Arguments& arguments)
      : session_(session),
        first_(arguments.files[0]),
        second_(arguments.files[1]),
        file_(base::pathFromText(base::fullPath(arguments.outputFile))) {}

  Result<Learned> run() {
    Result<std::unique_ptr<cad::Drawing>> before = open(first_);
    if (!before) return before.failure();
    Result<std::unique_ptr<cad::Drawing>> after = open(second_);
    if (!after) return after.failure();
    const cad::DrawingDifferences differences = cad::compareDrawings(*before.value(), *after.value());
    const HandMadeChanges byHand(*before.value(), *after.value(), differences);
    if (byHand.count() == 0)
      return Failure{second_, tr(L"nothing differs from %1, so there is nothing to learn", {first_})};
    const std::vector<fs::path> support = cad::usualSupportPath(file_.parent_path());
    session_.host().setSupportPath(support);
    const std::vector<LearnedEntry> entries =
        learnEntries(*before.value(), *after.value(), differences, support);
    LearnedDrawing drawing(*before.value(), *after.value(), differences);
    std::optional<Learned> best;
    for (const int scope : drawing.needsDefinitions() ? std::vector{0, 1, 2} : std::vector{0}) {
      Learned outcome{learnSettings(drawing, {scope, drawing.needsLocks()}), 0, {}};
      outcome.rules.entries = entries;
      if (Status tried = measure(byHand, outcome); !tried) return tried.failure();
      if (!best || outcome.left.size() < best->left.size()) best = std::move(outcome);
    }
    if (Status needed = keepNeededEntries(byHand, *best); !needed) return needed.failure();
    if (best->hasRules()) {
      if (Status written = write(best->rules, file_); !written) return written.failure();
    }
    for (const auto* drawn : {&before, &after})
      if (Status unchanged = drawn->value()->storage().checkUnchanged(); !unchanged)
        return unchanged.failure();
    return std::move(*best);
  }

 private:
  static Result<std::unique_ptr<cad::Drawing>> open(const std::wstring& file) {
    if (const std::wstring refusal = whyNotReadTwice(file); !refusal.empty()) return Failure{file, refusal};
    auto drawing = cad::formats::open(base::pathFromText(file));
    if (!drawing) return Failure{file, translated(drawing.failure().reason)};
    warnAbout(file, *drawing.value());
    return drawing;
  }

  Status write(const LearnedRules& rules, const fs::path& file) {
    const std::wstring remark =
        tr(L"learned from %1 and %2", {base::pathText(base::pathFromText(first_).filename()),
                                       base::pathText(base::pathFromText(second_).filename())});
    return writeLearned(session_, rules, remark, file);
  }

  // By the conversion itself, with the file as it is written.
  Status measure(const HandMadeChanges& byHand, Learned& outcome) {
    if (Status made = trial_.status(); !made) return made;
    const fs::path trial = trial_.path() / file_.filename();
    if (Status written = write(outcome.rules, trial); !written) return written;
    cad::Host& host = session_.host();
    if (Status opened = host.openDocument(base::pathFromText(first_)); !opened) return opened;
    const std::wstring specification = base::pathText(trial);
    KivConversion conversion{};
    conversion.specification = specification.c_str();
    conversion.blockScope = outcome.rules.scope.blockScope;
    conversion.ignoreLocks = outcome.rules.scope.ignoresLocks ? 1 : 0;
    const bool isSet = session_.setConversion(conversion);
    const Status executed = host.execute(L"KIV_TOACAD2");
    const bool isConverted = isSet && executed && session_.lastRunReport().end == kKivConverted;
    if (isConverted) outcome.left = byHand.leftBy(host.currentDrawing());
    outcome.changes = byHand.count() + static_cast<std::size_t>(
                                           std::ranges::count(outcome.left, false, &LeftChange::isByHand));
    session_.takeOutput();
    if (Status closed = host.closeDocument(); !closed) return closed;
    if (!isConverted) return Failure{first_, tr(L"the conversion by the learned rules did not run")};
    return {};
  }

  // Dimensions that are drawn anew bring layers and arrows along. What comes out as it should without its
  // entry needs none.
  Status keepNeededEntries(const HandMadeChanges& byHand, Learned& best) {
    Learned without = best;
    std::erase_if(without.rules.entries,
                  [](const LearnedEntry& entry) { return entry.record != cad::kNoRecord; });
    if (without.rules.entries.size() == best.rules.entries.size()) return {};
    if (Status tried = measure(byHand, without); !tried) return tried;
    Learned needed = best;
    std::erase_if(needed.rules.entries, [&](const LearnedEntry& entry) {
      return entry.record != cad::kNoRecord &&
             std::ranges::find(without.left, entry.record, &LeftChange::after) == without.left.end();
    });
    if (needed.rules.entries.size() == best.rules.entries.size()) return {};
    if (Status tried = measure(byHand, needed); !tried) return tried;
    if (needed.left.size() <= best.left.size()) best = std::move(needed);
    return {};
  }

  Session& session_;
  std::wstring first_, second_;
  fs::path file_;
  TrialFolder trial_;
};

// Words by `word`: for a person in the user's language, for programs as they are.
template <class Word>
std::wstring madeText(const std::vector<MadeValue>& made, Word word) {
  return joined(made, L"; ", [&](const MadeValue& each) {
    const bool hasBoth = !each.what.empty() && !each.value.empty();
    return word(each.what) + (hasBoth ? L" " : L"") + each.value;
  });
}

std::wstring handMadeText(const HandMadeChange& change) {
  const std::wstring object = (change.object.empty() ? tr(L"drawing") : change.object) + L": ";
  if (change.before.empty() && change.after.empty()) return object + tr(change.what);
  return object + changeText(cad::ValueChange{base::toUtf8(change.what), cad::Property::kCount, change.before,
                                              change.after});
}

std::wstring leftText(const LeftChange& left) {
  const std::wstring text = handMadeText(left.change);
  if (!left.isByHand) return tr(L"done by the rules and not by hand: %1", {text});
  if (left.made.empty()) return tr(L"not explained: %1", {text});
  return tr(L"not explained: %1; the rules make it %2",
            {text, madeText(left.made, [](const std::wstring& word) { return tr(word); })});
}

void tell(const Arguments& arguments, const Learned& outcome) {
  const std::size_t done = outcome.explained(), all = outcome.changes;
  printLine(arguments.outputFile + L": " +
            tr(L"%1 and %2 explain %3 of %4 changes (%5 %)",
               {counted(static_cast<int>(outcome.rules.settings.size()), L"1 setting", L"%1 settings"),
                counted(static_cast<int>(outcome.rules.entries.size()), L"1 list entry", L"%1 list entries"),
                std::to_wstring(done), std::to_wstring(all), std::to_wstring(done * 100 / all)}));
  const LearnedScope& scope = outcome.rules.scope;
  std::wstring options;
  if (scope.blockScope != 0) options += L" --block-scope " + std::to_wstring(scope.blockScope);
  if (scope.ignoresLocks) options += L" --ignore-locks";
  if (!options.empty() && outcome.hasRules()) printLine(tr(L"to be converted with%1", {options}));
  if (!outcome.hasRules()) printLine(arguments.outputFile + L": " + tr(L"not written: no rule was found"));
  for (const LeftChange& left : outcome.left) printLine(leftText(left));
}

void tellAsJson(const Arguments& arguments, const Learned& outcome) {
  Json json;
  json["file"] = readable(arguments.outputFile);
  json["written"] = outcome.hasRules();
  json["settings"] = outcome.rules.settings.size();
  json["entries"] = outcome.rules.entries.size();
  json["changes"] = outcome.changes;
  json["explained"] = outcome.explained();
  json["blockScope"] = outcome.rules.scope.blockScope;
  json["ignoreLocks"] = outcome.rules.scope.ignoresLocks;
  json["left"] = Json::array();
  for (const LeftChange& left : outcome.left) {
    json["left"].push_back({{"object", left.change.object.empty() ? "drawing" : readable(left.change.object)},
                            {"property", readable(left.change.what)},
                            {"before", readable(left.change.before)},
                            {"after", readable(left.change.after)},
                            {"made", readable(madeText(left.made, std::identity()))},
                            {"byHand", left.isByHand}});
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
  const Result<Learned> outcome = Learning(*session.value(), arguments).run();
  if (!outcome) {
    complainOfProgram(outcome.failure());
    return kUnusable;
  }
  (arguments.asJson ? tellAsJson : tell)(arguments, outcome.value());
  return outcome.value().left.empty() ? kAllDone : kSomeFailed;
}

}  // namespace kivcli
