#include "embedded/dwg/files/coded_compression.h"

#include <array>
#include <cstdint>
#include <initializer_list>

#include "embedded/dwg/files/match_finder.h"

namespace cad::dwg {
namespace {

// A page consists of literal bytes and of matches with what came before. The last byte of a match tells in
// its lowest three bits how many literal bytes follow it; from eight on they have a code of their own, below
// 0x10. Literal bytes stand in an order of their own, in chunks of 32 and a shorter one at the end.
constexpr std::size_t kChunk = 32;
constexpr std::size_t kLeastCoded = 8;
constexpr std::size_t kLongCount = 0x17;  // further bytes are added to such a count

using Order = std::array<std::uint8_t, kChunk>;
struct Piece {
  std::uint8_t count = 0, from = 0;
};

// orders[n - 1]: which of n stored bytes comes first, second and so on.
constexpr std::array<Order, kChunk> literalOrders() {
  // Each is made of shorter ones.
  constexpr std::array<std::array<Piece, 5>, kChunk> kPieces = {{
      {{{1, 0}}},
      {{{1, 1}, {1, 0}}},
      {{{1, 2}, {1, 1}, {1, 0}}},
      {{{1, 0}, {1, 1}, {1, 2}, {1, 3}}},
      {{{1, 4}, {4, 0}}},
      {{{1, 5}, {4, 1}, {1, 0}}},
      {{{2, 5}, {4, 1}, {1, 0}}},
      {{{4, 0}, {4, 4}}},
      {{{1, 8}, {8, 0}}},
      {{{1, 9}, {8, 1}, {1, 0}}},
      {{{2, 9}, {8, 1}, {1, 0}}},
      {{{4, 8}, {8, 0}}},
      {{{1, 12}, {4, 8}, {8, 0}}},
      {{{1, 13}, {4, 9}, {8, 1}, {1, 0}}},
      {{{2, 13}, {4, 9}, {8, 1}, {1, 0}}},
      {{{8, 8}, {8, 0}}},
      {{{8, 9}, {1, 8}, {8, 0}}},
      {{{1, 17}, {16, 1}, {1, 0}}},
      {{{3, 16}, {16, 0}}},
      {{{4, 16}, {16, 0}}},
      {{{1, 20}, {4, 16}, {16, 0}}},
      {{{2, 20}, {4, 16}, {16, 0}}},
      {{{3, 20}, {4, 16}, {16, 0}}},
      {{{8, 16}, {16, 0}}},
      {{{8, 17}, {1, 16}, {16, 0}}},
      {{{1, 25}, {8, 17}, {1, 16}, {16, 0}}},
      {{{2, 25}, {8, 17}, {1, 16}, {16, 0}}},
      {{{4, 24}, {8, 16}, {16, 0}}},
      {{{1, 28}, {4, 24}, {8, 16}, {16, 0}}},
      {{{2, 28}, {4, 24}, {8, 16}, {16, 0}}},
      {{{1, 30}, {4, 26}, {8, 18}, {16, 2}, {2, 0}}},
      {{{16, 16}, {16, 0}}},
  }};
  std::array<Order, kChunk> orders{};
  for (std::size_t count = 1; count <= kChunk; ++count) {
    Order& order = orders[count - 1];
    std::size_t at = 0;
    for (const Piece& piece : kPieces[count - 1]) {
      for (std::uint8_t i = 0; i < piece.count; ++i) {
        order[at++] =
            static_cast<std::uint8_t>(piece.from + (piece.count == 1 ? 0 : orders[piece.count - 1U][i]));
      }
    }
  }
  return orders;
}
constexpr std::array<Order, kChunk> kOrders = literalOrders();

class Decompressor {
 public:
  Decompressor(std::string_view bytes, std::size_t size) : bytes_(bytes), size_(size) {}

  std::optional<std::string> run() {
    std::size_t literal = 0;
    code_ = next();
    if (code_ >> 4 == 2) {
      next(), next();
      literal = next() & 7U;
    }
    while (!failed_ && !isAtEnd()) {
      copyLiteral(literal != 0 ? literal : longLiteral());
      if (failed_ || isAtEnd()) break;
      code_ = next();
      literal = copyMatches();
    }
    if (failed_ || out_.size() != size_) return std::nullopt;
    return std::move(out_);
  }

