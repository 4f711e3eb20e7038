#include "cli/convert/batch.h"

#include <algorithm>
#include <utility>

#include "base/files.h"
#include "base/temporary_files.h"
#include "cli/convert/resume.h"
#include "cli/convert/worker_lines.h"
#include "cli/language/language.h"

namespace kivcli {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kWaitInBetween{200}, kTimeToEnd{2000};

// Where a process costs no more than copying this one, every drawing is converted in another. Elsewhere one
// that is alone has nobody whom its crash could harm.
#if defined(_WIN32)
constexpr bool kProcessesAreCheap = false;
#else
constexpr bool kProcessesAreCheap = true;
#endif

}  // namespace

Batch::Batch(Session& session, const Arguments& arguments, const RuleFiles& rules,
             const std::vector<PlannedDrawing>& plan)
    : session_(session), arguments_(arguments), rules_(rules), plan_(plan), reports_(plan.size()) {
  if (!isWorthAWorker()) return;
  jobs_ = static_cast<std::size_t>(arguments.jobs > 0 ? arguments.jobs
                                   : plan.size() > 1  ? base::usableProcessors()
                                                      : 1);
  base::ChildWork work;
  work.work = [this](base::RequestChannel& channel) {
    session_.host().removeTemporaryFilesOnSignals();
    return Worker(session_, arguments_).serve(channel);
  };
  work.words = arguments.words;
  work.words.insert(work.words.begin(), kWorkerWord);
  group_ = base::ChildGroup::create(std::move(work));
}

Batch::~Batch() = default;

bool Batch::isWorthAWorker() const {
  return kProcessesAreCheap || plan_.size() > 1 || arguments_.timeout > 0;
}

std::size_t Batch::run(const Listener& listener) {
  if (!group_) {
    runHere(listener);
    return 0;
  }
  for (std::size_t told = 0; told < plan_.size();) {
    if (base::interruption() != 0) {
      endWorkers();
      const std::size_t notBegun = plan_.size() - done_;
      for (; told < plan_.size(); ++told) tellFinished(listener, told);
      return notBegun;
    }
    handOut();
    tellFinished(listener, told);
    listener.waits(done_);
    if (busy_.empty()) continue;
    if (const auto message = group_->wait(timeToWait())) take(*message);
    giveUpLateOnes();
  }
  return 0;
}

void Batch::tellFinished(const Listener& listener, std::size_t& told) {
  for (; told < plan_.size() && reports_[told]; ++told) {
    listener.told(plan_[told], *reports_[told]);
    reports_[told].reset();
  }
}

// What a worker has finished by now still counts.
void Batch::endWorkers() {
  group_->end();
  const Clock::time_point end = Clock::now() + kTimeToEnd;
  while (!busy_.empty()) {
    if (const auto message = group_->wait(kWaitInBetween)) take(*message);
    if (Clock::now() < end) continue;
    for (const auto& [child, assignment] : busy_) group_->kill(child);
  }
}

void Batch::runHere(const Listener& listener) {
  session_.host().removeTemporaryFilesOnSignals();
  Worker worker(session_, arguments_);
  for (const PlannedDrawing& drawing : plan_) {
    DrawingReport report = worker.convert(drawing);
    tellOtherRules(drawing, report);
    listener.told(drawing, report);
  }
}

void Batch::handOut() {
  while (next_ < plan_.size()) {
    if (!plan_[next_].refusal.empty()) {
      lose(next_, plan_[next_].refusal);
      ++next_;
      continue;
    }
    if (!idle_.empty() && rules_.areUnchanged()) {
      handNextTo(idle_.back());
      continue;
    }
    if (!idle_.empty()) {
      lose(next_++, tr(L"not converted: the CVT file or a text search list of it was changed after the batch "
                       L"had begun"));
      continue;
    }
    if (busy_.size() >= jobs_) return;
    const base::Result<int> started = group_->start();
    if (started) {
      idle_.push_back(started.value());
    } else if (busy_.empty()) {
      lose(next_++, tr(L"not converted: no process can be started for it: %1",
                       {translated(started.failure().reason)}));
    } else {
      return;  // those that there are go on
    }
  }
}

