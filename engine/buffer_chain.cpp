#include "engine/buffer_chain.h"

namespace kiv {

resbuf* BufferChain::append(int type) {
  resbuf* buffer = acutNewRb(type);
  if (tail_ != nullptr) {
    tail_->rbnext = buffer;
  } else {
    head_ = buffer;
  }
  return tail_ = buffer;
}

BufferChain& BufferChain::text(int type, const std::wstring& value) {
  append(type)->resval.rstring = acutNewString(value.c_str());
  return *this;
}

BufferChain& BufferChain::integer(int type, int value) {
  append(type)->resval.rint = static_cast<short>(value);
  return *this;
}

}  // namespace kiv
