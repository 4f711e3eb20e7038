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

// The names that the drawing's file may get.
std::vector<fs::path> targetsOf(PlannedDrawing planned) {
  std::vector<fs::path> targets = {planned.target};
  if (planned.keepsUnknownFormat) {
    setFormat(planned, SaveFormat::kDwg);
    targets.push_back(planned.target);
  }
  return targets;
}

// What all the drawings of a plan must not get into each other's way with.
struct Places {
  std::set<std::wstring> sources;
  std::wstring realOutputFolder;
  base::SavedNames names;

  // Empty: the target is the drawing's from now on.
  std::wstring refusalOf(const fs::path& path, const std::wstring& given);
};

std::wstring Places::refusalOf(const fs::path& path, const std::wstring& given) {
  const std::wstring target = identity(path);
  if (sources.contains(target)) {
    return tr(
        L"%1 is one of the drawings to convert and would be overwritten; please choose another folder with "
        L"--out",
        {base::pathText(path)});
  }
  if (std::wstring behindLink = whyNotBehindLink(path, target, realOutputFolder); !behindLink.empty())
    return behindLink;
  const std::wstring holder = names.take(target, given);
  if (holder.empty()) return {};
  return tr(L"%1 has the same target, %2; please convert this one into another folder",
            {holder, base::pathText(path)});
}

}  // namespace

PlannedDrawing planOutput(const ListedDrawing& drawing, const fs::path& folder,
                          std::optional<SaveFormat> asked) {
  PlannedDrawing planned;
  planned.given = drawing.given;
  planned.refusal = drawing.refusal;
  planned.target = folder / base::pathFromText(drawing.given).filename();
  const auto own = asked ? asked : base::saveFormatOfFile(base::pathFromText(drawing.given));
  planned.keepsUnknownFormat = !own;
  setFormat(planned, own.value_or(SaveFormat::kDxf));
  return planned;
}

void setFormat(PlannedDrawing& planned, SaveFormat format) {
  planned.format = format;
  const std::wstring name = base::pathText(base::pathFromText(planned.given).filename());
  planned.target.replace_filename(base::pathFromText(base::savedName(name, format)));
}

std::vector<PlannedDrawing> planOutputs(const std::vector<ListedDrawing>& drawings,
                                        const fs::path& outputFolder, std::optional<SaveFormat> format) {
  Places places{{}, identity(outputFolder), {}};
  for (const ListedDrawing& drawing : drawings)
    places.sources.insert(identity(base::pathFromText(drawing.given)));

  std::vector<PlannedDrawing> plan;
  for (const ListedDrawing& drawing : drawings) {
    PlannedDrawing planned = planOutput(drawing, outputFolder / drawing.folder, format);
    for (const fs::path& target : targetsOf(planned)) {
      if (!planned.refusal.empty()) break;  // it takes no name from others
      planned.refusal = places.refusalOf(target, drawing.given);
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
