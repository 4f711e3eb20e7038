#include "cadhost/copied_data.h"

#include <cstring>

namespace cadhost {
namespace {

constexpr ULONG_PTR kTypedText = 1;

}  // namespace

std::optional<std::wstring> copiedText(const COPYDATASTRUCT* data) {
  if (data == nullptr || data->dwData != kTypedText || data->lpData == nullptr ||
      data->cbData % sizeof(wchar_t) != 0)
    return std::nullopt;
  std::wstring text(data->cbData / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), data->lpData, data->cbData);
  text.resize(std::wcslen(text.c_str()));
  return text;
}

}  // namespace cadhost
