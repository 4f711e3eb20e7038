#include "platform/settings.h"

#include <cwchar>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "base/fold.h"
#include "platform/host_output.h"
#include "platform/module_loader.h"
#include "siblings/KivDll/interface.h"

namespace kiv {
namespace {

constexpr const wchar_t* kStoreModule = L"KivDll.arx";

std::map<std::wstring, std::wstring>& overrides() {
  static std::map<std::wstring, std::wstring> values;
  return values;
}

// The store's functions, looked for when first needed; what is missing or fails is said once.
class Store {
 public:
  static Store& instance() {
    if (!opened) opened = new Store;
    return *opened;
  }
  static void close() { delete std::exchange(opened, nullptr); }

  std::optional<std::wstring> read(const wchar_t* key) const {
    if (!get_) return std::nullopt;
    int length = get_(key, nullptr, 0);
    while (length >= 0) {
      std::vector<wchar_t> text(static_cast<size_t>(length) + 1);
      const int copied = get_(key, text.data(), static_cast<int>(text.size()));
      if (copied >= 0 && copied <= length) return std::wstring(text.data());
      length = copied;  // another process has lengthened or removed the text meanwhile
    }
    return std::nullopt;
  }

  void write(const wchar_t* key, const wchar_t* value) {
    if (!set_ || set_(key, value) == 1 || lossSaid_) return;
    lossSaid_ = true;
    printError(L"設定を保存できません.");
  }

 private:
  // Not a static object: it would let a library go while this one is being detached.
  static inline Store* opened = nullptr;

  Store()
      : module_(kStoreModule),
        get_(module_.function<GetCommonSetting>("dll_kiv_getcfgCmn")),
        set_(module_.function<SetCommonSetting>("dll_kiv_setcfgCmn")) {}

  Sibling module_;
  GetCommonSetting* get_;
  SetCommonSetting* set_;
  bool lossSaid_ = false;
};

std::optional<std::wstring> readSetting(const wchar_t* key) {
  const auto found = overrides().find(base::upper(key));
  return found != overrides().end() ? found->second : Store::instance().read(key);
}

std::optional<int> leadingNumber(const std::wstring& text) {
  const wchar_t* start = text.c_str();
  wchar_t* end = nullptr;
  const long value = std::wcstol(start, &end, 10);
  if (end == start) return std::nullopt;
  return static_cast<int>(value);
}

}  // namespace

int readCommonInteger(const wchar_t* key, int fallback) {
  const std::optional<std::wstring> text = readSetting(key);
  return text ? leadingNumber(*text).value_or(fallback) : fallback;
}

std::wstring readCommonText(const wchar_t* key, const wchar_t* fallback) {
  return readSetting(key).value_or(fallback);
}

void writeCommonText(const wchar_t* key, const wchar_t* value) {
  const auto found = overrides().find(base::upper(key));
  if (found != overrides().end()) {
    found->second = value;
  } else {
    Store::instance().write(key, value);
  }
}

void writeCommonInteger(const wchar_t* key, int value) {
  writeCommonText(key, std::to_wstring(value).c_str());
}

void closeSettingsStore() { Store::close(); }

void overrideCommonSetting(const wchar_t* key, const wchar_t* value) {
  overrides()[base::upper(key)] = value;
}

void clearSettingOverrides() { overrides().clear(); }

}  // namespace kiv
