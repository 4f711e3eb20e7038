#pragma once
// The choices of a mutator, all from the number that libFuzzer gives, so that a run can be repeated.

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <random>

namespace fuzz {

class Choice {
 public:
  explicit Choice(unsigned seed) : engine_(seed) {}
  std::size_t below(std::size_t count) { return count == 0 ? 0 : engine_() % count; }  // 0 for none
  std::size_t between(std::size_t least, std::size_t most) { return least + below(most - least + 1); }
  bool oneIn(std::size_t count) { return below(count) == 0; }
  template <class List>
  const auto& of(const List& list) {
    return *(std::begin(list) + static_cast<std::ptrdiff_t>(below(std::size(list))));
  }
  template <class Value>
  Value of(std::initializer_list<Value> list) {
    return *(list.begin() + below(list.size()));
  }

 private:
  std::minstd_rand engine_;
};

}  // namespace fuzz

// Of libFuzzer: changes the bytes in place and returns their new number, at most `most`.
extern "C" std::size_t LLVMFuzzerMutate(unsigned char* data, std::size_t size, std::size_t most);
