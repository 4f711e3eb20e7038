#include "host/batch_choice.h"

#include "base/paths.h"
#include "engine/host_access.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/questions.h"
#include "platform/settings.h"

namespace kiv {
namespace {

const FilesQuestion kFiles{L"ﾌｧｲﾙを選択", {{L"図面 (*.dwg)", L"*.dwg"}, {L"すべてのﾌｧｲﾙ(*.*)", L"*.*"}}};

// DWG where the host saves it, as one does that does not tell; else its first format.
base::SaveFormat formatOfHost() {
  const std::wstring formats = textVariable(L"SAVEFORMATS").value_or(L"DWG");
  if ((L"," + formats + L",").find(L",DWG,") != std::wstring::npos) return base::SaveFormat::kDwg;
  const std::wstring first = formats.substr(0, formats.find(L','));
  const auto format = base::saveFormatOf(L"." + first);
  if (!format) return base::SaveFormat::kDwg;
  printOnCommandLine(L"\nこのﾎｽﾄはDWG形式で保存できないため, " + first + L"形式で保存します.");
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
