#pragma once
// The bytes of an outlined font, of which nothing is trusted.

#include <cstdint>
#include <string_view>

namespace cad {

// Big-endian numbers; 0 where the bytes have ended.
class FontBytes {
 public:
  FontBytes() = default;
  explicit FontBytes(std::string_view bytes) : bytes_(bytes) {}

  std::string_view text() const { return bytes_; }
  std::size_t size() const { return bytes_.size(); }
  int u8(std::size_t at) const { return static_cast<int>(number(at, 1)); }
  std::size_t u16(std::size_t at) const { return number(at, 2); }
  std::size_t u32(std::size_t at) const { return number(at, 4); }
  int i16(std::size_t at) const { return static_cast<std::int16_t>(number(at, 2)); }
  FontBytes from(std::size_t at, std::size_t size = std::string_view::npos) const {
    return FontBytes(at <= bytes_.size() ? bytes_.substr(at, size) : std::string_view());
  }
  bool startsWith(std::string_view text) const { return bytes_.starts_with(text); }

 private:
  std::size_t number(std::size_t at, std::size_t count) const {
    if (at > bytes_.size() || bytes_.size() - at < count) return 0;
    std::size_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
    return value;
  }

  std::string_view bytes_;
};

}  // namespace cad
