#include "cli/convert/resume.h"

#include <algorithm>
#include <system_error>

#include "base/files.h"

namespace kivcli {

namespace fs = std::filesystem;

EarlierRun::EarlierRun(const fs::path& specification) {
  std::error_code error;
  rules_ = fs::last_write_time(specification, error);
  const fs::path folder = specification.parent_path();
  for (const std::wstring& name : base::filesWithExtension(base::pathText(folder), L".list")) {
    const auto modified = fs::last_write_time(folder / base::pathFromText(name), error);
    if (!error) rules_ = std::max(rules_, modified);
  }
}

bool EarlierRun::hasDone(const PlannedDrawing& drawing) const {
  std::error_code error;
  if (!drawing.refusal.empty() || !fs::is_regular_file(drawing.target, error)) return false;
  const auto converted = fs::last_write_time(drawing.target, error);
  if (error) return false;
  const auto drawn = fs::last_write_time(base::pathFromText(drawing.given), error);
  return !error && converted > drawn && converted > rules_;
}

void leaveForResume(const PlannedDrawing& drawing) {
  std::error_code error;
  const auto drawn = fs::last_write_time(base::pathFromText(drawing.given), error);
  if (!error) fs::last_write_time(drawing.target, drawn, error);
}

}  // namespace kivcli
