#pragma once
// Changed, added and erased objects in the bytes of all objects.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/files/dwg_file.h"
#include "embedded/dwg/files/splices.h"

namespace cad::dwg {

class ObjectChanges {
 public:
  // What the changes do with the objects of `file`: splices are added, which are not yet arranged. Failures:
  // see DwgFile::write().
  static base::Result<ObjectChanges> plan(const DwgFile& file, std::span<const ChangedObject> changes,
                                          Splices& splices);

  // The places of all objects under the arranged splices, by handle.
  std::vector<ObjectPlace> places(std::span<const ObjectPlace> old, const Splices& splices) const;
  // The largest handle that is new; 0 without one.
  Handle largestAdded() const { return largestAdded_; }

 private:
  struct Appended {
    Handle handle = 0;
    std::uint64_t offset = 0;  // in the bytes behind the last object
  };
  std::vector<Appended> appended_;  // by handle
  std::vector<Handle> gone_;        // by handle: erased, or appended
  std::uint64_t end_ = 0;           // of the last object
  Handle largestAdded_ = 0;
};

// The object with its size and its CRC.
std::string wholeObject(const ChangedObject& object, Version version);

}  // namespace cad::dwg
