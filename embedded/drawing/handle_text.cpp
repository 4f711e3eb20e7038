#include "embedded/drawing/handle_text.h"

namespace cad {

std::wstring handleText(Handle handle) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  std::wstring text;
  do {
    text.insert(text.begin(), kDigits[handle & 0xF]);
  } while ((handle >>= 4) != 0);
  return text;
}

}  // namespace cad
