#include "embedded/dxf/version_probe.h"

#include "embedded/dxf/file_facts.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {
namespace {

using base::Version;

// The groups of a file of which only the beginning may be known.
class HeaderWalk {
 public:
  HeaderWalk(std::string_view beginning, bool isWhole)
      : bytes_(beginning.substr(prefixLength(beginning))),
        isWhole_(isWhole),
        dialect_(fileDialect(beginning)),
        cursor_(bytes_, dialect_) {}

  std::optional<BeginningFacts> facts() {
    constexpr BeginningFacts kNoDrawing, kWithoutVersion{true, Version::kR12};
    if (!next()) return isCut() ? std::nullopt : std::optional(kNoDrawing);
    if (!begins("SECTION")) return begins("EOF") ? kWithoutVersion : kNoDrawing;
    while (next() && cursor_.group().code != 2) {
    }
    // The header comes first or not at all.
    const bool hasHeader = equalNoCase(trimmed(cursor_.group().value), "HEADER");
    bool isHere = false;
    while (hasHeader && next() && !begins("ENDSEC")) {
      const Group& group = cursor_.group();
      if (group.code == 9) isHere = trimmed(group.value) == "$ACADVER";
      if (group.code == 1 && isHere) return BeginningFacts{true, base::versionByCode(trimmed(group.value))};
    }
    return isCut() ? std::nullopt : std::optional(kWithoutVersion);
  }

 private:
  bool next() { return cursor_.next() && !isCut(); }
  // A group is shorter than this.
  static constexpr std::size_t kLongestGroup = 4096;
  bool isCut() const { return !isWhole_ && cursor_.group().end + kLongestGroup > bytes_.size(); }
  bool begins(std::string_view word) const {
    return cursor_.group().code == 0 && equalNoCase(trimmed(cursor_.group().value), word);
  }

  std::string_view bytes_;
  bool isWhole_;
  Dialect dialect_;
  GroupCursor cursor_;
};

}  // namespace

std::optional<BeginningFacts> factsOfBeginning(std::string_view bytes, bool isWhole) {
  return HeaderWalk(bytes, isWhole).facts();
}

}  // namespace cad::dxf
