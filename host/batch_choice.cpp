#include "host/batch_choice.h"

#include <algorithm>

#include "base/paths.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/host_variables.h"
#include "platform/questions.h"
#include "platform/settings.h"

namespace kiv {
namespace {

const FilesQuestion kFiles{L"ﾌｧｲﾙを選択", {{L"図面 (*.dwg)", L"*.dwg"}, {L"すべてのﾌｧｲﾙ(*.*)", L"*.*"}}};

// DWG where the host saves it; else the first that it saves, and DWG, which it will refuse, without any.
base::SaveFormat formatOfHost() {
  const SaveableFormats saveable = saveableFormats();
  const auto first = std::find(saveable.begin(), saveable.end(), true);
  const auto format = base::saveFormat(static_cast<int>(first - saveable.begin()));
  if (!format || *format == base::SaveFormat::kDwg) return base::SaveFormat::kDwg;
  const wchar_t* const name = *format == base::SaveFormat::kDxf ? L"DXF" : L"DWT";
  printOnCommandLine(std::wstring(L"\nこのﾎｽﾄはDWG形式で保存できないため, ") + name + L"形式で保存します.");
  return *format;
}

// The chooser shows one folder at a time; what stands elsewhere cannot be part of the same batch.
DrawingChoice inOneFolder(const std::vector<std::wstring>& paths) {
  DrawingChoice choice;
  for (const std::wstring& path : paths) {
    const base::PathParts parts = base::splitPath(path);
    const std::wstring folder = base::ensureTrailingSeparator(parts.drive + parts.folder);
    if (choice.names.empty()) choice.folder = folder;
    if (base::folderInSystemCase(folder) == base::folderInSystemCase(choice.folder)) {
      choice.names.push_back(parts.name + parts.extension);
    } else {
      printError(L"別のﾌｫﾙﾀﾞの図面は一緒に変換できません: " + path);
    }
  }
  return choice;
}

DrawingChoice chooseInSystemDialog() {
  DrawingChoice choice = inOneFolder(chooseFiles(hostFrame(), kFiles));
  if (!choice.names.empty()) choice.saveFormat = formatOfHost();
  return choice;
}

}  // namespace

DrawingChoice chooseBatchDrawings() {
  if (readCommonInteger(kFileModeKey, 0) != 0) {
    if (auto choice = chooseDrawings(L"変換するﾌｧｲﾙを選択")) return *choice;
  }
  return chooseInSystemDialog();
}

}  // namespace kiv
