#include "cli/output_plan.h"

#include <set>
#include <system_error>

#include "base/files.h"
#include "base/fold.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;

// One text for all the ways in which a file may be named. A path that cannot be looked up stays as it is:
// opening the drawing will tell why.
std::wstring identity(const fs::path& path) {
  std::error_code error;
  // A relative path of which nothing exists would stay relative.
  const fs::path canonical = fs::weakly_canonical(fs::absolute(path, error), error);
  return base::upper(base::pathText(error ? path : canonical));
}

}  // namespace

std::vector<PlannedDrawing> planOutputs(const std::vector<std::wstring>& drawings,
                                        const fs::path& outputFolder, std::optional<SaveFormat> format) {
  std::set<std::wstring> sources;
  for (const std::wstring& drawing : drawings) sources.insert(identity(base::pathFromText(drawing)));

  std::vector<PlannedDrawing> plan;
  base::SavedNames saved;
  for (const std::wstring& drawing : drawings) {
    PlannedDrawing planned;
    planned.given = drawing;
    const std::wstring name = base::pathText(base::pathFromText(drawing).filename());
    planned.format = format.value_or(base::saveFormatOf(name).value_or(SaveFormat::kDxf));
    const std::wstring savedName = base::savedName(name, planned.format);
    planned.target = outputFolder / base::pathFromText(savedName);

    if (sources.contains(identity(planned.target))) {
      planned.refusal = base::pathText(planned.target) +
                        L" is one of the drawings to convert and would be overwritten; please choose "
                        L"another folder with --out";
    } else if (const std::wstring holder = saved.take(savedName, drawing); !holder.empty()) {
      planned.refusal = holder + L" is already saved as " + base::pathText(planned.target) +
                        L"; please convert this one into another folder";
    }
    plan.push_back(std::move(planned));
  }
  return plan;
}

}  // namespace kivcli
