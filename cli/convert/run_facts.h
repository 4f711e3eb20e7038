#pragma once
// Looks on while the module converts drawings, and counts what each setting does.

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "cli/reports/drawing_report.h"
#include "cli/session.h"

namespace kivcli {

// How one setting went for one entity, or a layer setting for its layer.
struct SettingTrace {
  int section = 0, number = 0;
  std::wstring layer;  // its layer's name before the setting; empty: the setting went for the entity itself
  enum class End { kFailed, kHit, kLocked, kRefused } end = End::kFailed;
  std::wstring condition, value;      // failed: the first condition that it did not meet, and what it has
  std::vector<std::wstring> done;     // hit: the results that changed it
  std::vector<std::wstring> without;  // hit: those that changed nothing
  std::vector<std::wstring> refused;  // hit: those that were refused
};

class RunFacts {
 public:
  // While it lives, runs of the session's module are looked on. The session must outlive it. Without tests
  // nothing is known of conditions, and a run takes hardly longer.
  RunFacts(Session& session, bool withTests);
  ~RunFacts();
  RunFacts(const RunFacts&) = delete;
  RunFacts& operator=(const RunFacts&) = delete;

  void begin(cad::Handle traced = 0);  // a new run; 0: no entity is followed
  const std::vector<SettingFacts>& settings() const { return settings_; }
  const std::vector<SettingTrace>& trace() const { return trace_; }

 private:
  void settingBegins(const KivObservedSetting& setting);
  void objectTested(const KivObservedObject& object, const unsigned char* passes, int failed);
  bool hasChanged() const;  // the drawing, since the result began
  void objectHit(const KivObservedObject& object, int hit);
  void resultBegins();
  void resultEnds(int result, bool isRefused);
  bool isTraced(const KivObservedObject& object) const {
    return tracedId_ != 0 && object.id == (isOfLayers() ? layerId_ : tracedId_);
  }
  bool isOfLayers() const;

  Session& session_;
  std::vector<SettingFacts> settings_;
  std::vector<SettingTrace> trace_;
  cad::RecordId traced_ = cad::kNoRecord, layer_ = cad::kNoRecord;
  long long tracedId_ = 0, layerId_ = 0;  // of the entity that is followed, and of its layer
  bool followsHit_ = false;               // the object hit last is the one that is followed
  bool isHitCounted_ = false;             // and has been counted as changed
  std::uint64_t revision_ = 0;            // of the drawing before the result
  std::size_t recordCount_ = 0;           // likewise
};

}  // namespace kivcli
