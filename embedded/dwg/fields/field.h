#pragma once
// What an object consists of: fields with a name, a value and the bits in which it stands.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

#include "base/drawing_version.h"
#include "embedded/drawing/geometry.h"
#include "embedded/dwg/bits/bit_reader.h"

namespace cad::dwg {

using base::Version;

// Texts are UTF-16 from here on; before, they are bytes in the drawing's code page.
constexpr bool hasWideTexts(Version version) { return version >= Version::kR2007; }

enum class BitType : std::uint8_t {
  kB,
  kBB,
  k3B,
  kBS,
  kBL,
  kBLL,
  kBD,
  kDD,
  kBT,  // thickness
  kBE,  // extrusion
  kRC,
  kRS,
  kRL,
  kRD,
  k2BD,
  k3BD,
  k2RD,
  k2DD,  // two DD, against the point before
  k3DD,
  kText,        // TV or TU, by the version
  kDataHandle,  // one that stands among the data
  kImplied,     // no bits: it follows from other fields
  kHandle,
  kBytes,  // as many whole bytes as another field says; read as a span only
  kDate,   // two BL: days and milliseconds
};

enum class Stream : std::uint8_t { kData, kText, kHandles };

// A field is one of several that make up what has the name.
enum class Part : std::uint8_t {
  kWhole,
  kX,
  kY,
  kZ,
  kRgb,
  kMarks,
  kColorName,
  kBookName,
  kTransparency,
  kReference
};

// The fields of an entity within another have the names of their own, with this added to the index.
inline constexpr std::uint32_t kWithin = 0x40000000;

// Of a reference in FieldChanges: the kind that the field has.
inline constexpr std::uint8_t kAnyCode = 0xFF;

struct Date {
  std::int32_t days = 0, milliseconds = 0;
  bool operator==(const Date&) const = default;
};

// monostate: it stands in the bits only (kBytes); Fields::bytes() gives them.
// Integers of every width, and bits, are std::int64_t. Texts by hasWideTexts().
using Value = std::variant<std::monostate, std::int64_t, double, Point, std::string, std::u16string,
                           HandleReference, Date>;

bool same(const Value& a, const Value& b);  // to the bit

struct Field {
  std::string_view name;  // lasts as long as the program
  Part part = Part::kWhole;
  BitType type = BitType::kB;
  Stream stream = Stream::kData;
  std::uint32_t index = 0;  // which of several of the name
  // In bits from the beginning of the object's data. Of a text that the file leaves out begin == end.
  std::uint32_t begin = 0, end = 0;
  Value value;
};

// What may stand beside the number of an entity's colour, from R2004 on.
inline constexpr unsigned kColorNumber = 0x1FF;
struct ColorMark {
  static constexpr std::int64_t kRgb = 0x8000, kReference = 0x4000, kTransparency = 0x2000;
};

// A colour as objects have it. Of an object whose version knows numbers only, `number` alone counts.
struct Color {
  std::int16_t number = 256;        // 0 ByBlock, 1 to 255, 256 ByLayer; 257: none
  std::optional<std::int32_t> rgb;  // 0xRRGGBB
  std::optional<Handle> reference;  // the object that names it; of entities
  Value name, book;                 // of named colours of a book; texts

  // Whether there is more to it than the number.
  bool isTrue() const { return rgb || reference; }
  bool operator==(const Color& other) const;
};

// The fields of one object in the order of its description. Of a field that is absent, or of another type,
// the getters give the fallback.
class Fields {
 public:
  Fields(std::string_view data, Version version, Handle own) : data_(data), version_(version), own_(own) {}

  // False: the data ends within its fields, tells what cannot be, or has more than four million of them. Then
  // the fields up to there are here.
  bool intact() const { return intact_; }
  // Whether the class is described; else here are the fields that all objects have.
  bool complete() const { return complete_; }
  Version version() const { return version_; }
  Handle own() const { return own_; }
  std::string_view data() const { return data_; }
  const std::vector<Field>& all() const { return fields_; }

  const Field* find(std::string_view name, std::uint32_t index = 0, Part part = Part::kWhole) const;
  std::uint32_t count(std::string_view name) const;  // how many of the name, each with all its parts

  std::int64_t integer(std::string_view name, std::int64_t fallback = 0, std::uint32_t index = 0) const;
  double real(std::string_view name, double fallback = 0, std::uint32_t index = 0) const;
  // From one field, or from its coordinates one by one.
  Point point(std::string_view name, const Point& fallback = {}, std::uint32_t index = 0) const;
  // Absolute; 0: it refers to nothing. nullopt: there is no such field.
  std::optional<Handle> handle(std::string_view name, std::uint32_t index = 0) const;
  std::string_view narrow(std::string_view name, std::uint32_t index = 0) const;   // before R2007
  std::u16string_view wide(std::string_view name, std::uint32_t index = 0) const;  // from R2007 on
  std::string bytes(const Field& field) const;  // the whole bytes of its bits
  Color color(std::string_view name, std::uint32_t index = 0) const;

 private:
  friend class FieldReader;
  std::string_view data_;
  Version version_;
  Handle own_;
  bool intact_ = true, complete_ = false;
  std::vector<Field> fields_;
};

struct ExtendedData;  // extended_data.h

// Values for the fields of an object that is rewritten or made, by name. What is not named stays as it is,
// or is the default of a new object. Counts and flags that tell what follows change along where they can be
// told from the values; the number of a list is given as a field, its items with their index.
class FieldChanges {
 public:
  void set(std::string_view name, Value value, std::uint32_t index = 0, Part part = Part::kWhole);
  template <class Number>
  requires std::is_arithmetic_v<Number>
  void set(std::string_view name, Number value, std::uint32_t index = 0, Part part = Part::kWhole) {
    using Held = std::conditional_t<std::is_floating_point_v<Number>, double, std::int64_t>;
    set(name, Value(static_cast<Held>(value)), index, part);
  }
  // As a reference of the kind that the field has; of a field that is new, that of its description.
  void setHandle(std::string_view name, Handle value, std::uint32_t index = 0);
  // Whatever the version makes of it.
  void setColor(std::string_view name, const Color& color, std::uint32_t index = 0);
  // All the extended data, in place of what is there.
  void setExtendedData(std::vector<ExtendedData> data);
  // What the object does not have is passed over; else it is a mistake.
  void leaveUnknown() { leavesUnknown_ = true; }
  bool leavesUnknown() const { return leavesUnknown_; }

  bool empty() const { return values_.empty() && colors_.empty() && !extended_; }

  using Key = std::tuple<std::string_view, std::uint32_t, Part>;

  const Value* find(std::string_view name, std::uint32_t index, Part part) const;
  const Color* findColor(std::string_view name, std::uint32_t index) const;
  const std::vector<ExtendedData>* extendedData() const;
  const std::map<Key, Value>& values() const { return values_; }
  const std::map<Key, Color>& colors() const { return colors_; }

 private:
  std::map<Key, Value> values_;
  std::map<Key, Color> colors_;
  std::shared_ptr<const std::vector<ExtendedData>> extended_;
  bool leavesUnknown_ = false;
};

}  // namespace cad::dwg
