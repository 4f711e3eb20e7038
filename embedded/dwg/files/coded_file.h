#pragma once
// The container of R2007: sections in compressed pages with a Reed-Solomon code.

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/files/coded_header.h"
#include "embedded/dwg/files/coded_maps.h"
#include "embedded/dwg/files/dwg_file.h"
#include "embedded/dwg/files/section_changes.h"

namespace cad::dwg {

class CodedFile final : public DwgFile {
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
  const CodedSection* section(std::string_view name) const;
  base::Result<std::string> unpacked(const char* name, bool isNeeded);
  const CodedPage* page(std::uint64_t number) const;
  std::uint64_t placeOf(const CodedSection& section) const;  // of its first page

  CodedHeader header_;
  std::vector<CodedPage> pages_;  // in the order of the file
  std::unordered_map<std::uint64_t, std::size_t> byNumber_;
  std::vector<CodedSection> map_;
  UnpackedSections sections_;
  std::uint64_t unpackedSize_ = 0;
};

}  // namespace cad::dwg
