#include <windows.h>

#include "base/files.h"
#include "base/win32/error_win32.h"

namespace base {
namespace {

class Search {
 public:
  // Many entries at once: a network answers each question slowly.
  explicit Search(const std::filesystem::path& folder)
      : handle_(FindFirstFileExW((folder / L"*").c_str(), FindExInfoBasic, &found_, FindExSearchNameMatch,
                                 nullptr, FIND_FIRST_EX_LARGE_FETCH)) {}
  ~Search() {
    if (isOpen()) FindClose(handle_);
  }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  bool next() { return FindNextFileW(handle_, &found_) != 0; }
  const WIN32_FIND_DATAW& found() const { return found_; }

 private:
  WIN32_FIND_DATAW found_{};
  HANDLE handle_;
};

std::uint64_t joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

// The system counts tenths of a microsecond since 1601.
std::time_t timeOf(const FILETIME& time) {
  constexpr std::uint64_t kPerSecond = 10'000'000, kSecondsTo1970 = 11'644'473'600;
  const std::uint64_t seconds = joined(time.dwHighDateTime, time.dwLowDateTime) / kPerSecond;
  return seconds < kSecondsTo1970 ? 0 : static_cast<std::time_t>(seconds - kSecondsTo1970);
}

FolderEntry entryOf(const WIN32_FIND_DATAW& found) {
  FolderEntry entry;
  entry.name = found.cFileName;
  entry.isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  entry.isHidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
  entry.size = joined(found.nFileSizeHigh, found.nFileSizeLow);
  entry.modified = timeOf(found.ftLastWriteTime);
  return entry;
}

}  // namespace

Status listFolder(const std::filesystem::path& folder, const std::function<bool(FolderEntry)>& take) {
  Search search(folder);
  if (!search.isOpen()) {
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND ? Status() : systemFailure(folder, error);  // an empty drive
  }
  do {
    FolderEntry entry = entryOf(search.found());
    if (entry.name == L"." || entry.name == L"..") continue;
    if (!take(std::move(entry))) return {};
  } while (search.next());
  const DWORD error = GetLastError();
  return error == ERROR_NO_MORE_FILES ? Status() : systemFailure(folder, error);
}

std::vector<std::wstring> rootFolders() {
  std::vector<std::wstring> drives;
  const DWORD present = GetLogicalDrives();
  for (int drive = 0; drive < 26; ++drive)
    if (present >> drive & 1) drives.push_back({static_cast<wchar_t>(L'A' + drive), L':', L'\\'});
  return drives;
}

}  // namespace base
