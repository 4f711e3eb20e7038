#include <iconv.h>

#include <cstring>
#include <map>
#include <memory>

#include "base/codepage_backend.h"

namespace base::backend {
namespace {

std::string iconvName(CodePage page) {
  if (page >= 28591 && page <= 28605) return "ISO-8859-" + std::to_string(page - 28590);
  switch (page) {
    case 936:
      return "GBK";
    case 949:
      return "UHC";
    case 950:
      return "CP950";
    case 1361:
      return "JOHAB";
    case 874:
      return "CP874";
    case 10000:
      return "MACINTOSH";
    default:
      return "CP" + std::to_string(page);
  }
}

// Both directions of one page, opened once per thread: opening loads a shared object.
class Converters {
 public:
  explicit Converters(CodePage page)
      : toWide_(iconv_open("WCHAR_T", name(page).c_str())),
        toPage_(iconv_open(name(page).c_str(), "WCHAR_T")) {}
  Converters(const Converters&) = delete;
  Converters& operator=(const Converters&) = delete;
  ~Converters() {
    if (toWide_ != closed()) iconv_close(toWide_);
    if (toPage_ != closed()) iconv_close(toPage_);
  }

  bool valid() const { return toWide_ != closed() && toPage_ != closed(); }
  iconv_t toWide() const { return toWide_; }
  iconv_t toPage() const { return toPage_; }

 private:
  static std::string name(CodePage page) { return iconvName(page); }
  static iconv_t closed() { return reinterpret_cast<iconv_t>(-1); }

  iconv_t toWide_;
  iconv_t toPage_;
};

const Converters& convertersOf(CodePage page) {
  thread_local std::map<CodePage, std::unique_ptr<Converters>> open;
  std::unique_ptr<Converters>& entry = open[page];
  if (!entry) entry = std::make_unique<Converters>(page);
  return *entry;
}

// The number of bytes written, or 0 when the input is not exactly one convertible character.
size_t convert(iconv_t converter, const char* input, size_t inputSize, char* output, size_t outputSize) {
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  char* in = const_cast<char*>(input);
  char* out = output;
  size_t left = inputSize;
  size_t room = outputSize;
  if (iconv(converter, &in, &left, &out, &room) == static_cast<size_t>(-1) || left != 0) return 0;
  return outputSize - room;
}

}  // namespace

bool hasPage(CodePage page) { return convertersOf(page).valid(); }

std::optional<wchar_t> decodeOne(std::string_view bytes, CodePage page) {
  wchar_t character[2] = {};
  const size_t written = convert(convertersOf(page).toWide(), bytes.data(), bytes.size(),
                                 reinterpret_cast<char*>(character), sizeof character);
  if (written != sizeof(wchar_t)) return std::nullopt;
  return character[0];
}

std::string encodeOne(wchar_t character, CodePage page) {
  char bytes[4];
  const size_t written = convert(convertersOf(page).toPage(), reinterpret_cast<const char*>(&character),
                                 sizeof character, bytes, sizeof bytes);
  return written > 2 ? std::string() : std::string(bytes, written);
}

}  // namespace base::backend
