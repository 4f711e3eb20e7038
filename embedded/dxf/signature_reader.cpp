#include "embedded/dxf/signature_reader.h"

#include <limits>
#include <string>

namespace cad::dxf {
namespace {

std::optional<std::int64_t> number(int code, std::string_view value, const Dialect& dialect) {
  if (value.empty()) return std::nullopt;
  Group group;
  group.code = code;
  group.value = value;
  return integerValue(group, dialect);
}

bool hasTextStyle(std::string_view type) {
  return type == "TEXT" || type == "MTEXT" || type == "ATTDEF" || type == "ATTRIB";
}

}  // namespace

void SignatureReader::begin(std::string_view type) {
  before_ = fields_;
  fields_ = {};
  fields_.type = type;
  hasStyle_ = hasTextStyle(type);
  common_ = {};
  atHome_ = 0;
  text_ = regular_ = true;
  application_ = namesLayers_ = false;
}

void SignatureReader::marker(std::string_view value) {
  if (!regular_) return;
  value = trimmed(value);
  common_.marker(value);
  text_ = value == "AcDbText" || value == "AcDbMText";
}

void SignatureReader::common(int code, std::string_view value, std::string_view& field, unsigned bit) {
  if (!regular_) return;
  if (common_.atHome()) {
    atHome_ |= bit;
  } else if ((atHome_ & bit) != 0 || !common_.strayed(code)) {
    return;
  }
  field = value;
}

void SignatureReader::take(int code, std::string_view value) {
  if (application_ && code != 102 && code < 1000) return;
  switch (code) {
    case 6:
      return common(code, value, fields_.linetype, 1);
    case 7:
      if (text_ && hasStyle_) fields_.style = value;
      return;
    case 8:
      return common(code, value, fields_.layer, 2);
    case 62:
      return common(code, value, fields_.color, 4);
    case 67:
      return common(code, value, fields_.paper, 8);
    case 100:
      return marker(value);
    case 101:
      text_ = regular_ = false;
      return;
    case 102:
      value = trimmed(value);
      application_ = !value.empty() && value.front() == '{';
      return;
    default:
      break;
  }
  if (code >= 1000) {
    text_ = regular_ = application_ = false;
    if (code == 1003) namesLayers_ = true;
  }
}

NameId SignatureReader::intern(NamePool& names, std::string_view value, std::size_t slot) {
  Recent& recent = recent_[slot];
  if (recent.name == kNoName || recent.value != value) {
    recent.name = names.intern(value);
    recent.value = names.stored(recent.name);  // outlives the bytes that were read
  }
  return recent.name;
}

bool SignatureReader::inPaperSpace(const Dialect& dialect) const {
  return !fields_.paper.empty() && number(67, fields_.paper, dialect) == 1;
}

Signature SignatureReader::finish(NamePool& names, const Dialect& dialect) {
  const auto named = [](std::string_view value, std::string_view absent) {
    value = trimmed(value);
    return value.empty() ? absent : value;
  };
  Signature result;
  result.type = intern(names, fields_.type, 0);
  result.layer = intern(names, named(fields_.layer, "0"), 1);
  result.linetype = intern(names, named(fields_.linetype, "ByLayer"), 2);
  if (hasStyle_) result.style = intern(names, named(fields_.style, "Standard"), 3);
  const auto color = number(62, fields_.color, dialect);
  if (color && *color >= std::numeric_limits<std::int16_t>::min() &&
      *color <= std::numeric_limits<std::int16_t>::max()) {
    result.color = static_cast<std::int16_t>(*color);
  }
  return result;
}

}  // namespace cad::dxf
