#include "embedded/editor/result_buffer.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <new>

#include "acutads.h"
#include "adsdef.h"
#include "embedded/editor/host_state.h"

namespace cad {
namespace {

struct GroupRange {
  int first, last;
  ValueKind kind;
};

constexpr GroupRange kGroups[] = {
    {-5, -5, ValueKind::kEntity},     {-4, -4, ValueKind::kText},      {-3, -3, ValueKind::kNothing},
    {-2, -1, ValueKind::kEntity},     {1, 9, ValueKind::kText},        {10, 19, ValueKind::kPoint},
    {20, 59, ValueKind::kReal},       {60, 89, ValueKind::kShort},     {90, 99, ValueKind::kLong},
    {100, 109, ValueKind::kText},     {110, 119, ValueKind::kPoint},   {120, 149, ValueKind::kReal},
    {160, 169, ValueKind::kInt64},    {170, 179, ValueKind::kShort},   {210, 219, ValueKind::kPoint},
    {220, 239, ValueKind::kReal},     {270, 299, ValueKind::kShort},   {300, 309, ValueKind::kText},
    {310, 319, ValueKind::kBinary},   {320, 369, ValueKind::kEntity},  {370, 389, ValueKind::kShort},
    {390, 399, ValueKind::kEntity},   {400, 409, ValueKind::kShort},   {410, 419, ValueKind::kText},
    {420, 429, ValueKind::kLong},     {430, 439, ValueKind::kText},    {440, 459, ValueKind::kLong},
    {460, 469, ValueKind::kReal},     {470, 479, ValueKind::kText},    {1000, 1003, ValueKind::kText},
    {1004, 1004, ValueKind::kBinary}, {1005, 1009, ValueKind::kText},  {1010, 1013, ValueKind::kPoint},
    {1040, 1042, ValueKind::kReal},   {1060, 1070, ValueKind::kShort}, {1071, 1071, ValueKind::kLong},
};

}  // namespace

ValueKind valueKindOf(int code) {
  switch (code) {
    case RTREAL:
    case RTANG:
    case RTORINT:
      return ValueKind::kReal;
    case RTPOINT:
    case RT3DPOINT:
      return ValueKind::kPoint;
    case RTSHORT:
      return ValueKind::kShort;
    case RTLONG:
      return ValueKind::kLong;
    case RTINT64:
      return ValueKind::kInt64;
    case RTSTR:
    case RTDXF0:
      return ValueKind::kText;
    case RTENAME:
    case RTPICKS:
      return ValueKind::kEntity;
    case RTLB:
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
    case RTVOID:
      return ValueKind::kNothing;
    case 0:
      return ValueKind::kText;  // an entity type inside a chain that is read
    default:
      break;
  }
  for (const GroupRange& range : kGroups)
    if (code >= range.first && code <= range.last) return range.kind;
  return ValueKind::kUnknown;
}

bool isFilterCode(int code) {
  constexpr int kLeast = -4, kTypeCodes = 2000;
  return code >= kLeast && code < kTypeCodes && valueKindOf(code) != ValueKind::kUnknown;
}

ACHAR* newText(std::wstring_view text) {
  ACHAR* copy = new ACHAR[text.size() + 1];
  std::copy(text.begin(), text.end(), copy);
  copy[text.size()] = 0;
  return copy;
}

ResultChain::~ResultChain() { acutRelRb(head_); }

resbuf* ResultChain::append(int code) {
  resbuf* made = acutNewRb(code);
  (tail_ == nullptr ? head_ : tail_->rbnext) = made;
  tail_ = made;
  return made;
}

void ResultChain::text(int code, std::wstring_view value) { append(code)->resval.rstring = newText(value); }
void ResultChain::real(int code, double value) { append(code)->resval.rreal = value; }

void ResultChain::integer(int code, int value) {
  resbuf* made = append(code);
  if (valueKindOf(code) == ValueKind::kLong)
    made->resval.rlong = value;
  else
    made->resval.rint = static_cast<short>(value);
}

namespace {

void readBinary(resbuf* made, const ads_binary& from) {
  made->resval.rbinary.clen = from.clen;
  made->resval.rbinary.buf = new char[static_cast<std::size_t>(std::max<short>(from.clen, 1))];
  if (from.clen > 0) std::memcpy(made->resval.rbinary.buf, from.buf, static_cast<std::size_t>(from.clen));
}

}  // namespace

void ResultChain::copy(const resbuf& value) {
  resbuf* made = append(value.restype);
  const ValueKind kind = valueKindOf(value.restype);
  if (kind == ValueKind::kBinary) {
    readBinary(made, value.resval.rbinary);
  } else if (kind != ValueKind::kText) {
    made->resval = value.resval;
  } else if (value.resval.rstring != nullptr) {
    made->resval.rstring = newText(value.resval.rstring);
  }
}

resbuf* ResultChain::release() {
  resbuf* taken = head_;
  head_ = tail_ = nullptr;
  return taken;
}

bool readPairs(int firstType, va_list arguments, ResultChain& chain) {
  for (int type = firstType; type != RTNONE && type != 0; type = va_arg(arguments, int)) {
    const ValueKind kind = valueKindOf(type);
    if (kind == ValueKind::kUnknown) return false;
    resbuf* made = chain.append(type == RTDXF0 ? 0 : type);
    switch (kind) {
      case ValueKind::kText:
        if (const ACHAR* text = va_arg(arguments, const ACHAR*)) made->resval.rstring = newText(text);
        break;
      case ValueKind::kReal:
        made->resval.rreal = va_arg(arguments, double);
        break;
      case ValueKind::kPoint: {
        const ads_real* point = va_arg(arguments, const ads_real*);
        if (point == nullptr) return false;
        std::copy(point, point + 3, made->resval.rpoint);
        break;
      }
      case ValueKind::kShort:
        made->resval.rint = static_cast<short>(va_arg(arguments, int));
        break;
      case ValueKind::kLong:
        made->resval.rlong = va_arg(arguments, int);
        break;
      case ValueKind::kInt64:
        made->resval.mnInt64 = va_arg(arguments, Adesk::Int64);
        break;
      case ValueKind::kEntity: {
        const Adesk::IntPtr* name = va_arg(arguments, const Adesk::IntPtr*);
        if (name == nullptr) return false;
        std::copy(name, name + 2, made->resval.rlname);
        break;
      }
      case ValueKind::kBinary: {
        const ads_binary* bytes = va_arg(arguments, const ads_binary*);
        if (bytes == nullptr) return false;
        readBinary(made, *bytes);
        break;
      }
      default:
        break;
    }
  }
  return true;
}

}  // namespace cad

