#pragma once
// Result buffers inside the host: which C type a value has, by its code, and building chains of them.

#include <cstdarg>
#include <string_view>

#include "adsdef.h"

namespace cad {

enum class ValueKind { kNothing, kText, kReal, kPoint, kShort, kLong, kInt64, kEntity, kBinary, kUnknown };

ValueKind valueKindOf(int code);

// Whether a selection filter may hold the code: those of a drawing's groups, -3 and -4. Type codes as RTSTR
// are none, nor is RTDXF0, which stands for group 0 in arguments only.
bool isFilterCode(int code);

// A copy for resval.rstring; acutRelRb or acutDelString releases it.
ACHAR* newText(std::wstring_view text);

// Appends to a chain whose newest buffer `tail` points to; the first append sets `head`.
class ResultChain {
 public:
  ResultChain() = default;
  ~ResultChain();  // releases what nobody took
  ResultChain(const ResultChain&) = delete;
  ResultChain& operator=(const ResultChain&) = delete;

  void text(int code, std::wstring_view value);
  void real(int code, double value);
  void integer(int code, int value);
  resbuf* append(int code);
  void copy(const resbuf& value);  // of that one, not of those behind it
  const resbuf* head() const { return head_; }
  resbuf* release();  // the caller owns the chain

 private:
  resbuf* head_ = nullptr;
  resbuf* tail_ = nullptr;
};

// Reads (type, value) pairs until RTNONE or 0, the first type given. False for an unknown code.
bool readPairs(int firstType, va_list arguments, ResultChain& chain);

}  // namespace cad
