#pragma once
// The CVT file of a batch and the text search lists that it names, each of which every drawing reads anew.

#include <filesystem>
#include <map>
#include <string>

#include "cli/convert/file_stamp.h"

namespace kivcli {

class RuleFiles {
 public:
  explicit RuleFiles(const std::filesystem::path& specification);  // as they stand now

  // Whether they are still the same, lists that were missing included.
  bool areUnchanged() const { return stamps() == stamps_; }

 private:
  std::map<std::filesystem::path, FileStamp> stamps() const;

  std::filesystem::path specification_;
  std::wstring texts_;  // what the CVT file holds, folded, read in each of its encodings
  std::map<std::filesystem::path, FileStamp> stamps_;
};

}  // namespace kivcli
