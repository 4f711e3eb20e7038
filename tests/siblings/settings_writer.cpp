// settings_writer FILE NAME OTHER COUNT: writes the settings NAME0, NAME1, ... one by one; goes on after the
// first when another process has written OTHER0, so that both write at the same time. FILE stands in the
// current folder. Exit status 3: the other process has not come.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "base/codepage.h"
#include "siblings/KivDll/settings_store.h"

namespace {

bool waitFor(kiv::SettingsStore& store, const std::wstring& key) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!store.read(key)) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return true;
}

}  // namespace

int main(int count, char** words) {
  if (count != 5) return 2;
  kiv::SettingsStore store(std::filesystem::current_path() / words[1]);
  const std::wstring name = base::fromUtf8(words[2]), other = base::fromUtf8(words[3]);
  for (int i = 0; i < std::atoi(words[4]); ++i) {
    if (!store.write(name + std::to_wstring(i), std::to_wstring(i * i))) return 1;
    if (i == 0 && !waitFor(store, other + L"0")) return 3;
  }
  return 0;
}
