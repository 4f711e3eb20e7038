#pragma once
// What is in a folder, read by a thread of its own: it comes in piece by piece while the dialog is used.

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/result.h"
#include "siblings/KivFile/background.h"
#include "siblings/KivFile/drawing_list.h"

namespace kiv {

// The drawings of a folder: first their names, sizes and dates, then the release of each. Destroying it ends
// the reading.
class DrawingReading {
 public:
  explicit DrawingReading(const std::wstring& folder);

  struct News {
    std::vector<ListedDrawing> found;  // behind those that were told before
    // By their place among all found ones.
    std::vector<std::pair<std::size_t, DrawingRelease>> probed;
    std::optional<base::Failure> failure;  // of the list; what was found before it counts
    bool isListed = false;                 // no more are found
    bool hasEnded = false;                 // and all are probed
  };
  // What has come since the last time; for the thread that made this. Never waits for the folder.
  News takeNews();

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
  Background background_;
};

// The folders in a folder, those left out that the system hides.
class SubfolderReading {
 public:
  explicit SubfolderReading(const std::wstring& folder);

  struct Outcome {
    std::vector<std::wstring> names;  // as people sort them
    bool isWhole = false;             // false: the folder could not be read to its end
  };
  std::optional<Outcome> outcome() const;  // none yet
  void stop() { background_.stop(); }      // ahead of its destruction

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
  Background background_;
};

}  // namespace kiv
