#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>

#include "base/guarded_mapping.h"

namespace base {
namespace {

// What the handler reads, which must not allocate or lock. `begin` is set last and cleared first.
struct Region {
  std::atomic<bool> taken{false}, lost{false};
  std::atomic<std::uintptr_t> begin{0};
  std::atomic<std::size_t> size{0};
};
constexpr int kMostRegions = 64;
std::array<Region, kMostRegions> regions;
std::uintptr_t pageSize = 0;
struct sigaction previous {};

bool replaceByZeros(std::uintptr_t at) {
  for (Region& region : regions) {
    const std::uintptr_t begin = region.begin.load();
    if (begin == 0 || at < begin || at - begin >= region.size.load()) continue;
    const std::uintptr_t page = at & ~(pageSize - 1);
    region.lost = true;
    return ::mmap(reinterpret_cast<void*>(page), begin + region.size.load() - page, PROT_READ,
                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED;
  }
  return false;
}

extern "C" void onBusError(int number, siginfo_t* info, void* context) {
  if (replaceByZeros(reinterpret_cast<std::uintptr_t>(info->si_addr))) return;
  if ((previous.sa_flags & SA_SIGINFO) != 0) return previous.sa_sigaction(number, info, context);
  if (previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN) return previous.sa_handler(number);
  ::signal(number, SIG_DFL);  // the access is tried again, and ends the process
}

void installHandler() {
  static std::once_flag once;
  std::call_once(once, [] {
    pageSize = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    struct sigaction action {};
    action.sa_sigaction = onBusError;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    ::sigaction(SIGBUS, &action, &previous);
  });
}

Region& regionAt(int index) { return regions[static_cast<std::size_t>(index)]; }

}  // namespace

std::unique_ptr<GuardedMapping> GuardedMapping::map(int file, std::size_t size) {
  int free = 0;
  while (free < kMostRegions && regionAt(free).taken.exchange(true)) ++free;
  if (free == kMostRegions) return nullptr;
  Region& region = regionAt(free);
  void* const address = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  if (address == MAP_FAILED) {
    region.taken = false;
    return nullptr;
  }
  installHandler();
  region.lost = false;
  region.size = size;
  region.begin = reinterpret_cast<std::uintptr_t>(address);
  return std::unique_ptr<GuardedMapping>(new GuardedMapping(free));
}

GuardedMapping::~GuardedMapping() {
  Region& region = regionAt(region_);
  void* const address = reinterpret_cast<void*>(region.begin.exchange(0));
  ::munmap(address, region.size);
  region.taken = false;
}

const char* GuardedMapping::data() const {
  return reinterpret_cast<const char*>(regionAt(region_).begin.load());
}
std::size_t GuardedMapping::size() const { return regionAt(region_).size; }
bool GuardedMapping::lost() const { return regionAt(region_).lost; }

}  // namespace base
