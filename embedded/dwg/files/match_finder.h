#pragma once
// Finds what a compressed page can take from earlier bytes of it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace cad::dwg {

struct Match {
  std::size_t length = 0, distance = 0;  // as many bytes as stand so far before
};

class MatchFinder {
 public:
  // `farthest`: the largest distance. Matches of more than `nearby` have at least four bytes, others three.
  MatchFinder(std::string_view bytes, std::size_t nearby, std::size_t farthest)
      : bytes_(bytes), nearby_(nearby), farthest_(farthest), before_(bytes.size(), kNone) {
    newest_.fill(kNone);
  }

  // Calls take(literal, at, match) for every match at a place that is not before `first`: what is between
  // `literal` and `at` is in no match. Returns where the bytes begin that are behind the last one.
  template <class Take>
  std::size_t run(std::size_t first, const Take& take) {
    std::size_t at = 0, literal = 0;
    while (at + kHashed <= bytes_.size()) {
      const Match found = at < first ? Match() : find(at);
      remember(at);
      if (found.length == 0) {
        ++at;
        continue;
      }
      take(literal, at, found);
      for (const std::size_t end = at + found.length; ++at < end;) remember(at);
      literal = at;
    }
    return literal;
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  static constexpr std::size_t kHashed = 4, kHashBits = 13, kMostTries = 16, kShortest = 3;

  std::size_t hash(std::size_t at) const {
    std::uint32_t word = 0;
    std::memcpy(&word, bytes_.data() + at, sizeof word);
    return (word * 2654435761U) >> (32 - kHashBits);
  }
  void remember(std::size_t at) {
    if (at + kHashed > bytes_.size()) return;
    std::uint32_t& newest = newest_[hash(at)];
    before_[at] = newest;
    newest = static_cast<std::uint32_t>(at);
  }
  Match find(std::size_t at) const {
    Match best;
    const std::size_t most = bytes_.size() - at;
    std::uint32_t candidate = newest_[hash(at)];
    for (std::size_t tries = 0; candidate != kNone && tries < kMostTries; ++tries) {
      const std::size_t distance = at - candidate;
      if (distance > farthest_) break;
      std::size_t length = 0;
      while (length < most && bytes_[candidate + length] == bytes_[at + length]) ++length;
      const std::size_t least = distance > nearby_ ? kShortest + 1 : kShortest;
      if (length >= least && length > best.length) best = {length, distance};
      if (length == most) break;
      candidate = before_[candidate];
    }
    return best;
  }

  std::string_view bytes_;
  std::size_t nearby_, farthest_;
  std::array<std::uint32_t, std::size_t{1} << kHashBits> newest_{};
  std::vector<std::uint32_t> before_;
};

}  // namespace cad::dwg
