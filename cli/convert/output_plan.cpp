#include "cli/convert/output_plan.h"

#include <set>
#include <system_error>
#include <utility>

#include "base/files.h"
#include "base/fold.h"
#include "cli/language/language.h"

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

// Saving would write to another file than the one that is named, wherever that is.
std::wstring whyNotBehindLink(const fs::path& target, const std::wstring& realTarget,
                              const std::wstring& realOutputFolder) {
  std::error_code unknown;
  if (fs::is_symlink(target, unknown))
    return tr(L"%1 is a link to another file, which would be overwritten; please remove it",
              {base::pathText(target)});
  const fs::path below =
      base::pathFromText(realTarget).lexically_relative(base::pathFromText(realOutputFolder));
  if (!below.empty() && *below.begin() != "..") return {};
  return tr(L"%1 is not in the folder of --out: a link leads out of it", {base::pathText(target)});
}

}  // namespace

SaveFormat formatFor(const std::wstring& name, std::optional<SaveFormat> asked) {
  return asked.value_or(base::saveFormatOf(name).value_or(SaveFormat::kDxf));
}

std::vector<PlannedDrawing> planOutputs(const std::vector<ListedDrawing>& drawings,
                                        const fs::path& outputFolder, std::optional<SaveFormat> format) {
  std::set<std::wstring> sources;
  for (const ListedDrawing& drawing : drawings) sources.insert(identity(base::pathFromText(drawing.given)));

  const std::wstring realOutputFolder = identity(outputFolder);
  std::vector<PlannedDrawing> plan;
  base::SavedNames names;
  for (const ListedDrawing& drawing : drawings) {
    PlannedDrawing planned;
    planned.given = drawing.given;
    planned.refusal = drawing.refusal;
    const std::wstring name = base::pathText(base::pathFromText(drawing.given).filename());
    planned.format = formatFor(name, format);
    const fs::path saved = drawing.folder / base::pathFromText(base::savedName(name, planned.format));
    planned.target = outputFolder / saved;

    const std::wstring target = identity(planned.target);
    if (!planned.refusal.empty()) {
      // It takes no name from others.
    } else if (sources.contains(target)) {
      planned.refusal = tr(
          L"%1 is one of the drawings to convert and would be overwritten; please choose another folder with "
          L"--out",
          {base::pathText(planned.target)});
    } else if (std::wstring behindLink = whyNotBehindLink(planned.target, target, realOutputFolder);
               !behindLink.empty()) {
      planned.refusal = std::move(behindLink);
    } else if (const std::wstring holder = names.take(target, drawing.given); !holder.empty()) {
      planned.refusal = tr(L"%1 has the same target, %2; please convert this one into another folder",
                           {holder, base::pathText(planned.target)});
    }
    plan.push_back(std::move(planned));
  }
  return plan;
}

std::vector<PlannedDrawing> partOf(std::vector<PlannedDrawing> plan, const Shard& shard) {
  std::vector<PlannedDrawing> part;
  const auto step = static_cast<std::size_t>(shard.count);
  for (auto at = static_cast<std::size_t>(shard.index - 1); at < plan.size(); at += step) {
    part.push_back(std::move(plan[at]));
  }
  return part;
}

}  // namespace kivcli
