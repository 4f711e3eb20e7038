#include "host/batch_targets.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include "base/files.h"
#include "base/fold.h"
#include "engine/problems.h"
#include "host/batch_script.h"
#include "platform/host_messages.h"
#include "platform/host_variables.h"
#include "platform/questions.h"
#include "ui/messages.h"

namespace kiv {
namespace {

// Windows finds no folder by a name that ends in a separator.
std::filesystem::path folderPath(const std::wstring& text) {
  const std::filesystem::path path = base::pathFromText(text);
  return path.has_filename() ? path : path.parent_path();
}

bool isSameFolder(const std::wstring& one, const std::wstring& other) {
  std::error_code error;
  return std::filesystem::equivalent(folderPath(one), folderPath(other), error);
}

}  // namespace

std::wstring refusalOf(const BatchFile& file, const std::wstring& path, base::SaveFormat format,
                       base::SavedNames& saved) {
  if (file.version < 1) return unreadableProblem(path) + L".";
  if (!canStandInScript(path)) return L"ﾌｧｲﾙ名に使用できない文字があるため変換できません: " + path;
  const std::wstring target = base::savedName(file.name, savedFormat(format, path));
  const std::wstring holder = saved.take(target, file.name);
  if (holder.empty()) return {};
  return L"[" + holder + L"]の変換結果と同じ名前(" + target + L")になるため変換できません: " + path;
}

bool overwritesSources(const ConversionContext& context, const std::wstring& folder) {
  if (!isSameFolder(folder, context.contextPaths[kSourceFolder])) return false;
  const auto& files = *context.batchFiles;
  std::set<std::wstring> sources;
  for (const BatchFile& file : files) sources.insert(base::upper(file.name));
  return std::any_of(files.begin(), files.end(), [&](const BatchFile& file) {
    if (file.state != BatchState::kChosen) return false;
    const std::wstring path = context.contextPaths[kSourceFolder] + file.name;
    const base::SaveFormat format = savedFormat(context.saveFormat, path);
    return sources.contains(base::upper(base::savedName(file.name, format)));
  });
}

bool isOverwritingAgreed() {
  const MessageQuestion question{L"変換元の図面に上書きされます. よろしいですか?", kModuleTitle,
                                 Buttons::kYesNo, Icon::kQuestion, true};
  return showMessage(hostFrame(), question) == Answer::kYes;
}

}  // namespace kiv
