#include "embedded/editor/result_buffer.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <new>

#include "acutads.h"
#include "embedded/editor/group_codes.h"

namespace cad {

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

resbuf* ResultChain::release() {
  resbuf* taken = head_;
  head_ = tail_ = nullptr;
  return taken;
}

namespace {

void readBinary(resbuf* made, const ads_binary& from) {
  made->resval.rbinary.clen = from.clen;
  made->resval.rbinary.buf = new char[static_cast<std::size_t>(std::max<short>(from.clen, 1))];
  if (from.clen > 0) std::memcpy(made->resval.rbinary.buf, from.buf, static_cast<std::size_t>(from.clen));
}

}  // namespace

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
