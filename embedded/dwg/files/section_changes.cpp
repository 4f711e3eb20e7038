#include "embedded/dwg/files/section_changes.h"

#include <algorithm>
#include <iterator>

#include "embedded/dwg/files/object_changes.h"
#include "embedded/dwg/files/object_map.h"
#include "embedded/dwg/files/raw_values.h"
#include "embedded/dwg/files/sentinels.h"
#include "embedded/dwg/files/splices.h"

namespace cad::dwg {
namespace {

struct Named {
  const char* name;
  bool isNeeded;
  std::string UnpackedSections::*content;
};
constexpr Named kSections[] = {{kHeaderName, true, &UnpackedSections::header},
                               {kClassesName, true, &UnpackedSections::classes},
                               {kHandlesName, true, &UnpackedSections::handles},
                               {kObjectsName, true, &UnpackedSections::objects},
                               {kAuxHeaderName, false, &UnpackedSections::auxHeader},
                               {kFreeSpaceName, false, &UnpackedSections::freeSpace},
                               {kTemplateName, false, &UnpackedSections::templateSection}};

}  // namespace

const std::string& UnpackedSections::named(std::string_view name) const {
  const auto found = std::find_if(std::begin(kSections), std::end(kSections),
                                  [&](const Named& n) { return n.name == name; });
  return this->*found->content;
}

base::Status readUnpacked(UnpackedSections& sections,
                          const std::function<base::Result<std::string>(const char*, bool)>& unpack) {
  for (const Named& section : kSections) {
    auto content = unpack(section.name, section.isNeeded);
    if (content) {
      sections.*section.content = std::move(content.value());
    } else if (section.isNeeded) {
      return content.failure();
    }
  }
  return {};
}

bool isEncrypted(std::string_view file) {
  constexpr std::uint32_t kData = 1, kProperties = 2;
  return (rawAt<std::uint32_t>(file, kSecurityAt) & (kData | kProperties)) != 0;
}

base::Result<std::map<std::string, std::string>> changedSections(const DwgFile& file,
                                                                 const UnpackedSections& sections,
                                                                 const FileChanges& changes) {
  std::map<std::string, std::string> changed;
  const auto reframe = [&](const char* name, const std::string& old, const FramedSection& frame,
                           const std::optional<std::string>& now) {
    Splices splices;
    frame.change(old, now, splices);
    if (!splices.empty() && splices.arrange()) changed[name] = splices.applied(old);
  };
  reframe(kHeaderName, sections.header, sections.headerFrame, changes.header);
  reframe(kClassesName, sections.classes, sections.classesFrame, changes.classes);

  Splices splices;
  const ObjectContents contents(changes, file);
  const auto plan = ObjectChanges::plan(file, contents, splices);
  if (!plan) return plan.failure();
  if (splices.empty()) return changed;
  if (!splices.arrange()) return base::Failure{{}, L"The sections and objects of the file overlap"};
  std::string objects =
      splices.applied(sections.objects, [&](std::uint32_t number) { return contents.whole(number); });
  if (!contents.status()) return contents.status().failure();
  if (objects != sections.objects) changed[kObjectsName] = std::move(objects);
  std::string handles = plan.value().map(file.places(), splices);
  handles += std::string_view(sections.handles).substr(static_cast<std::size_t>(sections.mapLength));
  if (handles != sections.handles) changed[kHandlesName] = std::move(handles);
  std::string auxHeader = sections.auxHeader, freeSpace = sections.freeSpace;
  raiseNextHandle(auxHeader, file.version(), plan.value().largestAdded());
  setObjectCount(freeSpace, file.places().size(), plan.value().count(file.places()));
  if (auxHeader != sections.auxHeader) changed[kAuxHeaderName] = std::move(auxHeader);
  if (freeSpace != sections.freeSpace) changed[kFreeSpaceName] = std::move(freeSpace);
  return changed;
}

void raiseNextHandle(std::string& auxHeader, Version version, Handle largest) {
  const std::uint64_t at = version >= Version::kR2018 ? 85 : 79;
  if (largest == 0 || largest >= 0xFFFFFFFF || auxHeader.size() < at + 4) return;
  if (rawAt<std::uint32_t>(auxHeader, at) <= largest) {
    putRaw(auxHeader, at, static_cast<std::uint32_t>(largest + 1));
  }
}

void setObjectCount(std::string& freeSpace, std::size_t before, std::size_t now) {
  constexpr std::size_t kWideFrom = 64;  // newer files have numbers of eight bytes
  const std::uint64_t at = freeSpace.size() > kWideFrom ? 8 : 4;
  if (freeSpace.size() < at + 4 || rawAt<std::uint32_t>(freeSpace, at) != before) return;
  putRaw(freeSpace, at, static_cast<std::uint32_t>(now));
}

void movePreview(std::string& preview, std::uint64_t from, std::uint64_t to) {
  constexpr std::uint64_t kEntriesAt = kSentinelLength + 5, kEntry = 9;
  if (preview.size() < kEntriesAt || !preview.starts_with(kThumbnailBegin)) return;
  const std::uint64_t count = rawAt<std::uint8_t>(preview, kEntriesAt - 1);
  for (std::uint64_t i = 0; i < count && kEntriesAt + (i + 1) * kEntry <= preview.size(); ++i) {
    const std::uint64_t at = kEntriesAt + i * kEntry + 1;
    const auto picture = rawAt<std::uint32_t>(preview, at);
    if (picture < from || picture >= from + preview.size()) continue;
    putRaw(preview, at, static_cast<std::uint32_t>(picture - from + to));
  }
}

}  // namespace cad::dwg