 private:
  bool isAtEnd() const { return at_ >= bytes_.size(); }
  std::uint8_t next() {
    if (!isAtEnd()) return static_cast<std::uint8_t>(bytes_[at_++]);
    failed_ = true;
    return 0;
  }
  std::size_t nextTwo() {
    const std::size_t low = next();
    return low | std::size_t{next()} << 8;
  }
  std::size_t longLiteral() {
    std::size_t count = code_ + kLeastCoded;
    if (count != kLongCount) return count;
    std::size_t more = next();
    count += more;
    if (more != 0xFF) return count;
    do {
      more = nextTwo();
      count += more;
    } while (more == 0xFFFF && !failed_);
    return count;
  }
  void copyLiteral(std::size_t count) {
    if (failed_ || count > bytes_.size() - at_ || count > size_ - out_.size()) {
      failed_ = true;
      return;
    }
    while (count > 0) {
      const std::size_t chunk = count < kChunk ? count : kChunk;
      for (std::size_t i = 0; i < chunk; ++i) out_ += bytes_[at_ + kOrders[chunk - 1][i]];
      at_ += chunk, count -= chunk;
    }
  }
  Match readMatch() {
    Match match;
    switch (code_ >> 4) {
      case 0:
        match.length = (code_ & 0xFU) + 0x13;
        match.distance = next() + 1U;
        code_ = next();
        match.length += code_ >> 3 & 0x10;
        match.distance += (code_ & 0x78U) << 5;
        break;
      case 1:
        match.length = (code_ & 0xFU) + 3;
        match.distance = next() + 1U;
        code_ = next();
        match.distance += (code_ & 0xF8U) << 5;
        break;
      case 2:
        match.distance = nextTwo();
        match.length = code_ & 7U;
        if ((code_ & 8) == 0) {
          code_ = next();
          match.length += code_ & 0xF8U;
        } else {
          ++match.distance;
          match.length += std::size_t{next()} << 3;
          code_ = next();
          match.length += ((code_ & 0xF8U) << 8) + 0x100;
        }
        break;
      default:
        match.length = code_ >> 4;
        match.distance = (code_ & 0xFU) + 1;
        code_ = next();
        match.distance += (code_ & 0xF8U) << 1;
    }
    return match;
  }
  // From the code on; returns how many literal bytes follow, 0: the last code tells, or there is nothing
  // more.
  std::size_t copyMatches() {
    while (true) {
      const Match match = readMatch();
      if (failed_ || match.distance == 0 || match.distance > out_.size() ||
          match.length > size_ - out_.size()) {
        failed_ = true;
        return 0;
      }
      std::size_t from = out_.size() - match.distance;
      for (std::size_t i = 0; i < match.length; ++i) out_ += out_[from++];
      if ((code_ & 7) != 0 || isAtEnd()) return code_ & 7U;
      code_ = next();
      if (code_ >> 4 == 0) return 0;
      if (code_ >> 4 == 0xF) code_ &= 0xF;
    }
  }

  std::string_view bytes_;
  std::size_t size_;
  std::size_t at_ = 0;
  std::uint8_t code_ = 0;
  std::string out_;
  bool failed_ = false;
};

class Compressor {
 public:
  explicit Compressor(std::string_view bytes) : bytes_(bytes), finder_(bytes, kNearby, kFarthest) {}

  std::string run() {
    const std::size_t literal = finder_.run(1, [&](std::size_t begin, std::size_t at, const Match& match) {
      writeLiterals(begin, at);
      for (Match left = match; left.length > 0;) {
        const Match piece{pieceLength(left.length), left.distance};
        writeMatch(piece, at == begin);
        left.length -= piece.length;
        begin = at;
      }
    });
    writeLiterals(literal, bytes_.size());
    return std::move(out_);
  }

 private:
  static constexpr std::size_t kNearby = 512, kFarthest = 0xFFFF, kLongest = 0x100FF, kShortest = 3;

  // No match is too long, and what is left of one never too short.
  static std::size_t pieceLength(std::size_t length) {
    if (length <= kLongest) return length;
    return length - kLongest < kShortest ? kLongest - kShortest : kLongest;
  }
  void put(std::size_t byte) { out_ += static_cast<char>(byte); }
  void addToLast(std::size_t bits) {
    out_.back() = static_cast<char>(static_cast<std::uint8_t>(out_.back()) | bits);
  }
  void writeLiterals(std::size_t begin, std::size_t end) {
    const std::size_t count = end - begin;
    if (count >= kLeastCoded) {
      writeLongCount(count);
    } else if (out_.empty()) {
      put(0x20), put(0), put(0), put(count);
    } else {
      addToLast(count);
    }
    for (std::size_t chunk = 0; begin < end; begin += chunk) {
      chunk = end - begin < kChunk ? end - begin : kChunk;
      std::array<char, kChunk> stored{};
      for (std::size_t i = 0; i < chunk; ++i) stored[kOrders[chunk - 1][i]] = bytes_[begin + i];
      out_.append(stored.data(), chunk);
    }
  }
  void writeLongCount(std::size_t count) {
    if (count < kLongCount) {
      put(count - kLeastCoded);
      return;
    }
    put(kLongCount - kLeastCoded);
    count -= kLongCount;
    if (count < 0xFF) {
      put(count);
      return;
    }
    put(0xFF);
    for (count -= 0xFF; count >= 0xFFFF; count -= 0xFFFF) put(0xFF), put(0xFF);
    put(count & 0xFF), put(count >> 8);
  }
  // `isBehindMatch`: no literal bytes are between this one and another.
  void writeMatch(const Match& match, bool isBehindMatch) {
    const std::size_t distance = match.distance - 1, length = match.length;
    if (length <= 14 && distance < 0x200) {
      put(length << 4 | (distance & 0xF));
      put(distance >> 4 << 3);
    } else if (length <= 18 && distance < 0x2000) {
      put(0x10 | (length - 3));
      put(distance & 0xFF);
      put(distance >> 8 << 3);
    } else if (length >= 19 && length <= 50 && distance < 0x1000) {
      const std::size_t more = length - 19;
      put((isBehindMatch ? 0xF0 : 0) | (more & 0xF));
      put(distance & 0xFF);
      put((more & 0x10) << 3 | distance >> 8 << 3);
    } else if (length < 0x100) {
      put(0x20 | (length & 7));
      put(match.distance & 0xFF), put(match.distance >> 8);
      put(length & 0xF8);
    } else {
      const std::size_t more = length - 0x100;
      put(0x28 | (more & 7));
      put(distance & 0xFF), put(distance >> 8);
      put(more >> 3 & 0xFF);
      put(more >> 11 << 3);
    }
  }

  std::string_view bytes_;
  MatchFinder finder_;
  std::string out_;
};

}  // namespace

std::optional<std::string> decompressCoded(std::string_view bytes, std::size_t size) {
  return Decompressor(bytes, size).run();
}

std::string compressCoded(std::string_view bytes) { return Compressor(bytes).run(); }

}  // namespace cad::dwg
