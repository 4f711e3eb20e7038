#include "cli/convert/file_stamp.h"

#include <system_error>

namespace kivcli {

namespace fs = std::filesystem;

FileStamp stampOf(const fs::path& file) {
  std::error_code error;
  FileStamp stamp;
  if (!fs::is_regular_file(file, error)) return stamp;
  stamp.modified = fs::last_write_time(file, error);
  stamp.size = fs::file_size(file, error);
  return stamp;
}

}  // namespace kivcli
