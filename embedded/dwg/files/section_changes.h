#pragma once
// What changes in the sections of a file since 2004, as they read when they are unpacked.

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/files/dwg_file.h"
#include "embedded/dwg/files/framed_section.h"

namespace cad::dwg {

inline constexpr char kHeaderName[] = "AcDb:Header", kClassesName[] = "AcDb:Classes",
                      kHandlesName[] = "AcDb:Handles", kObjectsName[] = "AcDb:AcDbObjects",
                      kAuxHeaderName[] = "AcDb:AuxHeader", kFreeSpaceName[] = "AcDb:ObjFreeSpace",
                      kPreviewName[] = "AcDb:Preview", kTemplateName[] = "AcDb:Template";

// The unpacked sections that a drawing is read from, by name.
struct UnpackedSections {
  std::string header, classes, handles, objects;
  // Not needed to read the drawing: empty where the file does not have them, or not as they should be.
  std::string auxHeader, freeSpace, templateSection;
  FramedSection headerFrame, classesFrame;
  std::uint64_t mapLength = 0;  // of the object map in `handles`

  const std::string& named(std::string_view name) const;
};

// Has all of them unpacked by unpack(name, isNeeded); fails when that of a needed one does.
base::Status readUnpacked(UnpackedSections& sections,
                          const std::function<base::Result<std::string>(const char*, bool)>& unpack);

// The file's beginning since 2004: whether the drawing is encrypted, and where the addresses of the preview,
// the summary and others stand.
inline constexpr std::uint64_t kSecurityAt = 0x18;
bool isEncrypted(std::string_view file);
inline constexpr std::uint64_t kAddressesAt[] = {0x0D, 0x1C, 0x20, 0x24, 0x2C, 0x30};

// The new content of each section that becomes another. Failures: see DwgFile::write().
base::Result<std::map<std::string, std::string>> changedSections(const DwgFile& file,
                                                                 const UnpackedSections& sections,
                                                                 const FileChanges& changes);

// What the header of a drawing's auxiliary data and the list of free space tell of its objects, in their
// bytes.
void raiseNextHandle(std::string& auxHeader, Version version, Handle largest);
void setObjectCount(std::string& freeSpace, std::size_t before, std::size_t now);

// The pictures of a preview stand at places of the file that move with it; `from` and `to` are where the
// preview's bytes begin.
void movePreview(std::string& preview, std::uint64_t from, std::uint64_t to);

}  // namespace cad::dwg
