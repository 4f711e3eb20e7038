#include "platform/win32/dialog_font.h"

#include "platform/win32/system.h"

namespace kiv::win32 {
namespace {

int CALLBACK noteFont(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool isInstalled(HDC screen, const wchar_t* face) {
  LOGFONTW wanted{};
  wanted.lfCharSet = SHIFTJIS_CHARSET;
  lstrcpynW(wanted.lfFaceName, face, LF_FACESIZE);
  bool found = false;
  EnumFontFamiliesExW(screen, &wanted, noteFont, reinterpret_cast<LPARAM>(&found), 0);
  return found;
}

}  // namespace

std::wstring japaneseFace(const std::wstring& wanted) {
  const wchar_t* const faces[] = {wanted.c_str(), L"Yu Gothic UI", L"Meiryo UI", L"MS Gothic",
                                  L"IPAPGothic",  L"IPAGothic",    L"Tahoma"};
  const HDC screen = GetDC(nullptr);
  std::wstring answer = wanted;
  for (const wchar_t* face : faces) {
    if (!isInstalled(screen, face)) continue;
    answer = face;
    break;
  }
  ReleaseDC(nullptr, screen);
  return answer;
}

}  // namespace kiv::win32
