// settings_writer FILE NAME COUNT: writes the settings NAME0, NAME1, ... one by one. FILE stands in the
// current folder.

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/codepage.h"
#include "siblings/KivDll/settings_store.h"

int main(int count, char** words) {
  if (count != 4) return 2;
  kiv::SettingsStore store(std::filesystem::current_path() / words[1]);
  const std::wstring name = base::fromUtf8(words[2]);
  for (int i = 0; i < std::atoi(words[3]); ++i) {
    if (!store.write(name + std::to_wstring(i), std::to_wstring(i * i))) return 1;
  }
  return 0;
}
