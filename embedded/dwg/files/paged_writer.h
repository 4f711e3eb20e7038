#pragma once
// Writes a file of R2004 or R2010 to R2018 anew with other content in some of its sections.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/dwg/files/page_maps.h"
#include "embedded/dwg/files/paged_header.h"

namespace cad::dwg {

class PagedWriter {
 public:
  // What is handed over must outlive the writer. The pages are within the file, but for the end of the page
  // map.
  PagedWriter(std::string_view file, const PagedHeader& header, const std::vector<Page>& pages,
              const SectionMap& map);

  // The section's content is no longer `old`, but `now`. Pages in which it stays the same keep their data.
  void change(std::string_view section, std::string_view old, std::string_view now);
  std::string written();

 private:
  struct NewPage {
    Page page;                  // as it will be
    const Page* old = nullptr;  // one that is kept
    std::string data;           // of another one
    std::uint32_t type = 0;
    std::uint64_t start = 0;
  };
  std::vector<NewPage>::iterator find(std::uint32_t number);
  // Puts the page behind the one with the number `behind`; with 0 before the section map.
  void put(NewPage page, std::uint32_t behind);
  void place();
  std::string bytesOf(const NewPage& page) const;
  std::string_view behindPages(std::uint64_t secondHeaderAt) const;
  // What stood at an address of the file has come to another.
  std::uint64_t moved(std::uint64_t address) const;

  std::string_view file_;
  PagedHeader header_;
  const std::vector<Page>& oldPages_;
  SectionMap map_;
  std::vector<NewPage> pages_;
  std::uint32_t largestNumber_ = 0;
  std::uint32_t previewPage_ = 0;
};

}  // namespace cad::dwg
