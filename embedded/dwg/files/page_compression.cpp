#include "embedded/dwg/files/page_compression.h"

#include <cstdint>

#include "embedded/dwg/files/match_finder.h"

namespace cad::dwg {
namespace {

// A page consists of literal bytes and of matches with what came before. Every match tells in its lowest two
// bits how many literal bytes follow it, from 1 to 3; more have a code of their own, below 0x10.
//   0x40..0xFF L D      3 to 14 bytes from at most 0x400 bytes before
//   0x20..0x3F ...      from at most 0x4000 bytes before
//   0x10..0x1F ...      from 0x4000 to 0xBFFF bytes before
//   0x11 0 0            the end
constexpr std::uint8_t kEnd = 0x11;
constexpr std::size_t kNear = 0x400, kMiddle = 0x4000, kFar = 0x8000;
constexpr std::size_t kLongestNear = 14;
constexpr std::size_t kShortestCoded = 4;

class Decompressor {
 public:
  Decompressor(std::string_view bytes, std::size_t limit) : bytes_(bytes), limit_(limit) {}

  std::optional<std::string> run() {
    std::uint8_t code = next();
    if (code < 0x10) code = literals(longLiteral(code));
    while (!failed_ && code != kEnd) code = match(code);
    if (failed_) return std::nullopt;
    return std::move(out_);
  }

 private:
  std::uint8_t next() {
    if (at_ < bytes_.size()) return static_cast<std::uint8_t>(bytes_[at_++]);
    failed_ = true;
    return 0;
  }
  // A count that goes on in further bytes while these are 0.
  std::size_t longCount(std::size_t base) {
    std::size_t count = base;
    std::uint8_t byte = next();
    for (; byte == 0 && !failed_; byte = next()) count += 0xFF;
    return count + byte;
  }
  std::size_t longLiteral(std::uint8_t code) { return 3 + (code == 0 ? longCount(0x0F) : code); }
  std::size_t matchLength(std::uint8_t code, std::uint8_t mask) {
    return 2 + ((code & mask) == 0 ? longCount(mask) : code & mask);
  }
  // Copies literal bytes; returns the code behind them.
  std::uint8_t literals(std::size_t count) {
    if (failed_ || count > bytes_.size() - at_ || count > limit_ - out_.size()) return fail();
    out_.append(bytes_, at_, count);
    at_ += count;
    return next();
  }
  std::uint8_t match(std::uint8_t code) {
    std::size_t length = 0, distance = 0;
    std::uint8_t last = code;
    if (code >= 0x40) {
      length = (code >> 4) - 1U;
      distance = ((code >> 2) & 3U) + (std::size_t{next()} << 2) + 1;
    } else if (code >= 0x10) {
      const bool isFar = code < 0x20;
      length = matchLength(code, isFar ? 7 : 0x1F);
      last = next();
      distance = (last >> 2U) + (std::size_t{next()} << 6) + 1;
      if (isFar) distance += kMiddle - 1 + ((code & 8U) << 11);
    } else {
      return fail();
    }
    if (failed_ || distance > out_.size() || length > limit_ - out_.size()) return fail();
    for (std::size_t from = out_.size() - distance; length > 0; --length) out_ += out_[from++];
    if ((last & 3) != 0) return literals(last & 3U);
    const std::uint8_t following = next();
    return following < 0x10 ? literals(longLiteral(following)) : following;
  }
  std::uint8_t fail() {
    failed_ = true;
    return 0;
  }

  std::string_view bytes_;
  std::size_t limit_;
  std::size_t at_ = 0;
  std::string out_;
  bool failed_ = false;
};

class Compressor {
 public:
  explicit Compressor(std::string_view bytes) : bytes_(bytes), finder_(bytes, kMiddle, kFar - 1) {}

  std::string run() {
    // A page begins with literal bytes, and with as many as have a code of their own.
    const std::size_t literal =
        finder_.run(kShortestCoded, [&](std::size_t begin, std::size_t at, const Match& match) {
          writeLiterals(begin, at);
          writeMatch(match);
        });
    writeLiterals(literal, bytes_.size());
    out_ += static_cast<char>(kEnd);
    out_.append(2, '\0');
    return std::move(out_);
  }

 private:
  void put(std::size_t byte) { out_ += static_cast<char>(byte); }
  void putLong(std::size_t count) {
    for (; count > 0xFF; count -= 0xFF) put(0);
    put(count);
  }
  void writeLiterals(std::size_t begin, std::size_t end) {
    const std::size_t count = end - begin;
    if (count >= kShortestCoded) {
      if (count - 3 <= 0x0F) {
        put(count - 3);
      } else {
        put(0), putLong(count - 3 - 0x0F);
      }
    } else if (count > 0) {
      char& bits = out_[literalBits_];
      bits = static_cast<char>(static_cast<std::uint8_t>(bits) | count);
    }
    out_.append(bytes_, begin, count);
  }
  void writeMatch(const Match& match) {
    const std::size_t distance = match.distance - 1;
    if (match.length <= kLongestNear && match.distance <= kNear) {
      literalBits_ = out_.size();
      put((match.length + 1) << 4 | (distance & 3) << 2);
      put(distance >> 2);
      return;
    }
    const bool isFar = match.distance > kMiddle;
    const std::size_t code = isFar ? 0x10 : 0x20, mask = isFar ? 7 : 0x1F;
    if (match.length - 2 <= mask) {
      put(code | (match.length - 2));
    } else {
      put(code), putLong(match.length - 2 - mask);
    }
    const std::size_t told = isFar ? match.distance - kMiddle : distance;
    literalBits_ = out_.size();
    put((told & 0x3F) << 2);
    put(told >> 6);
  }

  std::string_view bytes_;
  MatchFinder finder_;
  std::string out_;
  std::size_t literalBits_ = 0;  // the byte that tells how many literal bytes follow the last match
};

}  // namespace

std::optional<std::string> decompressPage(std::string_view bytes, std::size_t limit) {
  return Decompressor(bytes, limit).run();
}

std::string compressPage(std::string_view bytes) { return Compressor(bytes).run(); }

}  // namespace cad::dwg
