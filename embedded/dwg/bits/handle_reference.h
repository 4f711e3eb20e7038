#pragma once
// How an object of a DWG file names another.

#include <cstdint>

namespace cad::dwg {

// The code tells what kind of reference it is (2 owning softly, 3 owning, 4 pointing softly, 5 pointing; 0 is
// an object's own handle) or how the value counts from the own handle (6, 8, 10, 12).
struct HandleReference {
  std::uint8_t code = 0;
  std::uint8_t size = 0;  // bytes that the value takes in the file, 0 to 8
  std::uint64_t value = 0;

  std::uint64_t absolute(std::uint64_t own) const {
    switch (code) {
      case 6:
        return own + 1;
      case 8:
        return own - 1;
      case 10:
        return own + value;
      case 12:
        return own - value;
      default:
        return value;
    }
  }
  bool operator==(const HandleReference&) const = default;
};

}  // namespace cad::dwg
