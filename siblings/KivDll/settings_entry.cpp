#include <algorithm>
#include <cwchar>
#include <exception>
#include <limits>
#include <memory>

#include "base/dynamic_library.h"
#include "siblings/KivDll/exports.h"
#include "siblings/KivDll/settings_store.h"

namespace kiv {
namespace {

// Null where the system tells no folder for settings. Another environment names another file.
std::shared_ptr<SettingsStore> store() {
  static std::filesystem::path file;
  static std::shared_ptr<SettingsStore> current;
  static std::mutex mutex;
  const std::lock_guard<std::mutex> guard(mutex);
  const std::filesystem::path wanted = settingsFile();
  if (wanted.empty()) return nullptr;
  if (!current || file != wanted) {
    current = std::make_shared<SettingsStore>(wanted);
    file = wanted;
  }
  return current;
}

// What came along with the suite, in a folder beside this library. Nobody writes there.
std::optional<std::wstring> shippedSetting(const wchar_t* key) {
  static const char anchor = 0;
  static SettingsStore shipped(base::libraryFile(&anchor).parent_path() / "settings" / "common.cfg");
  return shipped.read(key);
}

std::optional<std::wstring> setting(const wchar_t* key) {
  const auto own = store();
  std::optional<std::wstring> value = own ? own->read(key) : std::nullopt;
  return value ? value : shippedSetting(key);
}

int copyOut(const std::wstring& value, wchar_t* text, int capacity) {
  // A text that a plain function cannot hand over whole ends at its first zero character.
  const std::size_t length = std::min(value.size(), value.find(L'\0'));
  if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) return -1;
  if (text != nullptr && capacity > 0) {
    const std::size_t count = std::min(length, static_cast<std::size_t>(capacity) - 1);
    std::wmemcpy(text, value.c_str(), count);
    text[count] = L'\0';
  }
  return static_cast<int>(length);
}

}  // namespace
}  // namespace kiv

int dll_kiv_getcfgCmn(const wchar_t* key, wchar_t* text, int capacity) {
  if (key == nullptr) return -1;
  try {
    const std::optional<std::wstring> value = kiv::setting(key);
    return value ? kiv::copyOut(*value, text, capacity) : -1;
  } catch (const std::exception&) {
    return -1;
  }
}

int dll_kiv_setcfgCmn(const wchar_t* key, const wchar_t* text) {
  if (key == nullptr || text == nullptr) return 0;
  try {
    const auto store = kiv::store();
    return store && store->write(key, text).ok() ? 1 : 0;
  } catch (const std::exception&) {
    return 0;
  }
}
