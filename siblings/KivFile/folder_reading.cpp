#include "siblings/KivFile/folder_reading.h"

#include <algorithm>
#include <mutex>

#include "base/files.h"

namespace kiv {

struct DrawingReading::Shared {
  std::mutex mutex;
  News news;
  bool isListed = false, hasEnded = false;

  template <class Change>
  void change(Change change) {
    const std::lock_guard<std::mutex> guard(mutex);
    change(news);
  }
};

namespace {

template <class Shared>
std::vector<std::wstring> listDrawings(const std::filesystem::path& folder, Shared& shared,
                                       const std::atomic<bool>& stop) {
  std::vector<std::wstring> names;
  const base::Status listed = base::listFolder(folder, [&](base::FolderEntry entry) {
    if (stop) return false;
    if (entry.isFolder || entry.isHidden || !hasNameOfDrawing(entry.name)) return true;
    names.push_back(entry.name);
    shared.change([&](auto& news) {
      news.found.push_back({std::move(entry.name), entry.size, entry.modified});
    });
    return true;
  });
  shared.change([&](auto& news) {
    if (!listed.ok()) news.failure = listed.failure();
    shared.isListed = true;
  });
  return names;
}

}  // namespace

DrawingReading::DrawingReading(const std::wstring& folder)
    : shared_(std::make_shared<Shared>()),
      background_([shared = shared_, path = base::pathFromText(folder)](const std::atomic<bool>& stop) {
        const std::vector<std::wstring> names = listDrawings(path, *shared, stop);
        for (std::size_t at = 0; at < names.size() && !stop; ++at) {
          const DrawingRelease release = probeDrawing(path / base::pathFromText(names[at]));
          shared->change([&](News& news) { news.probed.emplace_back(at, release); });
        }
        shared->change([&](News&) { shared->hasEnded = true; });
      }) {}

DrawingReading::News DrawingReading::takeNews() {
  News taken;
  shared_->change([&](News& news) {
    std::swap(taken, news);
    taken.isListed = shared_->isListed;
    taken.hasEnded = shared_->hasEnded;
  });
  return taken;
}

struct SubfolderReading::Shared {
  std::mutex mutex;
  std::optional<Outcome> outcome;
};

SubfolderReading::SubfolderReading(const std::wstring& folder)
    : shared_(std::make_shared<Shared>()),
      background_([shared = shared_, path = base::pathFromText(folder)](const std::atomic<bool>& stop) {
        Outcome outcome;
        const base::Status listed = base::listFolder(path, [&](base::FolderEntry entry) {
          if (entry.isFolder && !entry.isHidden) outcome.names.push_back(std::move(entry.name));
          return !stop;
        });
        outcome.isWhole = listed.ok() && !stop;
        std::sort(outcome.names.begin(), outcome.names.end(), precedesInLists);
        const std::lock_guard<std::mutex> guard(shared->mutex);
        shared->outcome = std::move(outcome);
      }) {}

std::optional<SubfolderReading::Outcome> SubfolderReading::outcome() const {
  const std::lock_guard<std::mutex> guard(shared_->mutex);
  return shared_->outcome;
}

}  // namespace kiv
