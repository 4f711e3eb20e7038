#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kivcli {

// A set of objects by their places.
class ObjectSet {
 public:
  explicit ObjectSet(std::size_t size = 0, bool value = false) : size_(size), words_((size + 63) / 64) {
    for (std::size_t i = 0; value && i < size; ++i) add(i);
  }
  bool operator[](std::size_t i) const { return (words_[i / 64] >> (i % 64) & 1) != 0; }
  void add(std::size_t i) { words_[i / 64] |= std::uint64_t{1} << (i % 64); }

  bool isSubsetOf(const ObjectSet& other) const {
    for (std::size_t w = 0; w < words_.size(); ++w)
      if ((words_[w] & ~other.words_[w]) != 0) return false;
    return true;
  }
  bool isEverything() const {
    return count([](std::size_t) { return std::size_t{1}; }) == size_;
  }
  ObjectSet operator&(const ObjectSet& other) const {
    ObjectSet result = *this;
    for (std::size_t w = 0; w < words_.size(); ++w) result.words_[w] &= other.words_[w];
    return result;
  }
  // The sum of what the places weigh.
  template <class Weight>
  std::size_t count(Weight weight) const {
    std::size_t sum = 0;
    for (std::size_t w = 0; w < words_.size(); ++w) {
      for (std::uint64_t rest = words_[w]; rest != 0; rest &= rest - 1)
        sum += weight(w * 64 + static_cast<std::size_t>(std::countr_zero(rest)));
    }
    return sum;
  }

 private:
  std::size_t size_;
  std::vector<std::uint64_t> words_;
};

}  // namespace kivcli
