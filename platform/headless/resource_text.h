#pragma once
// The texts of the resource scripts that are linked into this library or program, as they were when it was
// built (cmake/dialog_resources.cmake).

#include <string_view>

namespace kiv::headless {

// Objects with static storage only.
struct ResourceText {
  // UTF-8
  ResourceText(std::string_view scriptText, std::string_view headerText)
      : script(scriptText), header(headerText), next(first) {
    first = this;
  }
  ResourceText(const ResourceText&) = delete;
  ResourceText& operator=(const ResourceText&) = delete;

  const std::string_view script, header;
  const ResourceText* const next;
  static inline const ResourceText* first = nullptr;
};

}  // namespace kiv::headless
