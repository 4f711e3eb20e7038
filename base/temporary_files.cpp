#include "base/temporary_files.h"

#include <atomic>
#include <charconv>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/process_facts.h"

namespace base {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".tmp-kiv-";
constexpr std::chrono::hours kAbandonedAfter{24};

struct Maker {
  std::string machine;
  unsigned long process = 0;
};

// The number behind the last hyphen, which is cut off with it.
std::optional<unsigned long> takeNumber(std::string_view& name) {
  const std::size_t hyphen = name.rfind('-');
  if (hyphen == std::string_view::npos) return std::nullopt;
  unsigned long number = 0;
  const std::string_view digits = name.substr(hyphen + 1);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  name.remove_suffix(digits.size() + 1);
  return number;
}

std::optional<Maker> makerOf(const fs::path& path) {
  const std::u8string name = path.filename().u8string();
  std::string_view rest(reinterpret_cast<const char*>(name.data()), name.size());
  if (!rest.starts_with(kPrefix)) return std::nullopt;
  rest.remove_prefix(kPrefix.size());
  if (!takeNumber(rest)) return std::nullopt;
  const auto process = takeNumber(rest);
  if (!process) return std::nullopt;
  return Maker{std::string(rest), *process};
}

bool isAbandoned(const fs::path& path, const Maker& maker) {
  // A process has no temporary files before its first one; in containers all have the same number.
  if (maker.machine == machineName()) return maker.process == ownProcess() || !processLives(maker.process);
  std::error_code error;
  const auto written = fs::last_write_time(path, error);
  return !error && fs::file_time_type::clock::now() - written > kAbandonedAfter;
}

bool holdsFilesOnly(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unknown;
    if (!entry->is_regular_file(unknown) || entry->is_symlink(unknown)) return false;
  }
  return !error;
}

}  // namespace

fs::path temporaryName(const fs::path& folder) {
  static std::atomic<unsigned> serial{0};
  return folder / (std::string(kPrefix) + machineName() + "-" + std::to_string(ownProcess()) + "-" +
                   std::to_string(serial++));
}

void removeAbandonedTemporaryFiles(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const auto maker = makerOf(entry->path());
    std::error_code unknown;
    if (!maker || entry->is_symlink(unknown) || !isAbandoned(entry->path(), *maker)) continue;
    if (entry->is_regular_file(unknown)) removeUnlessOpen(entry->path());
    if (entry->is_directory(unknown) && holdsFilesOnly(entry->path())) fs::remove_all(entry->path(), unknown);
  }
}

}  // namespace base
