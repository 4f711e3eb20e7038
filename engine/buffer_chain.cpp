#include "engine/buffer_chain.h"

namespace kiv {

BufferChain& BufferChain::append(resbuf* piece) {
  if (piece == nullptr) {
    isWhole_ = false;
    return *this;
  }
  (tail_ != nullptr ? tail_->rbnext : head_) = piece;
  tail_ = piece;
  return *this;
}

BufferChain& BufferChain::text(int type, const std::wstring& value) {
  return append(acutBuildList(type, value.c_str(), RTNONE));
}

BufferChain& BufferChain::integer(int type, int value) { return append(acutBuildList(type, value, RTNONE)); }

}  // namespace kiv
