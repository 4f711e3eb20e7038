#pragma once
// The embedded host with the module loaded into it: what every call works through.

#include <memory>
#include <string>

#include "base/result.h"
#include "embedded/editor/host.h"
#include "host/automation.h"
#include "host/specification_automation.h"

namespace kivcli {

// What the module does with CVT files themselves.
struct SpecificationCalls {
  KivCheckSpecification check = nullptr;
  KivCheckSpecificationFor checkFor = nullptr;
  KivFormatSpecification format = nullptr;
  KivWriteSpecification write = nullptr;
  KivWriteTextList writeTextList = nullptr;
};

class Session {
 public:
  // Starts the host and loads the module that stands beside the program. One session per process.
  static base::Result<std::unique_ptr<Session>> start();
  ~Session();  // unloads the module and closes what is open
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  cad::Host& host() { return host_; }

  // The module's automation entry; what a report points to is the module's, until the next call of its kind.
  bool setConversion(const KivConversion& conversion) { return setConversion_(&conversion) != 0; }
  KivRunReport lastRunReport();
  KivSpecificationReport checkSpecification(const std::wstring& path);
  const SpecificationCalls& specifications() const { return specifications_; }
  // Null: nobody looks on any more.
  bool observeRuns(const KivRunObserver* observer) { return observeRuns_(observer) != 0; }

  // What the host and the module have printed since the last call, as one line.
  std::wstring takeOutput();

 private:
  explicit Session(cad::Host& host);
  base::Status loadModule();

  cad::Host& host_;
  std::wstring output_;
  KivSetConversion setConversion_ = nullptr;
  KivLastRunReport lastRunReport_ = nullptr;
  SpecificationCalls specifications_;
  KivObserveRuns observeRuns_ = nullptr;
};

}  // namespace kivcli
