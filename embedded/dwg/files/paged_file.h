#pragma once
// The container of R2004 and R2010 to R2018: sections in compressed pages.

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/files/dwg_file.h"
#include "embedded/dwg/files/page_maps.h"
#include "embedded/dwg/files/paged_header.h"
#include "embedded/dwg/files/section_changes.h"

namespace cad::dwg {

class PagedFile final : public DwgFile {
 public:
  static base::Result<std::unique_ptr<DwgFile>> read(std::shared_ptr<const SourceBytes> source,
                                                     const DrawingFacts& facts);
  base::Status writeTo(const FileChanges& changes, Sink& sink) const override;

 private:
  using DwgFile::DwgFile;

  base::Status readMaps();
  base::Status checkPages();
  base::Status readSections();
  bool lacksSecondHeader() const;
  const PagedSection* section(std::string_view name) const;
  // Its unpacked content; empty where it is not there.
  base::Result<std::string> unpacked(const char* name, bool isNeeded);
  std::uint64_t placeOf(const PagedSection& section) const;  // of its first page

  PagedHeader header_;
  std::vector<Page> pages_;  // in the order of the file
  std::unordered_map<std::uint32_t, std::size_t> byNumber_;
  SectionMap map_;
  UnpackedSections sections_;
  std::uint64_t unpackedSize_ = 0;
};

}  // namespace cad::dwg
