#include "siblings/KivFile/drawing_probe.h"

#include <exception>
#include <iterator>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/drawing_version.h"
#include "base/files.h"
#include "embedded/dxf/file_facts.h"
#include "embedded/dxf/group_cursor.h"

namespace kiv {
namespace {

namespace dxf = cad::dxf;
using base::Version;

struct OldRelease {
  std::string_view mark;
  const wchar_t* name;
};
// Those before the ones that can be converted, which the host may open all the same.
constexpr OldRelease kOldReleases[] = {
    {"AC1002", L"R2.5"}, {"AC1003", L"R2.6"}, {"AC1004", L"R9"}, {"AC1006", L"R10"}};
constexpr int kOldest = static_cast<int>(std::size(kOldReleases));

// One that is newer than all comes behind them.
DrawingRelease releaseOf(Version version) { return kOldest + 1 + static_cast<int>(version); }

DrawingRelease releaseByMark(std::string_view bytes) {
  for (int old = 0; old < kOldest; ++old)
    if (bytes.starts_with(kOldReleases[old].mark)) return old + 1;
  for (auto version = Version::kR12; version != Version::kUnknown;
       version = static_cast<Version>(static_cast<int>(version) + 1))
    if (bytes.starts_with(base::versionCode(version))) return releaseOf(version);
  return kNoDrawing;
}

// The groups of a DXF file of which only the beginning may be known.
class HeaderWalk {
 public:
  HeaderWalk(std::string_view beginning, bool isWhole)
      : bytes_(beginning.substr(dxf::prefixLength(beginning))),
        isWhole_(isWhole),
        dialect_(dxf::fileDialect(beginning)),
        cursor_(bytes_, dialect_) {}

  // Nothing: more of the file would tell.
  std::optional<DrawingRelease> release() {
    if (!next()) return isCut() ? std::nullopt : std::optional(kNoDrawing);
    if (!begins("SECTION")) return begins("EOF") ? releaseOf(Version::kR12) : kNoDrawing;
    while (next() && cursor_.group().code != 2) {
    }
    // The header comes first or not at all.
    const bool hasHeader = dxf::equalNoCase(dxf::trimmed(cursor_.group().value), "HEADER");
    bool isHere = false;
    while (hasHeader && next() && !begins("ENDSEC")) {
      const dxf::Group& group = cursor_.group();
      if (group.code == 9) isHere = dxf::trimmed(group.value) == "$ACADVER";
      if (group.code == 1 && isHere) return releaseOf(base::versionByCode(dxf::trimmed(group.value)));
    }
    return isCut() ? std::nullopt : std::optional(releaseOf(Version::kR12));
  }

 private:
  bool next() { return cursor_.next() && !isCut(); }
  // A group is shorter than this.
  static constexpr std::size_t kLongestGroup = 4096;
  bool isCut() const { return !isWhole_ && cursor_.group().end + kLongestGroup > bytes_.size(); }
  bool begins(std::string_view word) const {
    return cursor_.group().code == 0 && dxf::equalNoCase(dxf::trimmed(cursor_.group().value), word);
  }

  std::string_view bytes_;
  bool isWhole_;
  dxf::Dialect dialect_;
  dxf::GroupCursor cursor_;
};

// Headers have some kilobytes; what stands before them are comments.
constexpr std::size_t kBeginnings[] = {std::size_t{1} << 14, std::size_t{1} << 20};

DrawingRelease probe(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return kNoDrawing;  // a pipe would never answer
  for (const std::size_t length : kBeginnings) {
    const std::string beginning = base::readBeginning(file, length);
    if (beginning.starts_with("AC")) return releaseByMark(beginning);
    const auto release = HeaderWalk(beginning, beginning.size() < length).release();
    if (release) return *release;
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
