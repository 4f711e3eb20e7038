#pragma once
// How a class is described: a function that visits its fields in their order. A reader, a rewriter and a
// builder let themselves be led by it; each call gives the value that is read or written, by which the
// description finds its way.

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "embedded/dwg/fields/field.h"
#include "embedded/dwg/fields/object_types.h"

namespace cad::dwg {

// A soft pointer that is told from the own handle where that is nearer than zero: owner and neighbours.
inline constexpr std::uint8_t kNearCode = 6;

struct FieldSpec {
  std::string_view name;
  BitType type = BitType::kB;
  Part part = Part::kWhole;
  std::uint32_t index = 0;
  Value fallback = {};     // of a new object
  Point base = {};         // of DD types: what the value is told against
  std::uint64_t size = 0;  // kBytes: how many
  std::uint8_t code = 5;   // kHandle: the kind of reference
  bool derived = false;    // a writer takes the fallback whatever stands in the object
};

// A field that is there, or not, as a flag says.
struct OptionalField {
  std::int64_t flag = 0;
  std::string_view name;
  Value absent;  // what a field that is left out means
};

class FieldVisitor {
 public:
  FieldVisitor(Version version, ObjectKind kind) : version_(version), kind_(kind) {}
  virtual ~FieldVisitor() = default;

  ObjectKind kind() const { return kind_; }
  Version version() const { return version_; }
  bool since(Version version) const { return version_ >= version; }
  bool before(Version version) const { return version_ < version; }

  // Those of an entity within the object follow (kWithin).
  void enter() { base_ = kWithin; }
  void leave() { base_ = 0; }

  // --- Values that do not stand in the bits --------------------------------------------------------
  // Whether a writer has something for the name that the object that it comes from has not, and then what
  // it is going to have. Of a reader: false, and the fallback.
  virtual bool changes(std::string_view name, std::uint32_t index = 0) const = 0;
  virtual bool changesPart(std::string_view, Part) const { return false; }
  virtual Value wanted(std::string_view name, Value fallback, std::uint32_t index = 0,
                       Part part = Part::kWhole) const = 0;
  // Whether a writer changes `first`, and `name`, which said the same so far, is to go on doing so.
  virtual bool follows(std::string_view name, std::string_view first) const = 0;
  virtual const Color* wantedColor(std::string_view name, std::uint32_t index) const = 0;
  // A part of a field that the file leaves out, as it follows from others.
  virtual void implied(std::string_view name, Part part, Value value, std::uint32_t index = 0) = 0;
  // Something is told that cannot be.
  virtual void fail() = 0;
  virtual bool failed() const = 0;
  // The place of the size that objects of R13 and R14 have in their middle.
  virtual void sizeField() = 0;
  // How many bits are left to read; a writer's are endless.
  virtual std::uint64_t left(Stream stream) const = 0;

  // --- Fields --------------------------------------------------------------------------------------------
  virtual const Value& visit(const FieldSpec& spec) = 0;
  // A field whose value a writer has to work out from others.
  std::int64_t derived(BitType type, std::string_view name, std::int64_t value, std::uint32_t index = 0,
                       Part part = Part::kWhole);

  bool b(std::string_view name, bool fallback = false, std::uint32_t index = 0) {
    return integer(BitType::kB, name, fallback, index) != 0;
  }
  std::int64_t bb(std::string_view name, int fallback = 0, std::uint32_t index = 0) {
    return integer(BitType::kBB, name, fallback, index);
  }
  std::int64_t rc(std::string_view name, int fallback = 0, std::uint32_t index = 0) {
    return integer(BitType::kRC, name, fallback, index);
  }
  std::int64_t bs(std::string_view name, int fallback = 0, std::uint32_t index = 0) {
    return integer(BitType::kBS, name, fallback, index);
  }
  std::int64_t bl(std::string_view name, int fallback = 0, std::uint32_t index = 0) {
    return integer(BitType::kBL, name, fallback, index);
  }
  std::int64_t integer(BitType type, std::string_view name, std::int64_t fallback = 0,
                       std::uint32_t index = 0);
  double bd(std::string_view name, double fallback = 0, std::uint32_t index = 0) {
    return real(BitType::kBD, name, fallback, index);
  }
  double rd(std::string_view name, double fallback = 0, std::uint32_t index = 0) {
    return real(BitType::kRD, name, fallback, index);
  }
  double bt(std::string_view name) { return real(BitType::kBT, name, 0, 0); }
  double real(BitType type, std::string_view name, double fallback, std::uint32_t index,
              Part part = Part::kWhole, double base = 0);
  Point point(BitType type, std::string_view name, const Point& fallback = {}, std::uint32_t index = 0,
              const Point& base = {});
  Point point2rd(std::string_view name, std::uint32_t index = 0) {
    return point(BitType::k2RD, name, {}, index);
  }
  Point point3bd(std::string_view name, std::uint32_t index = 0) {
    return point(BitType::k3BD, name, {}, index);
  }
  // With a bit for the usual one where `type` is kBE.
  Point extrusion(BitType type = BitType::kBE) { return point(type, "extrusion", {0, 0, 1}); }
  void text(std::string_view name, std::uint32_t index = 0);
  void handle(std::string_view name, std::uint8_t code = 5, std::uint32_t index = 0);
  void bytes(std::string_view name, std::uint64_t size, std::uint32_t index = 0);
  void date(std::string_view name);
  void color(std::string_view name, std::uint32_t index = 0);  // CMC
  // ENC from R2004 on; whether a reference to the object with the colour follows among the handles.
  bool entityColor();

  // What stands in the object as `first` once more, with this value.
  void again(BitType type, std::string_view name, std::string_view first, Value value);

  // How many of something follow; fails when no room is left for as many of at least so many bits.
  std::uint32_t count(BitType type, std::string_view name, std::uint64_t bitsOfEach,
                      Stream stream = Stream::kData, std::uint32_t index = 0);
  // Flags of which some tell that a field is there, or (`whenSet` false) that it is not.
  std::int64_t flags(BitType type, std::string_view name, std::int64_t fallback, bool whenSet,
                     std::initializer_list<OptionalField> fields);

 protected:
  std::uint32_t indexOf(std::uint32_t index) const { return base_ + index; }

 private:
  Version version_;
  ObjectKind kind_;
  std::uint32_t base_ = 0;
};

// --- Descriptions ------------------------------------------------------------------------------------------

// What every entity or other object begins with, behind the extended data.
void describeCommon(FieldVisitor& v, bool isEntity);
// What is the kind's own. False: it is not described in this version.
bool describeOwn(FieldVisitor& v);

}  // namespace cad::dwg
