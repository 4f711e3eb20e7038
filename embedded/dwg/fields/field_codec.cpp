#include "embedded/dwg/fields/field_codec.h"

#include <limits>

namespace cad::dwg {
namespace {

Point points(double x, double y, double z = 0) { return {x, y, z}; }

template <class Held>
bool fits(std::int64_t value) {
  return value >= std::numeric_limits<Held>::min() && value <= std::numeric_limits<Held>::max();
}

// Whether the value is read again as what it is.
bool holds(BitType type, std::int64_t value) {
  switch (type) {
    case BitType::kB:
      return value >> 1 == 0;
    case BitType::kBB:
      return value >> 2 == 0;
    case BitType::k3B:
      return value >> 3 == 0;
    case BitType::kBS:
      return fits<std::int16_t>(value);
    case BitType::kBL:
      return fits<std::int32_t>(value);
    case BitType::kRC:
      return fits<std::uint8_t>(value);
    case BitType::kRS:
      return fits<std::uint16_t>(value);
    case BitType::kRL:
      return fits<std::uint32_t>(value);
    default:
      return type == BitType::kBLL;
  }
}

bool encodeInteger(BitWriter& w, BitType type, std::int64_t value) {
  if (!holds(type, value)) return false;
  switch (type) {
    case BitType::kB:
      w.b(value != 0);
      break;
    case BitType::kBB:
      w.bb(static_cast<unsigned>(value));
      break;
    case BitType::k3B:
      w.threeBits(static_cast<unsigned>(value));
      break;
    case BitType::kBS:
      w.bs(static_cast<std::int16_t>(value));
      break;
    case BitType::kBL:
      w.bl(static_cast<std::int32_t>(value));
      break;
    case BitType::kRC:
      w.rc(static_cast<std::uint8_t>(value));
      break;
    case BitType::kRS:
      w.rs(static_cast<std::uint16_t>(value));
      break;
    case BitType::kRL:
      w.rl(static_cast<std::uint32_t>(value));
      break;
    default:
      w.bll(static_cast<std::uint64_t>(value));
  }
  return true;
}

bool encodeReal(BitWriter& w, const FieldSpec& spec, double value, Version version) {
  switch (spec.type) {
    case BitType::kBD:
      return w.bd(value), true;
    case BitType::kDD:
      return w.dd(value, spec.base.x), true;
    case BitType::kBT:
      return w.bt(value, version), true;
    case BitType::kRD:
      return w.rd(value), true;
    default:
      return false;
  }
}

bool encodePoint(BitWriter& w, const FieldSpec& spec, const Point& value, Version version) {
  switch (spec.type) {
    case BitType::kBE:
      return w.extrusion(value, version), true;
    case BitType::k2BD:
      return w.bd(value.x), w.bd(value.y), true;
    case BitType::k3BD:
      return w.point3bd(value), true;
    case BitType::k2RD:
      return w.point2rd(value), true;
    case BitType::k2DD:
      return w.dd(value.x, spec.base.x), w.dd(value.y, spec.base.y), true;
    case BitType::k3DD:
      return w.dd(value.x, spec.base.x), w.dd(value.y, spec.base.y), w.dd(value.z, spec.base.z), true;
    default:
      return false;
  }
}

bool encodeBytes(BitWriter& w, const FieldSpec& spec, const std::string& value) {
  if (value.size() != spec.size) return false;
  w.copy(value, 0, spec.size * 8);
  return true;
}

}  // namespace

Stream streamOf(BitType type, Version version) {
  if (type == BitType::kHandle) return Stream::kHandles;
  return type == BitType::kText && hasWideTexts(version) ? Stream::kText : Stream::kData;
}

Value decodeField(BitReader& r, const FieldSpec& spec, Version version) {
  switch (spec.type) {
    case BitType::kB:
      return std::int64_t{r.b()};
    case BitType::kBB:
      return std::int64_t{r.bb()};
    case BitType::k3B:
      return std::int64_t{r.threeBits()};
    case BitType::kBS:
      return std::int64_t{r.bs()};
    case BitType::kBL:
      return std::int64_t{r.bl()};
    case BitType::kBLL:
      return static_cast<std::int64_t>(r.bll());
    case BitType::kBD:
      return r.bd();
    case BitType::kDD:
      return r.dd(spec.base.x);
    case BitType::kBT:
      return r.bt(version);
    case BitType::kBE:
      return r.extrusion(version);
    case BitType::kRC:
      return std::int64_t{r.rc()};
    case BitType::kRS:
      return std::int64_t{r.rs()};
    case BitType::kRL:
      return std::int64_t{r.rl()};
    case BitType::kRD:
      return r.rd();
    case BitType::k2BD: {
      const double x = r.bd(), y = r.bd();
      return points(x, y);
    }
    case BitType::k3BD:
      return r.point3bd();
    case BitType::k2RD:
      return r.point2rd();
    case BitType::k2DD: {
      const double x = r.dd(spec.base.x), y = r.dd(spec.base.y);
      return points(x, y);
    }
    case BitType::k3DD: {
      const double x = r.dd(spec.base.x), y = r.dd(spec.base.y), z = r.dd(spec.base.z);
      return points(x, y, z);
    }
    case BitType::kText:
      if (hasWideTexts(version)) return r.tu();
      return r.tv();
    case BitType::kHandle:
    case BitType::kDataHandle:
      return r.h();
    case BitType::kBytes:
      if (spec.size > r.left() / 8) r.fail();
      r.skip(spec.size * 8);
      return {};
    case BitType::kImplied:
      return {};
    case BitType::kDate: {
      Date date;
      date.days = r.bl(), date.milliseconds = r.bl();
      return date;
    }
  }
  return {};
}

bool encodeField(BitWriter& writer, const FieldSpec& spec, const Value& value, Version version) {
  if (const auto* integer = std::get_if<std::int64_t>(&value))
    return encodeInteger(writer, spec.type, *integer);
  if (const auto* real = std::get_if<double>(&value)) return encodeReal(writer, spec, *real, version);
  if (const auto* point = std::get_if<Point>(&value)) return encodePoint(writer, spec, *point, version);
  if (const auto* wide = std::get_if<std::u16string>(&value)) {
    if (spec.type != BitType::kText || !hasWideTexts(version) || wide->size() > kLongestText) return false;
    return writer.tu(*wide), true;
  }
  if (const auto* bytes = std::get_if<std::string>(&value)) {
    if (spec.type == BitType::kBytes) return encodeBytes(writer, spec, *bytes);
    if (spec.type != BitType::kText || hasWideTexts(version) || bytes->size() > kLongestText) return false;
    return writer.tv(*bytes), true;
  }
  if (const auto* reference = std::get_if<HandleReference>(&value)) {
    if (spec.type != BitType::kHandle && spec.type != BitType::kDataHandle) return false;
    return writer.h(*reference), true;
  }
  const auto* date = std::get_if<Date>(&value);
  if (date == nullptr || spec.type != BitType::kDate) return false;
  writer.bl(date->days), writer.bl(date->milliseconds);
  return true;
}

}  // namespace cad::dwg