resbuf* acutNewRb(int restype) {
  resbuf* made = new resbuf;
  std::memset(made, 0, sizeof *made);
  made->restype = static_cast<short>(restype);
  return made;
}

resbuf* acutBuildList(int restype, ...) {
  cad::ResultChain chain;
  va_list arguments;
  va_start(arguments, restype);
  const bool read = cad::readPairs(restype, arguments, chain);
  va_end(arguments);
  return read ? chain.release() : nullptr;
}

int acutRelRb(resbuf* list) {
  if (cad::hostState().functions.isArguments(list)) return RTNORM;  // the host's, which acedGetArgs gave
  while (list != nullptr) {
    resbuf* next = list->rbnext;
    const cad::ValueKind kind = cad::valueKindOf(list->restype);
    if (kind == cad::ValueKind::kText) delete[] list->resval.rstring;
    if (kind == cad::ValueKind::kBinary) delete[] list->resval.rbinary.buf;
    delete list;
    list = next;
  }
  return RTNORM;
}

Acad::ErrorStatus acutNewString(const ACHAR* text, ACHAR*& copy) {
  copy = text == nullptr ? nullptr : cad::newText(text);
  return copy == nullptr ? Acad::eInvalidInput : Acad::eOk;
}

void acutDelString(ACHAR*& text) {
  delete[] text;
  text = nullptr;
}
