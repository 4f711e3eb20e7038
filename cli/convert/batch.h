#pragma once
// Drawings converted by several processes at a time; what becomes of them is told in the order of their list.

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "base/child_process.h"
#include "cli/convert/file_stamp.h"
#include "cli/convert/rule_files.h"
#include "cli/convert/worker.h"

namespace kivcli {

class Batch {
 public:
  // All must outlive this object. The session has no drawing open. `rules` are those that were checked: from
  // the moment on at which they are others, no drawing is begun.
  Batch(Session& session, const Arguments& arguments, const RuleFiles& rules,
        const std::vector<PlannedDrawing>& plan);
  ~Batch();

  // Called in this process; must not throw.
  struct Listener {
    std::function<void(const PlannedDrawing&, const DrawingReport&)> told;  // once for each, in their order
    // Every so often in between; `done` counts the drawings that are through, told or not.
    std::function<void(std::size_t done)> waits;
  };
  // Ends early when the process is interrupted (base::interruption()). The number of drawings that were not
  // begun for that reason, of which nothing is told.
  std::size_t run(const Listener& listener);

 private:
  using Clock = std::chrono::steady_clock;
  struct Assignment {
    std::size_t drawing;
    Clock::time_point end;  // when it has taken too long
    FileStamp target;       // before
    bool isLate = false;
  };

  bool isWorthAWorker() const;
  void runHere(const Listener& listener);
  void handOut();
  void handNextTo(int child);
  std::chrono::milliseconds timeToWait() const;
  void giveUpLateOnes();
  void take(const base::ChildMessage& message);
  void tellFinished(const Listener& listener, std::size_t& told);
  void endWorkers();
  void tellOtherRules(const PlannedDrawing& drawing, DrawingReport& report) const;
  void lose(std::size_t drawing, const std::wstring& reason);
  void loseUnderWay(const Assignment& assignment, const std::wstring& reason);
  void removeRemainsOf(const PlannedDrawing& drawing) const;
  std::wstring reasonOf(const base::ChildEnd& end, bool isLate) const;

  Session& session_;
  const Arguments& arguments_;
  const RuleFiles& rules_;
  const std::vector<PlannedDrawing>& plan_;
  std::unique_ptr<base::ChildGroup> group_;  // null: the drawings are converted in this process
  std::size_t jobs_ = 1;
  std::vector<std::optional<DrawingReport>> reports_;
  std::size_t next_ = 0, done_ = 0;
  std::vector<int> idle_;
  std::map<int, Assignment> busy_;
};

}  // namespace kivcli
