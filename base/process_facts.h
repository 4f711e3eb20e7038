#pragma once
// Who this process is, and what can be found out about others: the systems' parts of temporary_files.cpp.

#include <filesystem>
#include <string>

namespace base {

std::string machineName();
unsigned long ownProcess();
bool processLives(unsigned long process);  // of this machine; in doubt it does
// True when nobody had the file open, as far as the file system tells.
bool removeUnlessOpen(const std::filesystem::path& path);

}  // namespace base
