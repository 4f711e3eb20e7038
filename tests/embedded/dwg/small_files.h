#pragma once
// Small DWG files, written by the tests themselves from what a drawing is to have.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "embedded/dwg/fields/object_types.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {

struct SmallObject {
  Handle handle = 0;
  std::string data;
  std::uint64_t handleBits = 8;  // from R2010 on
};

struct SmallDrawing {
  Version version = Version::kR2000;
  std::string header = "the header's bits", classes = "the classes' bits";
  std::vector<SmallObject> objects;  // by handle
  // May change every piece of the file before checksums are made of it: contents, maps, pages, headers.
  std::function<void(std::string&)> spoil;

  std::string spoilt(std::string piece) const {
    if (spoil) spoil(piece);
    return piece;
  }
};

// Section contents of real drawings. The header's variables are all zero or empty, but for these.
std::string headerSection(Version version, const FieldChanges& variables);
std::string classSection(Version version, const std::vector<FileClass>& classes);

// One with objects of different sizes, enough of them for several pages.
SmallDrawing smallDrawing(Version version);

// The file in the container of its version, with everything that containers have.
std::string bytesOf(const SmallDrawing& drawing);

// What its object map has, a piece for SmallDrawing::spoil.
std::string mapPairs(std::span<const ObjectPlace> places);

// The file will have a wrong checksum for the object with the largest handle.
void spoilLastChecksum(SmallDrawing& drawing);

// Where its parts stand, for tests that break them.
struct SmallPlaces {
  std::uint64_t header = 0, map = 0, secondHeader = 0, picture = 0, freeSpace = 0, auxHeader = 0;
};
std::string locatedBytes(const SmallDrawing& drawing, SmallPlaces& places);

// The same with other sections or pages than it should have.
struct PageFaults {
  bool isEncrypted = false, usesPageTwice = false, namesNoPage = false, hasPageTwice = false;
  std::uint64_t objectsSize = 0;                  // instead of the real one
  bool startsAgain = false;                       // every page of a section is told to be its first
  std::optional<std::uint64_t> secondHeaderAt{};  // instead of the real place; 0 in pages: there is none
};
std::string pagedBytes(const SmallDrawing& drawing, const PageFaults& faults = {});
std::string codedBytes(const SmallDrawing& drawing, const PageFaults& faults = {});

inline base::Result<std::unique_ptr<DwgFile>> readBytes(std::string bytes) {
  return readDwgFile(std::make_shared<SourceBytes>(std::move(bytes)));
}

}  // namespace cad::dwg
