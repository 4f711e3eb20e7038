#pragma once
// Writes a file of R2007 anew with other content in some of its sections.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/dwg/files/coded_header.h"
#include "embedded/dwg/files/coded_maps.h"

namespace cad::dwg {

class CodedWriter {
 public:
  // What is handed over must outlive the writer. The pages are within the file.
  CodedWriter(std::string_view file, const CodedHeader& header, const std::vector<CodedPage>& pages,
              const std::vector<CodedSection>& map);

  // The section's content is no longer `old`, but `now`. Pages in which it stays the same keep their bytes.
  void change(std::string_view section, std::string_view old, std::string_view now);
  std::string written();

 private:
  struct NewPage {
    CodedPage page;                    // as it will be
    const CodedPage* old = nullptr;    // where it was
    std::optional<std::string> bytes;  // of one that is not kept
  };
  std::vector<NewPage>::iterator find(std::uint64_t number);
  void put(NewPage page, std::uint64_t behind);
  void writeSectionMap();
  void writePageMap();
  void place();
  void movePreview();
  // What stood at an address of the file has come to another.
  std::uint64_t moved(std::uint64_t address) const;

  std::string_view file_;
  CodedHeader header_;
  std::vector<CodedSection> map_;
  std::vector<NewPage> pages_;
  std::uint64_t largestNumber_ = 0;
};

}  // namespace cad::dwg
