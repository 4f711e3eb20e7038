#include <windows.h>

#include <string>

#include "base/process_facts.h"
#include "base/temporary_files.h"

namespace base {

TemporaryFileMark::TemporaryFileMark(const std::filesystem::path&) {}
TemporaryFileMark::~TemporaryFileMark() = default;

void removeTemporaryFilesOnSignals() {}

std::string machineName() {
  char name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD size = sizeof name;
  return GetComputerNameA(name, &size) != 0 ? name : "";
}

unsigned long ownProcess() { return GetCurrentProcessId(); }

bool processLives(unsigned long process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (handle == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool lives = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return lives;
}

// Who writes the file has opened it without leave to delete it.
bool removeUnlessOpen(const std::filesystem::path& path) { return DeleteFileW(path.c_str()) != 0; }

}  // namespace base
