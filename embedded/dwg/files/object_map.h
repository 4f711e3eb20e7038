#pragma once
// Which handle has which object: the section AcDb:Handles, alike in all versions.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {

struct ObjectMap {
  std::vector<ObjectPlace> places;  // by handle
  std::uint64_t length = 0;         // bytes of the section
};

// From the beginning of `section`. `place`: the byte of the file that refusals tell. Refused: what is cut
// off, a wrong CRC, a handle that is 0 or stands there twice.
base::Result<ObjectMap> readObjectMap(std::string_view section, std::uint64_t place);

class ObjectMapWriter {
 public:
  void add(const ObjectPlace& place);  // by handle
  std::string take();

 private:
  void appendBehindLast(const ObjectPlace& place);
  void close();

  std::string map_, page_;
  ObjectPlace last_;  // of the page
};

std::string writeObjectMap(std::span<const ObjectPlace> places);

}  // namespace cad::dwg