void Batch::handNextTo(int child) {
  idle_.pop_back();
  const Clock::time_point end = arguments_.timeout > 0
                                    ? Clock::now() + std::chrono::seconds(arguments_.timeout)
                                    : Clock::time_point::max();
  busy_[child] = {next_, end, stampOf(plan_[next_].target)};
  group_->send(child, lineOf(plan_[next_]));
  ++next_;
}

milliseconds Batch::timeToWait() const {
  milliseconds time = kWaitInBetween;
  for (const auto& [child, assignment] : busy_) {
    if (assignment.end == Clock::time_point::max()) continue;
    const auto left = std::chrono::ceil<milliseconds>(assignment.end - Clock::now());
    time = std::clamp(left, milliseconds(0), time);
  }
  return time;
}

void Batch::giveUpLateOnes() {
  for (auto& [child, assignment] : busy_) {
    if (assignment.isLate || assignment.end > Clock::now()) continue;
    assignment.isLate = true;
    group_->kill(child);
  }
}

void Batch::take(const base::ChildMessage& message) {
  const auto found = busy_.find(message.child);
  if (found == busy_.end()) {
    std::erase(idle_, message.child);
    return;
  }
  const Assignment assignment = found->second;
  if (message.end) {
    busy_.erase(found);
    loseUnderWay(assignment, reasonOf(*message.end, assignment.isLate));
  } else if (auto report = reportOf(message.line)) {
    busy_.erase(found);
    tellOtherRules(plan_[assignment.drawing], *report);
    reports_[assignment.drawing] = std::move(*report);
    ++done_;
    idle_.push_back(message.child);
  } else {
    group_->kill(message.child);  // its end is told next
  }
}

// A drawing that was under way when the rules became others was converted by the old ones or the new, which
// nobody can tell; the numbers of settings stand for other ones in each.
void Batch::tellOtherRules(const PlannedDrawing& drawing, DrawingReport& report) const {
  if (report.outcome == Outcome::kNotConverted || rules_.areUnchanged()) return;
  if (!report.saved.empty()) leaveForResume(drawing);
  report.outcome = Outcome::kWithProblems;
  report.settings.clear();
  report.messages.push_back(
      report.given + L": " +
      tr(L"the CVT file or a text search list of it was changed while the drawing was converted; by which of "
         L"them it was is not known"));
}

void Batch::lose(std::size_t drawing, const std::wstring& reason) {
  DrawingReport report;
  report.given = plan_[drawing].given;
  report.messages.push_back(report.given + L": " + reason);
  reports_[drawing] = std::move(report);
  ++done_;
}

// It may have been saved already, when only what is told of it was missing.
void Batch::loseUnderWay(const Assignment& assignment, const std::wstring& reason) {
  const PlannedDrawing& drawing = plan_[assignment.drawing];
  removeRemainsOf(drawing);
  if (stampOf(drawing.target) == assignment.target) {
    return lose(assignment.drawing, tr(L"not converted: %1", {reason}));
  }
  leaveForResume(drawing);
  lose(assignment.drawing, tr(L"saved, but its problems and changes are not known: %1", {reason}));
  reports_[assignment.drawing]->saved = base::pathText(drawing.target);
  reports_[assignment.drawing]->outcome = Outcome::kWithProblems;
}

std::wstring Batch::reasonOf(const base::ChildEnd& end, bool isLate) const {
  if (base::interruption() != 0) return tr(L"the batch was interrupted");
  if (isLate) return tr(L"it took longer than %1 s and was given up", {std::to_wstring(arguments_.timeout)});
  if (end.signal == 0) {
    return tr(L"the process that converted it ended with status %1", {std::to_wstring(end.exitStatus)});
  }
  return tr(L"the process that converted it was ended by signal %1 (%2)",
            {std::to_wstring(end.signal), end.signalName});
}

void Batch::removeRemainsOf(const PlannedDrawing& drawing) const {
  if (arguments_.isDryRun) return;
  base::removeAbandonedTemporaryFiles(drawing.target.parent_path());
  if (!arguments_.logFolder.empty()) {
    base::removeAbandonedTemporaryFiles(base::pathFromText(arguments_.logFolder));
  }
}

}  // namespace kivcli
