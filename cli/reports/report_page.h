#pragma once
// The page around a report's data.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kivcli {

// Texts are plain; the page escapes them.
struct PageHead {
  std::string language;  // "ja"
  std::string title;
  std::vector<std::pair<std::string, std::string>> facts;  // what, and its value
  std::vector<std::string> remarks;
};

// `data`: JSON with the words of the page, the totals, the settings and a row for each drawing.
std::string reportPage(const PageHead& head, std::string_view data);

}  // namespace kivcli
