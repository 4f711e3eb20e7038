#include "cli/output_plan.h"

#include <map>
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
  std::map<std::wstring, std::wstring> takenBy;  // target's identity -> the drawing that is saved there
  for (const std::wstring& drawing : drawings) {
    PlannedDrawing planned;
    planned.given = drawing;
    const std::wstring name = base::pathText(base::pathFromText(drawing).filename());
    planned.format = format.value_or(base::saveFormatOf(name).value_or(SaveFormat::kDxf));
    planned.target = outputFolder / base::pathFromText(base::savedName(name, planned.format));

    const std::wstring target = identity(planned.target);
    if (sources.contains(target)) {
      planned.refusal = base::pathText(planned.target) +
                        L" is one of the drawings to convert and would be overwritten; please choose "
                        L"another folder with --out";
    } else if (const auto [first, isNew] = takenBy.try_emplace(target, drawing); !isNew) {
      planned.refusal = first->second + L" is already saved as " + base::pathText(planned.target) +
                        L"; please convert this one into another folder";
    }
    plan.push_back(std::move(planned));
  }
  return plan;
}

}  // namespace kivcli
