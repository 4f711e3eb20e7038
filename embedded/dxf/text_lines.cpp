#include "embedded/dxf/text_lines.h"

namespace cad::dxf {

template <char kEnd>
bool takeAnyCode(const char*& at, const char* end, int& code) {
  while (at < end && (*at == ' ' || *at == '\t')) ++at;
  const bool negative = at < end && *at == '-';
  if (negative) ++at;
  int value = 0;
  const char* first = at;
  while (at < end && *at >= '0' && *at <= '9' && value <= 9999) value = value * 10 + (*at++ - '0');
  if (at == first || value > (negative ? 5 : 1071)) return false;
  while (at < end && (*at == ' ' || *at == '\t' || (kEnd != '\r' && *at == '\r'))) ++at;
  if (at == end || *at != kEnd) return false;
  ++at;
  code = negative ? -value : value;
  return true;
}

template bool takeAnyCode<'\n'>(const char*& at, const char* end, int& code);
template bool takeAnyCode<'\r'>(const char*& at, const char* end, int& code);

}  // namespace cad::dxf
