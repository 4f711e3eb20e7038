#pragma once
// The container of R13 to R2000: sections at the places that the file's beginning tells, objects between
// them.

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/files/dwg_file.h"
#include "embedded/dwg/files/framed_section.h"
#include "embedded/dwg/files/object_changes.h"
#include "embedded/dwg/files/second_header.h"
#include "embedded/dwg/files/splices.h"

namespace cad::dwg {

class LocatedFile final : public DwgFile {
 public:
  static base::Result<std::unique_ptr<DwgFile>> read(std::shared_ptr<const SourceBytes> source,
                                                     const DrawingFacts& facts);
  base::Status writeTo(const FileChanges& changes, Sink& sink) const override;

 private:
  struct Section {
    unsigned number = 0;
    std::uint64_t at = 0, size = 0;
    std::uint64_t locator = 0;  // where its record stands: number, address, size
  };
  using DwgFile::DwgFile;

  base::Status readLocators();
  base::Status readSections();
  // One that is damaged stays as it came, whatever else changes: no program recovers anything from it.
  void readSecondHeader();
  std::uint64_t locatorsEnd() const;              // with their CRC and mark
  const Section* section(unsigned number) const;  // null: the file has none

  // Settles what the map and the second header become, which tell of places that hang from their lengths.
  base::Status settle(const ObjectChanges& objects, bool isLast, Splices& splices) const;
  base::Failure overlap() const;
  void replaceSecondHeader(const ObjectChanges& objects, Splices& splices) const;

  // The bytes that tell of places elsewhere in the file, by their own new places.
  void patchLocators(const Splices& splices, Sink& sink) const;
  void patchThumbnail(const Splices& splices, Sink& sink) const;
  void patchFreeSpace(const Splices& splices, std::size_t objects, Sink& sink) const;
  void patchNextHandle(const Splices& splices, Handle largest, Sink& sink) const;

  std::vector<Section> sections_;
  FramedSection headerFrame_, classesFrame_;
  std::uint64_t mapLength_ = 0;
  std::optional<SecondHeader> second_;
  std::uint64_t secondAt_ = 0;  // its first sentinel
};

}  // namespace cad::dwg
