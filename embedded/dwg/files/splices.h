#pragma once
// Bytes with parts of them replaced, and where the others come to stand.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace cad::dwg {

class Splices {
 public:
  using Write = std::function<void(std::string_view)>;
  // The bytes of one that was given by a number: the same with every call, valid until the next.
  using BytesOf = std::function<std::string_view(std::uint32_t number)>;

  // `removed` bytes at `at` give way to `bytes`. Splices may be given in any order, but must not overlap.
  void add(std::uint64_t at, std::uint64_t removed, std::string bytes);
  void add(std::uint64_t at, std::uint64_t removed, std::uint32_t number);
  // Room for as many, and for those of the sections.
  void reserve(std::size_t more) { splices_.reserve(splices_.size() + more + 16); }
  // To be called when all are given and before everything below. False: two overlap, or one has 4 gigabytes.
  bool arrange();
  // How long those with a number are, is known once they are applied, or measured. What is told below holds
  // for what stands before the first that is not.
  void measure(const BytesOf& bytesOf);
  bool empty() const { return splices_.empty(); }

  // Other bytes for the splice at `at`, which is one that removes bytes and was given them.
  void replace(std::uint64_t at, std::string bytes);
  std::string_view replacement(std::uint64_t at) const;

  // The new offset of what stands at an old one: of a splice that removes bytes its beginning, of what is
  // behind bytes that are put in, the end of these.
  std::uint64_t moved(std::uint64_t offset) const;
  // The same faster for offsets that grow; `near` is 0 at first.
  std::uint64_t moved(std::uint64_t offset, std::size_t& near) const;
  // Where bytes come to stand that are put in at `at` without removing any.
  std::uint64_t inserted(std::uint64_t at) const;
  // The new length of what stands from `at` on; bytes put in at its end do not belong to it.
  std::uint64_t movedLength(std::uint64_t at, std::uint64_t length) const;
  // The first byte that becomes another.
  std::uint64_t firstChange() const { return splices_.front().at; }
  // How many bytes more there are in the end, modulo 2^64.
  std::uint64_t growth() const { return splices_.empty() ? 0 : splices_.back().shift; }

  // What stands from `begin` to `end`.
  void apply(std::string_view bytes, std::uint64_t begin, std::uint64_t end, const BytesOf& bytesOf,
             const Write& write);
  std::string applied(std::string_view bytes, const BytesOf& bytesOf = {});

 private:
  static constexpr std::uint32_t kText = 0xFFFFFFFF;
  // As few bytes as can be: there may be one for each object of the file.
  struct Splice {
    std::uint64_t at = 0;
    std::uint64_t shift = 0;  // how far everything behind it moves, modulo 2^64
    std::uint32_t removed = 0, size = 0;
    std::uint32_t number = kText, text = 0;  // text: its position among the texts
    std::uint64_t end() const { return at + removed; }
  };
  // The first splice that ends behind `offset`.
  std::vector<Splice>::const_iterator behind(std::uint64_t offset) const;
  std::vector<Splice>::const_iterator find(std::uint64_t at) const;  // one that removes bytes
  std::uint64_t shiftBefore(std::vector<Splice>::const_iterator splice) const;
  void add(Splice splice, std::uint64_t removed, std::uint64_t size);
  std::string_view bytesOf(Splice& splice, const BytesOf& bytesOf) const;  // which tell its size
  void shiftFrom(std::size_t position);

  std::vector<Splice> splices_;
  std::vector<std::string> texts_;
  bool isTooLarge_ = false;
};

}  // namespace cad::dwg
