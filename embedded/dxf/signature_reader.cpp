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

std::string_view textClass(std::string_view type) {
  if (type == "TEXT" || type == "ATTDEF" || type == "ATTRIB") return "AcDbText";
  return type == "MTEXT" ? "AcDbMText" : std::string_view();
}

}  // namespace

void SignatureReader::begin(std::string_view type) {
  fields_ = {};
  paper_ = {};
  fields_.type = type;
  textClass_ = textClass(type);
  common_ = {};
  picks_ = {};
  inText_ = regular_ = true;
  sawText_ = styleInText_ = application_ = namesLayers_ = straying_ = false;
}

void SignatureReader::marker(std::string_view value) {
  if (!regular_) return;
  value = trimmed(value);
  common_.marker(value);
  straying_ = straying_ || !common_.sawHome();
  inText_ = equalNoCase(value, textClass_);
  sawText_ = sawText_ || inText_;
  if (inText_ && !styleInText_) fields_.style = {};
}

// Without a marker of its own class a text has the style that its other classes name.
void SignatureReader::style(std::string_view value) {
  if (!inText_ && (!regular_ || sawText_ || styleInText_ || !common_.inKnownClass())) return;
  styleInText_ = inText_;
  fields_.style = value;
}

void SignatureReader::common(int code, std::string_view value, std::string_view& field, CommonPick& pick) {
  noteStray(code);
  if (regular_ && pick.offer(common_, code)) field = value;
}

void SignatureReader::noteStray(int code) {
  straying_ = straying_ || (regular_ && !common_.atHome() && common_.strayed(code));
}

void SignatureReader::take(int code, std::string_view value) {
  if (application_ && code != 102 && code < 1000) return;
  switch (code) {
    case 6:
      return common(code, value, fields_.linetype, picks_.linetype);
    case 7:
      if (!textClass_.empty()) style(value);
      return;
    case 8:
      return common(code, value, fields_.layer, picks_.layer);
    case 62:
      return common(code, value, fields_.color, picks_.color);
    case 67:
      return common(code, value, paper_, picks_.paper);
    case 100:
      return marker(value);
    case 101:
      inText_ = regular_ = false;
      return;
    case 102:
      value = trimmed(value);
      application_ = !value.empty() && value.front() == '{';
      return;
    default:
      break;
  }
  if (mayStray(code)) return noteStray(code);
  if (code >= 1000) {
    inText_ = regular_ = application_ = false;
    if (code == kLayerName) namesLayers_ = true;
  }
}

bool SignatureReader::inPaperSpace(const Dialect& dialect) const {
  return !paper_.empty() && number(67, paper_, dialect) == 1;
}

Signature SignatureReader::finish(NamePool& names, const Dialect& dialect) const {
  const auto named = [](std::string_view value, std::string_view absent) {
    value = trimmed(value);
    return value.empty() ? absent : value;
  };
  Signature result;
  result.type = names.intern(fields_.type);
  result.layer = names.intern(named(fields_.layer, "0"));
  result.linetype = names.intern(named(fields_.linetype, "ByLayer"));
  if (!textClass_.empty()) result.style = names.intern(named(fields_.style, "Standard"));
  const auto color = number(62, fields_.color, dialect);
  if (color && *color >= std::numeric_limits<std::int16_t>::min() &&
      *color <= std::numeric_limits<std::int16_t>::max()) {
    result.color = static_cast<std::int16_t>(*color);
  }
  return result;
}

}  // namespace cad::dxf
