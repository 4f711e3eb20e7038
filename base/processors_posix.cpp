#include <sched.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/child_process.h"

namespace base {
namespace {

namespace fs = std::filesystem;

// As many whole processors as "QUOTA PERIOD" comes to; 0: no limit.
int processorsOf(double quota, double period) {
  return quota > 0 && period > 0 ? std::max(1, static_cast<int>(quota / period)) : 0;
}

int limitOf(const fs::path& folder) {
  double quota = 0, period = 0;
  if (std::ifstream file(folder / "cpu.max"); file >> quota >> period) return processorsOf(quota, period);
  if (std::ifstream(folder / "cpu.cfs_quota_us") >> quota &&
      std::ifstream(folder / "cpu.cfs_period_us") >> period) {
    return processorsOf(quota, period);
  }
  return 0;
}

// The folders of the control groups that this process is in, each below the one that limits it too.
int limitOfContainer() {
  int least = 0;
  std::ifstream groups("/proc/self/cgroup");
  for (std::string line; std::getline(groups, line);) {
    const std::size_t first = line.find(':'), second = line.find(':', first + 1);
    if (first == std::string::npos || second == std::string::npos) continue;
    const std::string controllers = line.substr(first + 1, second - first - 1);
    if (!controllers.empty() && controllers.find("cpu") == std::string::npos) continue;
    const fs::path root = fs::path("/sys/fs/cgroup") / controllers;
    fs::path group = fs::path(line.substr(second + 1)).relative_path();
    for (;; group = group.parent_path()) {
      const int limit = limitOf(root / group);
      if (limit > 0) least = least == 0 ? limit : std::min(least, limit);
      if (group.empty()) break;
    }
  }
  return least;
}

}  // namespace

int usableProcessors() {
  cpu_set_t set;
  CPU_ZERO(&set);
  const int allowed = ::sched_getaffinity(0, sizeof set, &set) == 0 ? CPU_COUNT(&set) : 1;
  const int limit = limitOfContainer();
  return std::max(1, limit > 0 ? std::min(limit, allowed) : allowed);
}

}  // namespace base
