#pragma once
// The header block of R2004 and R2010 to R2018, which is written combined with random numbers.

#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/dwg/files/raw_values.h"

namespace cad::dwg {

// The numbers that the header is combined with, and that fill up pages.
std::string randomBytes(std::size_t count);

class PagedHeader {
 public:
  static constexpr std::uint64_t kAt = 0x80, kLength = 0x6C;
  static constexpr std::uint64_t kPagesAt = 0x100;  // addresses of pages count from here

  static base::Result<PagedHeader> read(std::string_view file);
  std::string written() const;

  std::uint64_t secondHeaderAt() const { return get<std::uint64_t>(kSecondHeaderAt); }
  std::uint32_t pageMapId() const { return get<std::uint32_t>(kPageMapId); }
  std::uint64_t pageMapAt() const { return get<std::uint64_t>(kPageMapAt) + kPagesAt; }
  std::uint32_t sectionMapId() const { return get<std::uint32_t>(kSectionMapId); }

  struct Pages {
    std::uint32_t count = 0;      // without gaps
    std::uint32_t largestId = 0;  // of all pages
    std::uint32_t lastId = 0;     // of the last page
    std::uint64_t end = 0;        // where it ends
    std::uint64_t mapAt = 0, secondHeaderAt = 0;
  };
  void setPages(const Pages& pages);

 private:
  enum Field : std::uint64_t {
    kLastId = 0x28,
    kLastEnd = 0x2C,
    kSecondHeaderAt = 0x34,
    kPageCount = 0x40,
    kPageMapId = 0x50,
    kPageMapAt = 0x54,
    kSectionMapId = 0x5C,
    kPageArraySize = 0x60,
    kCrc = 0x68
  };
  template <class Integer>
  Integer get(Field field) const {
    return rawAt<Integer>(bytes_, field);
  }
  template <class Integer>
  void put(Field field, Integer value) {
    putRaw(bytes_, field, value);
  }
  std::uint32_t crc() const;

  std::string bytes_;  // as they read
};

}  // namespace cad::dwg
