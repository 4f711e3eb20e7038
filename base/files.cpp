#include "base/files.h"

#include <atomic>
#include <fstream>
#include <system_error>
#include <utility>

#include "base/codepage.h"
#include "base/disk.h"
#include "base/fold.h"
#include "base/utf8.h"

namespace base {

std::wstring pathText(const std::filesystem::path& path) {
  if constexpr (sizeof(std::filesystem::path::value_type) == 1) {
    return utf8::decodeName(path.string());
  } else {
    return std::filesystem::path(path).make_preferred().wstring();
  }
}

std::filesystem::path pathFromText(std::wstring_view text) {
  if constexpr (sizeof(std::filesystem::path::value_type) == 1) {
    return utf8::encodeName(text);
  } else {
    return std::filesystem::path(text);
  }
}

namespace {
std::atomic<bool> waitsForDisk = true;
}  // namespace

void setWaitingForDisk(bool waits) { waitsForDisk = waits; }
bool isWaitingForDisk() { return waitsForDisk; }

Status writeFileAtomically(const std::filesystem::path& target, std::string_view bytes) {
  auto file = AtomicFile::create(target);
  if (!file.ok()) return file.failure();
  file.value()->write(bytes);
  return file.value()->commit();
}

std::string readBeginning(const std::filesystem::path& path, std::size_t length) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes(length, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(length));
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

std::vector<std::wstring> filesWithExtension(std::wstring_view folder, std::wstring_view extension) {
  std::vector<std::wstring> names;
  std::error_code error;
  const std::filesystem::path listed = folder.empty() ? std::filesystem::path(".") : pathFromText(folder);
  for (std::filesystem::directory_iterator entry(listed, error), end; !error && entry != end;
       entry.increment(error)) {
    std::wstring name = pathText(entry->path().filename());
    std::error_code ignored;
    if (endsWithFolded(name, extension) && !entry->is_directory(ignored)) names.push_back(std::move(name));
  }
  return names;
}

std::filesystem::path findIgnoringCase(const std::filesystem::path& folder, std::wstring_view name) {
  namespace fs = std::filesystem;
  if (name.empty()) return {};
  std::error_code error;
  const fs::path exact = folder / pathFromText(name);
  if (fs::exists(exact, error)) return exact;
  fs::path found;
  const fs::path listed = folder.empty() ? fs::path(".") : folder;
  for (fs::directory_iterator entry(listed, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    if (!equalFolded(pathText(candidate), name)) continue;
    // The order of a folder's entries is the file system's; the same file must be found every time.
    if (found.empty() || candidate < found) found = candidate;
  }
  return found.empty() ? found : folder / found;
}

}  // namespace base
