#include "siblings/KivFile/drawing_probe.h"

#include <exception>
#include <iterator>
#include <string_view>
#include <system_error>

#include "base/drawing_version.h"
#include "base/files.h"
#include "embedded/formats/version_probe.h"

namespace kiv {
namespace {

using base::Version;

struct OldRelease {
  std::string_view mark;
  const wchar_t* name;
};
// DWG files before those that can be converted, which the host may open all the same.
constexpr OldRelease kOldReleases[] = {
    {"AC1002", L"R2.5"}, {"AC1003", L"R2.6"}, {"AC1004", L"R9"}, {"AC1006", L"R10"}, {"AC1009", L"R12"}};
constexpr int kOldest = static_cast<int>(std::size(kOldReleases));

// One that is newer than all comes behind them.
DrawingRelease releaseOf(Version version) { return kOldest + 1 + static_cast<int>(version); }

DrawingRelease oldRelease(std::string_view bytes) {
  for (int old = 0; old < kOldest; ++old)
    if (bytes.starts_with(kOldReleases[old].mark)) return old + 1;
  return kNoDrawing;
}

// Headers have some kilobytes; what stands before them are comments.
constexpr std::size_t kBeginnings[] = {std::size_t{1} << 14, std::size_t{1} << 20};

DrawingRelease probe(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return kNoDrawing;  // a pipe would never answer
  for (const std::size_t length : kBeginnings) {
    const std::string beginning = base::readBeginning(file, length);
    if (const DrawingRelease old = oldRelease(beginning); old != kNoDrawing) return old;
    const auto facts = cad::formats::factsOfBeginning(beginning, beginning.size() < length);
    if (facts) return facts->isDrawing ? releaseOf(facts->version) : kNoDrawing;
  }
  return kNoDrawing;
}

}  // namespace

DrawingRelease probeDrawing(const std::filesystem::path& file) {
  try {
    return probe(file);
  } catch (const std::exception&) {
    return kNoDrawing;  // one that cannot be looked at; those behind it can
  }
}

std::wstring releaseText(DrawingRelease release) {
  if (release <= kNoDrawing) return L"-";
  if (release <= kOldest) return kOldReleases[release - 1].name;
  const auto version = static_cast<Version>(release - kOldest - 1);
  if (version < Version::kUnknown) return base::releaseName(version);
  constexpr auto kNewest = static_cast<Version>(static_cast<int>(Version::kUnknown) - 1);
  return base::releaseName(kNewest) + std::wstring(L"より後");
}

}  // namespace kiv
