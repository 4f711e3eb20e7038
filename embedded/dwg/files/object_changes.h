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

// The bytes of all changed objects, by number: first those that the changes have, then those that are held.
class ObjectContents {
 public:
  ObjectContents(const FileChanges& changes, const DwgFile& file) : changes_(changes), file_(file) {}

  std::uint32_t count() const {
    return static_cast<std::uint32_t>(changes_.objects.size() + changes_.held.size());
  }
  Handle handle(std::uint32_t number) const;
  bool isErased(std::uint32_t number) const;
  // With its size and its CRC, which of a damaged object stays wrong; of an erased object, and one that
  // fails, nothing. Valid until the next call.
  std::string_view whole(std::uint32_t number) const;
  // Of an object that cannot be written.
  const base::Status& status() const { return status_; }

 private:
  ObjectBytes bytes(std::uint32_t number) const;
  std::uint16_t crcError(std::uint32_t number) const;

  const FileChanges& changes_;
  const DwgFile& file_;
  mutable std::string buffer_, whole_;
  mutable base::Status status_;
};

class ObjectChanges {
 public:
  // What the changes do with the objects of `file`: splices are added, which are not yet arranged. Failures:
  // see DwgFile::writeTo().
  static base::Result<ObjectChanges> plan(const DwgFile& file, const ObjectContents& contents,
                                          Splices& splices);

  // The map of all objects under the arranged splices.
  std::string map(std::span<const ObjectPlace> old, const Splices& splices) const;
  // How many objects there are then.
  std::size_t count(std::span<const ObjectPlace> old) const {
    return old.size() - gone_.size() + appended_.size();
  }
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

}  // namespace cad::dwg
