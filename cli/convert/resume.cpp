#include "cli/convert/resume.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

#include "base/files.h"

namespace kivcli {

namespace fs = std::filesystem;

namespace {

// A power cut may leave a file of the right size in which the beginning or the end was never written. Those
// of DWG drawings may well be filled up with zeros.
bool isWritten(const PlannedDrawing& drawing) {
  constexpr std::streamoff kSample = 64;
  std::ifstream stream(drawing.target, std::ios::binary | std::ios::ate);
  const std::streamoff size = stream.tellg();
  const bool hasEnd = drawing.format == SaveFormat::kDxf;
  for (const std::streamoff at :
       {std::streamoff(0), hasEnd ? std::max<std::streamoff>(0, size - kSample) : 0}) {
    std::array<char, kSample> bytes{};
    stream.clear();
    stream.seekg(at).read(bytes.data(), bytes.size());
    if (std::ranges::all_of(bytes, [](char byte) { return byte == 0; })) return false;
  }
  return true;
}

}  // namespace

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
  return !error && converted > drawn && converted > rules_ && isWritten(drawing);
}

void leaveForResume(const PlannedDrawing& drawing) {
  std::error_code error;
  const auto drawn = fs::last_write_time(base::pathFromText(drawing.given), error);
  if (!error) fs::last_write_time(drawing.target, drawn, error);
}

}  // namespace kivcli
