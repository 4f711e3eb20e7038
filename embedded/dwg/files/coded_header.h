#pragma once
// The header block of R2007.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/result.h"

namespace cad::dwg {

class CodedHeader {
 public:
  static constexpr std::uint64_t kAt = 0x80, kLength = 0x400;
  static constexpr std::uint64_t kPagesAt = kAt + kLength;  // addresses of pages count from here

  // In the order of the file.
  enum Field : std::size_t {
    kHeaderSize,
    kFileSize,
    kPageMapPackedCrc,
    kPageMapRepeats,
    kPageMapSeed,
    kSecondPageMapAt,
    kSecondPageMapId,
    kPageMapAt,
    kPageMapId,
    kSecondHeaderAt,
    kPageMapPackedSize,
    kPageMapSize,
    kPageCount,
    kLargestPageId,
    kPageMapCrc = 16,
    kSectionMapCrc = 21,
    kSectionMapPackedSize,
    kSecondSectionMapId,
    kSectionMapId,
    kSectionMapSize,
    kSectionMapPackedCrc,
    kSectionMapRepeats,
    kSectionMapSeed,
    kCrcSeed = 30,
    kRandomSeed = 32,
    kCrc,
    kFields
  };

  static base::Result<CodedHeader> read(std::string_view file);
  // Its block in the file.
  std::string written() const;

  std::uint64_t operator[](Field field) const { return fields_[field]; }
  std::uint64_t& operator[](Field field) { return fields_[field]; }
  // The ten bits of a number that is spread among random ones.
  std::uint64_t seed(Field field) const;
  // Random bytes of this file, with which pages are filled up, from the first one on.
  const std::string& padding() const { return padding_; }

 private:
  void makePadding();

  std::array<std::uint64_t, kFields> fields_{};
  std::string block_;    // as it stood in the file
  std::string decoded_;  // its content, several times, and what fills up the rest
  std::string padding_;
};

}  // namespace cad::dwg
