#pragma once
// A chain of result buffers built piece by piece and released with its owner.

#include <string>

#include "acutads.h"
#include "adsdef.h"

namespace kiv {

class BufferChain {
 public:
  BufferChain() = default;
  BufferChain(const BufferChain&) = delete;
  BufferChain& operator=(const BufferChain&) = delete;
  ~BufferChain() {
    if (head_ != nullptr) acutRelRb(head_);
  }

  // Types as acutBuildList takes them: group 0, an entity's type, is written RTDXF0.
  BufferChain& text(int type, const std::wstring& value);
  BufferChain& integer(int type, int value);  // 16 bits, as groups 60 to 79 and RTSHORT are

  const resbuf* get() const { return head_; }  // null when nothing was added
  // False: the host refused a piece, so the chain says something else than was meant.
  bool isWhole() const { return isWhole_; }

 private:
  BufferChain& append(resbuf* piece);

  resbuf* head_ = nullptr;
  resbuf* tail_ = nullptr;
  bool isWhole_ = true;
};

}  // namespace kiv
