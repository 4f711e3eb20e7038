#include <string>

#include "base/terminal.h"
#include "base/utf8.h"

namespace base {

void writeText(std::FILE* stream, std::wstring_view text) {
  const std::string bytes = utf8::encodeName(text);
  std::fwrite(bytes.data(), 1, bytes.size(), stream);
  std::fflush(stream);
}

}  // namespace base
