#pragma once
// A DWG file is fuzzed behind its checksums: the input tells which bytes of its pieces are others before
// these are made. Any file is read or refused; one that was read is written as it came, and with changes so
// that all else stays.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "fuzz/require.h"
#include "fuzz/share.h"
#include "tests/embedded/dwg/small_files.h"

namespace fuzz {

// Four bytes each: the piece, where in it (two), what the byte there becomes.
inline void spoilBy(const std::uint8_t* data, std::size_t size, cad::dwg::SmallDrawing& drawing) {
  drawing.spoil = [data, size, piece = std::size_t{0}](std::string& bytes) mutable {
    for (std::size_t i = 0; i + 4 <= size && !bytes.empty(); i += 4) {
      if (data[i] % 64 != piece % 64) continue;
      const std::size_t at = (data[i + 1] | data[i + 2] << 8) % bytes.size();
      bytes[at] = static_cast<char>(data[i + 3]);
    }
    ++piece;
  };
}

inline std::map<cad::Handle, std::string> objectsOf(const cad::dwg::DwgFile& file) {
  std::map<cad::Handle, std::string> objects;
  for (const cad::dwg::ObjectPlace& place : file.places()) {
    const auto object = file.objectAt(place.offset);
    require(object.ok());
    objects[place.handle] = object.value().whole;
  }
  return objects;
}

// One object longer, one gone, one more.
inline void changeAndCompare(const cad::dwg::DwgFile& file) {
  const auto places = file.places();
  cad::dwg::FileChanges changes;
  const cad::Handle last = places.back().handle;
  changes.objects.push_back({places.front().handle, false, std::string(40, 'c'), 0});
  if (places.size() > 2) changes.objects.push_back({places[places.size() / 2].handle, true, {}, 0});
  if (last < ~cad::Handle{0} - 10) changes.objects.push_back({last + 7, false, "added", 0});
  const auto written = file.write(changes);
  if (!written) return;
  const auto now = cad::dwg::readBytes(written.value());
  require(now.ok());
  auto expected = objectsOf(file), actual = objectsOf(*now.value());
  for (const cad::dwg::ChangedObject& change : changes.objects) {
    require(actual.contains(change.handle) != change.erased);
    expected.erase(change.handle), actual.erase(change.handle);
  }
  require(actual == expected);
  require(now.value()->header() == file.header() && now.value()->classes() == file.classes());
}

inline int runContainer(const cad::dwg::SmallDrawing& drawing) {
  static Share share("files");
  const std::string bytes = cad::dwg::bytesOf(drawing);
  const auto file = cad::dwg::readBytes(bytes);
  share.add(file.ok());
  if (!file) return 0;
  require(file.value()->write({}).value() == bytes);
  changeAndCompare(*file.value());
  return 0;
}

// The drawing of one of the versions, by the first byte of the input; the rest tells what is other in it.
template <std::size_t kCount>
int runVersions(const base::Version (&versions)[kCount], const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  cad::dwg::SmallDrawing drawing = cad::dwg::smallDrawing(versions[data[0] % kCount]);
  drawing.objects.resize(40);
  spoilBy(data + 1, size - 1, drawing);
  return runContainer(drawing);
}

}  // namespace fuzz
