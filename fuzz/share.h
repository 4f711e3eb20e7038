#pragma once
// How many of the inputs were what the target is about; told at the end of a run. A mutator whose inputs are
// refused by the reader tests nothing behind it.

#include <cstddef>
#include <cstdio>

namespace fuzz {

class Share {
 public:
  explicit Share(const char* kind) : kind_(kind) {}
  ~Share() {
    if (inputs_ > 0) std::fprintf(stderr, "%zu of %zu inputs were %s\n", accepted_, inputs_, kind_);
  }
  void add(bool accepted) {
    ++inputs_;
    accepted_ += accepted ? 1 : 0;
  }

 private:
  const char* kind_;
  std::size_t inputs_ = 0, accepted_ = 0;
};

}  // namespace fuzz
