#pragma once
// The content of the settings file: lines "key = value" in UTF-8, for people to read and change.
//
// Lines that are empty, begin with "#" or are not understood stay as they are. In keys and values a
// backslash begins an escape: \\ \n \r \t \s (a blank at an end) and \uXXXX or \UXXXXXXXX (a character by
// its number). Of several lines with the same key the last one counts.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kiv {

class SettingsText {
 public:
  explicit SettingsText(std::string_view bytes = {});

  std::optional<std::wstring> find(std::wstring_view key) const;  // ignoring case
  // False when the key is empty, or already has this value: nothing has changed.
  bool set(std::wstring_view key, std::wstring_view value);
  std::string bytes() const;

 private:
  std::vector<std::string> lines_;  // with their ends
  struct Entry {
    std::size_t line = 0;
    std::wstring value;
  };
  std::map<std::wstring, Entry, std::less<>> entries_;  // by folded key
};

}  // namespace kiv
