#pragma once
// Bytes that arrive in pieces, taken line by line.

#include <optional>
#include <string>
#include <string_view>

namespace base {

class LineBuffer {
 public:
  void add(std::string_view bytes) { bytes_ += bytes; }

  // The next whole line without its end; nothing: it has not arrived yet.
  std::optional<std::string> take() {
    const std::size_t end = bytes_.find('\n', searched_);
    if (end == std::string::npos) {
      searched_ = bytes_.size();
      return std::nullopt;
    }
    std::string line = bytes_.substr(0, end);
    bytes_.erase(0, end + 1);
    searched_ = 0;
    return line;
  }

 private:
  std::string bytes_;
  std::size_t searched_ = 0;
};

}  // namespace base
