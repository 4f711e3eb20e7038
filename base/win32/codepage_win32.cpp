#include <windows.h>

#include "base/codepage_backend.h"

namespace base::backend {
namespace {

// The system's tables fill the holes of a page with the control characters of the same numbers; only the
// ISO pages really have these.
bool fillsHole(wchar_t character, CodePage page) {
  const bool isIso = page >= 28591 && page <= 28605;
  return !isIso && character >= 0x80 && character < 0xA0;
}

}  // namespace

bool hasPage(CodePage page) { return IsValidCodePage(static_cast<UINT>(page)) != 0; }

std::optional<wchar_t> decodeOne(std::string_view bytes, CodePage page) {
  wchar_t character[2] = {};
  const int written = MultiByteToWideChar(static_cast<UINT>(page), MB_ERR_INVALID_CHARS, bytes.data(),
                                          static_cast<int>(bytes.size()), character, 2);
  if (written != 1 || fillsHole(character[0], page)) return std::nullopt;
  return character[0];
}

std::string encodeOne(wchar_t character, CodePage page) {
  char bytes[4];
  BOOL replaced = FALSE;
  const int written = WideCharToMultiByte(static_cast<UINT>(page), WC_NO_BEST_FIT_CHARS, &character, 1, bytes,
                                          sizeof bytes, nullptr, &replaced);
  if (written < 1 || written > 2 || replaced) return {};
  return std::string(bytes, static_cast<std::size_t>(written));
}

}  // namespace base::backend
