#pragma once
// Whole files: reading, removing, and writing so that a reader sees the old file or the new one.

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace base {

// The path as text for a person or for the host (UTF-8 names become wide; '\\' or '/' as the system has it).
std::wstring pathText(const std::filesystem::path& path);
std::filesystem::path pathFromText(std::wstring_view text);

// The whole content. Failures: missing, a folder, no permission, read error; `place` is the path.
Result<std::string> readFile(const std::filesystem::path& path);

// The first bytes, at most `length`; none of a file that cannot be read.
std::string readBeginning(const std::filesystem::path& path, std::size_t length);

// A file's bytes, valid as long as the object lives: a copy, taken at once, which neither a rename over the
// file nor writing to it changes. It may hold the beginning of the old file and the end of the new one when
// somebody wrote to it meanwhile: who has used the bytes must ask checkUnchanged() before anything is made of
// them.
class FileBytes {
 public:
  static Result<std::unique_ptr<FileBytes>> open(const std::filesystem::path& path);
  virtual ~FileBytes() = default;
  virtual std::string_view bytes() const = 0;
  // A failure once the file has been written to since it was opened. (Not told on Windows.)
  virtual Status checkUnchanged() const { return {}; }
};

// Writes a temporary file beside the target and renames it over the target on commit(). Without commit
// the temporary file is removed. The target's folder must exist.
class AtomicFile {
 public:
  static Result<std::unique_ptr<AtomicFile>> create(const std::filesystem::path& target);
  virtual ~AtomicFile() = default;
  // Buffered; a large piece goes straight to the system. After a failed write commit() fails too.
  virtual void write(std::string_view bytes) = 0;
  // Of what was written; write() goes on at the end.
  virtual void overwrite(std::uint64_t at, std::string_view bytes) = 0;
  virtual Status commit() = 0;
};

Status writeFileAtomically(const std::filesystem::path& target, std::string_view bytes);

// A file that is not there any more counts as removed; a write-protected one and a folder are refused.
Status removeFile(const std::filesystem::path& path);

// The names in `folder` that end in `extension` (with its dot), ignoring case, in the order in which the
// system gives them; none when the folder does not exist. An empty folder is the current one.
std::vector<std::wstring> filesWithExtension(std::wstring_view folder, std::wstring_view extension);

struct FolderEntry {
  std::wstring name;
  bool isFolder = false;
  bool isHidden = false;  // as the system's own lists leave it out
  std::uint64_t size = 0;
  std::time_t modified = 0;
};
// Hands over what is in the folder one by one, in the order in which the system gives it; false ends the list
// early. An entry that goes while it is looked at is left out. Failures as of readFile().
Status listFolder(const std::filesystem::path& folder, const std::function<bool(FolderEntry)>& take);

// Where the paths of this system begin: its drives, or the one root.
std::vector<std::wstring> rootFolders();

// Finds `name` in `folder` ignoring case, as Windows does; an exact match wins. Empty when absent.
std::filesystem::path findIgnoringCase(const std::filesystem::path& folder, std::wstring_view name);

}  // namespace base
