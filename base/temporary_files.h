#pragma once
// Names of files and folders that are being written. What a killed process left can be told from what
// somebody writes.

#include <filesystem>

namespace base {

// A new name in the folder, ".tmp-kiv-MACHINE-PROCESS-NUMBER"; no other call in this library gives the
// same.
std::filesystem::path temporaryName(const std::filesystem::path& folder);

// Removes the temporary files that nobody will finish. Nobody may have the file open, and the process that
// made it is gone (one of this machine), or the file is a day old (of another machine, which may share the
// folder: its processes cannot be asked). So with a folder of such a name, unless it holds a folder: none
// that is made here does. What cannot be removed stays.
void removeAbandonedTemporaryFiles(const std::filesystem::path& folder);

// As long as it lives, a signal that ends this process removes the file (of eight at a time; what is left of
// others goes with the next removeAbandonedTemporaryFiles); see removeTemporaryFilesOnSignals.
class TemporaryFileMark {
 public:
  explicit TemporaryFileMark(const std::filesystem::path& path);
  ~TemporaryFileMark();
  TemporaryFileMark(const TemporaryFileMark&) = delete;
  TemporaryFileMark& operator=(const TemporaryFileMark&) = delete;

 private:
  int slot_ = -1;
};

// For programs, or on their behalf: SIGINT, SIGTERM and SIGHUP remove the temporary files that this library
// made (each library that is linked with this folder has its own) before they do what they always do; a
// signal that is ignored stays so. A file that grows beyond the limit of this process fails with an error
// instead of SIGXFSZ. On Windows the system removes the files of any process that ends, and there is nothing
// to do.
void removeTemporaryFilesOnSignals();

}  // namespace base
