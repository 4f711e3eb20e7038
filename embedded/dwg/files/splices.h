#pragma once
// Bytes with parts of them replaced, and where the others come to stand.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cad::dwg {

class Splices {
 public:
  // `removed` bytes at `at` give way to `bytes`. Splices may be given in any order, but must not overlap.
  void add(std::uint64_t at, std::uint64_t removed, std::string bytes);
  // To be called when all are given and before everything below; again after replace(). False: two overlap.
  bool arrange();
  bool empty() const { return splices_.empty(); }

  // Other bytes for the splice at `at`, which is one that removes bytes.
  void replace(std::uint64_t at, std::string bytes);
  std::string_view replacement(std::uint64_t at) const;

  // The new offset of what stands at an old one: of a splice that removes bytes its beginning, of what is
  // behind bytes that are put in, the end of these.
  std::uint64_t moved(std::uint64_t offset) const;
  // Where bytes come to stand that are put in at `at` without removing any.
  std::uint64_t inserted(std::uint64_t at) const;
  // The new length of what stands from `at` on; bytes put in at its end do not belong to it.
  std::uint64_t movedLength(std::uint64_t at, std::uint64_t length) const;
  // The first byte that becomes another.
  std::uint64_t firstChange() const { return splices_.front().at; }

  std::string applied(std::string_view bytes) const;

 private:
  struct Splice {
    std::uint64_t at = 0, removed = 0;
    std::string bytes;
    std::uint64_t shift = 0;  // how far everything behind it moves, modulo 2^64
  };
  // The first splice that ends behind `offset`.
  std::vector<Splice>::const_iterator behind(std::uint64_t offset) const;
  std::vector<Splice>::const_iterator find(std::uint64_t at) const;  // one that removes bytes
  std::uint64_t shiftBefore(std::vector<Splice>::const_iterator splice) const;

  std::vector<Splice> splices_;
};

}  // namespace cad::dwg
