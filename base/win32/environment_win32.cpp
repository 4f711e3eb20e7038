#include "base/environment.h"

#include <windows.h>

namespace base {

std::wstring userInterfaceLanguage() {
  wchar_t name[LOCALE_NAME_MAX_LENGTH];
  const LCID language = MAKELCID(::GetUserDefaultUILanguage(), SORT_DEFAULT);
  return ::LCIDToLocaleName(language, name, LOCALE_NAME_MAX_LENGTH, 0) > 0 ? name : L"";
}

}  // namespace base
