#include "siblings/KivFile/folder_reading.h"

#include <algorithm>
#include <mutex>

#include "base/files.h"

namespace kiv {

struct DrawingReading::Shared {
  std::mutex mutex;
  News news;  // its two ends are told by each takeNews()
  bool isListed = false, isDone = false;

  std::vector<std::wstring> list(const std::filesystem::path& folder, const std::atomic<bool>& stop);
  void probe(const std::filesystem::path& folder, const std::vector<std::wstring>& names,
             const std::atomic<bool>& stop);
};

std::vector<std::wstring> DrawingReading::Shared::list(const std::filesystem::path& folder,
                                                       const std::atomic<bool>& stop) {
  std::vector<std::wstring> names;
  const base::Status listed = base::listFolder(folder, [&](base::FolderEntry entry) {
    if (stop) return false;
    if (entry.isFolder || entry.isHidden || !hasNameOfDrawing(entry.name)) return true;
    names.push_back(entry.name);
    const std::lock_guard<std::mutex> guard(mutex);
    news.found.push_back({std::move(entry.name), entry.size, entry.modified});
    return true;
  });
  const std::lock_guard<std::mutex> guard(mutex);
  if (!listed.ok()) news.failure = listed.failure();
  isListed = true;
  return names;
}

void DrawingReading::Shared::probe(const std::filesystem::path& folder,
                                   const std::vector<std::wstring>& names, const std::atomic<bool>& stop) {
  for (std::size_t at = 0; at < names.size() && !stop; ++at) {
    const DrawingRelease release = probeDrawing(folder / base::pathFromText(names[at]));
    const std::lock_guard<std::mutex> guard(mutex);
    news.probed.emplace_back(at, release);
  }
  const std::lock_guard<std::mutex> guard(mutex);
  isDone = true;
}

DrawingReading::DrawingReading(const std::wstring& folder)
    : shared_(std::make_shared<Shared>()),
      background_([shared = shared_, path = base::pathFromText(folder)](const std::atomic<bool>& stop) {
        shared->probe(path, shared->list(path, stop), stop);
      }) {}

DrawingReading::News DrawingReading::takeNews() {
  const bool hasEnded = background_.hasEnded();  // before the news are taken: none come behind
  News taken;
  const std::lock_guard<std::mutex> guard(shared_->mutex);
  std::swap(taken, shared_->news);
  taken.isListed = shared_->isListed || hasEnded;
  taken.hasEnded = hasEnded;
  if (hasEnded && !shared_->isDone) taken.failure = base::Failure{{}, L"処理を続けられません"};
  return taken;
}

struct SubfolderReading::Shared {
  Outcome outcome;
};

SubfolderReading::SubfolderReading(const std::wstring& folder)
    : shared_(std::make_shared<Shared>()),
      background_([shared = shared_, path = base::pathFromText(folder)](const std::atomic<bool>& stop) {
        Outcome& outcome = shared->outcome;
        const base::Status listed = base::listFolder(path, [&](base::FolderEntry entry) {
          if (entry.isFolder && !entry.isHidden) outcome.names.push_back(std::move(entry.name));
          return !stop;
        });
        std::sort(outcome.names.begin(), outcome.names.end(), precedesInLists);
        outcome.isWhole = listed.ok() && !stop;
      }) {}

// What the work has left is looked at when nobody works on it any more.
std::optional<SubfolderReading::Outcome> SubfolderReading::outcome() const {
  return background_.hasEnded() ? std::optional(shared_->outcome) : std::nullopt;
}

}  // namespace kiv
