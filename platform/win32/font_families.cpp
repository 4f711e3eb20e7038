#include "platform/font_families.h"

#include <windows.h>

#include <algorithm>

#include "platform/host_output.h"

namespace kiv {
namespace {

// A family comes once for each character set that it has.
int CALLBACK keepFamily(const LOGFONTW* font, const TEXTMETRICW*, DWORD type, LPARAM context) {
  return guarded(FALSE, [&] {
    auto& families = *reinterpret_cast<std::vector<FontFamily>*>(context);
    const auto& face = *reinterpret_cast<const ENUMLOGFONTEXW*>(font);
    const std::wstring name = font->lfFaceName;
    if ((type & TRUETYPE_FONTTYPE) != 0 && !name.empty() &&
        std::ranges::find(families, name, &FontFamily::name) == families.end())
      families.push_back({name, face.elfStyle});
    return TRUE;
  });
}

}  // namespace

std::vector<FontFamily> fontFamilies(NativeWindow window) {
  std::vector<FontFamily> families;
  const HWND owner = static_cast<HWND>(window);
  const HDC context = GetDC(owner);
  if (context == nullptr) return families;
  LOGFONTW all{};
  all.lfCharSet = DEFAULT_CHARSET;
  EnumFontFamiliesExW(context, &all, keepFamily, reinterpret_cast<LPARAM>(&families), 0);
  ReleaseDC(owner, context);
  return families;
}

}  // namespace kiv
