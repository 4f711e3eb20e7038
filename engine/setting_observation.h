#pragma once
// What an observer is told of one setting or one list entry.

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/compiled_setting.h"
#include "engine/conditions.h"
#include "engine/host_access.h"
#include "engine/run_observer.h"

namespace kiv {

// Tells of the beginning, and when it goes of the end. Does nothing without an observer.
class ObservedSetting {
 public:
  // `results`: those that act on the section's objects.
  ObservedSetting(const KivRunObserver* observer, int section, int number, const std::wstring& line,
                  std::span<const FlatItem> conditions, std::span<const std::wstring> results);
  ~ObservedSetting();
  ObservedSetting(const ObservedSetting&) = delete;
  ObservedSetting& operator=(const ObservedSetting&) = delete;

 private:
  const KivRunObserver* observer_;
};

// An entry of a list: what is done while it lives is its one result. Accepted until somebody says otherwise.
class ObservedEntry {
 public:
  ObservedEntry(const KivRunObserver* observer, int section, int number, const std::wstring& line);
  ~ObservedEntry();
  void refuse() { isRefused_ = true; }

 private:
  const KivRunObserver* observer_;
  ObservedSetting setting_;
  bool isRefused_ = false;
};

// A setting's conditions one by one, as the run tests them together.
class ObservedConditions {
 public:
  ObservedConditions(const std::wstring& line, Pass pass, const TextListLoader& loadTextList,
                     SymbolNames& names);

  // `isSelected`: the entity comes from the host's selection, which wants each of its items met; else every
  // kind is held against the entity by its list of values.
  void test(const AcDbEntity& entity, EntityClass entityClass, bool isSelected,
            const KivRunObserver& observer);

 private:
  // Tests of one condition, or of all of one kind.
  struct Tests {
    Tests(const FlatSetting& flat, Pass pass, const TextListLoader& loadTextList, SymbolNames& names);
    bool pass(const AcDbEntity& entity, EntityClass entityClass);

    CompiledSetting setting;
    SettingTests tests;
  };
  struct Condition {
    std::unique_ptr<Tests> alone;
    std::unique_ptr<Tests> ofKind;  // of the last condition of a kind that has several
    bool isLastOfKind = true;
  };

  std::vector<Condition> conditions_;
  std::vector<unsigned char> passes_;
};

}  // namespace kiv
