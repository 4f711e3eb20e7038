// A settings store in memory, exporting what the suite's settings module exports.

#include <algorithm>
#include <cwchar>
#include <map>
#include <string>

namespace {

std::map<std::wstring, std::wstring>& kept() {
  static std::map<std::wstring, std::wstring> texts;
  return texts;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int dll_kiv_getcfgCmn(const wchar_t* key, wchar_t* text,
                                                                        int capacity) {
  const auto found = kept().find(key);
  if (found == kept().end()) return -1;
  // Another process writes between the two calls of a reader.
  const bool grows = capacity == 0 && std::wcscmp(key, L"Growing") == 0;
  if (capacity > 0) {
    const size_t count = std::min(found->second.size(), static_cast<size_t>(capacity) - 1);
    std::wmemcpy(text, found->second.c_str(), count);
    text[count] = L'\0';
  }
  const int length = static_cast<int>(found->second.size());
  if (grows) found->second += L"-and-longer";
  return length;
}

extern "C" __attribute__((visibility("default"))) int dll_kiv_setcfgCmn(const wchar_t* key,
                                                                        const wchar_t* text) {
  kept()[key] = text;
  return 1;
}
