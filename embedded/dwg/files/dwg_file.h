#pragma once
// What a DWG file consists of, whatever the container of its version.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/drawing_file.h"
#include "embedded/drawing/record.h"

namespace cad::dwg {

struct UnpackedSections;

// Where an object stands in DwgFile::objects(), in bytes.
struct ObjectPlace {
  Handle handle = 0;
  std::uint64_t offset = 0;
};

// An object as it stands in the file.
struct ObjectBytes {
  std::string_view whole;        // with its size and its CRC
  std::string_view data;         // without
  std::uint64_t handleBits = 0;  // R2010 and later: how many bits at the data's end are its handle stream
  std::shared_ptr<const std::string> owner;  // of what is not in the file; else null

  // A wrong CRC stays wrong, in the same bits, when the object is changed.
  bool crcHolds() const;
};

// An object that is changed, added (a handle that the file does not have) or erased. `data` and `handleBits`
// are as in ObjectBytes.
struct ChangedObject {
  Handle handle = 0;
  bool erased = false;
  std::string data;
  std::uint64_t handleBits = 0;
};

struct FileChanges {
  std::optional<std::string> header, classes;  // as DwgFile::header() and classes()
  // In any order, each handle once in both lists.
  std::vector<ChangedObject> objects;
  // Changed or added ones whose bytes are somebody else's, by numbers that he knows.
  std::vector<std::uint32_t> held;
  std::function<Handle(std::uint32_t number)> handleOf;
  // The same with every call; the buffer may be where the bytes are.
  std::function<ObjectBytes(std::uint32_t number, std::string& buffer)> bytesOf;
  bool empty() const { return !header && !classes && objects.empty() && held.empty(); }
};

// Where a file is written to.
class Sink {
 public:
  virtual ~Sink() = default;
  virtual void write(std::string_view piece) = 0;
  virtual void overwrite(std::uint64_t at, std::string_view bytes) = 0;  // of what was written
};

class DwgFile {
 public:
  explicit DwgFile(std::shared_ptr<const SourceBytes> source) : source_(std::move(source)) {}
  virtual ~DwgFile() = default;
  DwgFile(const DwgFile&) = delete;
  DwgFile& operator=(const DwgFile&) = delete;

  const DrawingFacts& facts() const { return facts_; }
  void setDamage(DamagedObjects damage) { facts_.damage = std::move(damage); }
  Version version() const { return facts_.version; }
  // The number of facts().codePage as the file has it.
  std::uint16_t codePageNumber() const;
  const SourceBytes& source() const { return *source_; }
  std::string_view file() const { return source_->view(); }

  // What the offsets of the places are of: the file itself until R2000, then the section of the objects.
  std::string_view objects() const { return objects_; }
  // By handle, each once. All of them are within the objects.
  std::span<const ObjectPlace> places() const { return places_; }
  const ObjectPlace* find(Handle handle) const;  // null: there is none
  // Of one of the places.
  ObjectBytes objectOf(const ObjectPlace& place) const;
  // The object at an offset. Failure: it is not within the objects; those of the places are.
  base::Result<ObjectBytes> objectAt(std::uint64_t offset) const;

  // The header variables and the classes between their sizes in bytes and their CRCs. From R2007 on they
  // begin with their size in bits, four bytes.
  std::string_view header() const { return header_; }
  std::string_view classes() const { return classes_; }

  // The variable MEASUREMENT, which files keep outside of the header; nullopt: the file does not have it.
  std::optional<std::int64_t> measurement() const;

  // The whole file with the changes, piece by piece. Without any: byte for byte as it is. Objects and
  // sections that do not change keep their bytes. Failures, after which what was written is no file: an
  // object too large for its size field, a handle that is 0 or given twice, erasing what is not there.
  virtual base::Status writeTo(const FileChanges& changes, Sink& sink) const = 0;
  base::Result<std::string> write(const FileChanges& changes) const;

 protected:
  struct Range {
    std::uint64_t begin = 0, end = 0;
  };
  // Whether all objects are within objects(), and none is in one of the ranges, which have other things.
  base::Status checkPlaces(std::span<const Range> others = {}) const;

  // The most that all sections of a file may have together when they are unpacked.
  std::uint64_t largestUnpacked() const;
  // Addresses of a file have 32 bits, some of them in every version.
  static base::Status withinLimits(std::uint64_t size);
  // What a drawing is read from, out of unpacked sections; the places are those that refusals tell.
  base::Status readContent(UnpackedSections& sections, std::uint64_t headerPlace, std::uint64_t classesPlace,
                           std::uint64_t handlesPlace);

  std::shared_ptr<const SourceBytes> source_;
  DrawingFacts facts_;
  std::string_view objects_, header_, classes_, template_;
  std::vector<ObjectPlace> places_;
};

// Refused, with "byte N" as the place: what is no DWG file, one before R13, one that is encrypted, and one
// whose parts do not hold together: cut off, pointing outside, with sentinels or checksums that do not match.
// A wrong CRC of an object refuses nothing.
base::Result<std::unique_ptr<DwgFile>> readDwgFile(std::shared_ptr<const SourceBytes> source);

}  // namespace cad::dwg
