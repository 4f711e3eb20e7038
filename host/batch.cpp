#include "host/batch.h"

#include <algorithm>
#include <utility>

#include "acdocman.h"
#include "acedCmdNF.h"
#include "acedads.h"
#include "adscodes.h"
#include "base/paths.h"
#include "host/batch_choice.h"
#include "host/batch_script.h"
#include "host/batch_turns.h"
#include "host/module.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/questions.h"
#include "ui/messages.h"

namespace kiv {
namespace {

bool isReadable(const BatchFile& file) { return file.version >= 1; }

void chooseFormatAndFolder(ConversionContext& context, const DrawingChoice& choice) {
  context.saveFormat = choice.saveFormat;
  context.savedChoice2 = choice.secondChoice;
  context.contextPaths[kSourceFolder] = choice.folder;
  context.contextPaths[kOutputFolder].clear();
}

void addRecords(ConversionContext& context, const std::vector<std::wstring>& names) {
  if (!context.batchFiles) context.batchFiles.emplace();
  const DrawingVersions versions;
  for (const std::wstring& name : names) {
    BatchFile file{name};
    const std::wstring path = fullPathOf(file);
    file.version = versions.of(path);
    if (isReadable(file) && !canStandInScript(path)) {
      printError(L"ﾌｧｲﾙ名に使用できない文字があるため変換できません: " + path);
      file.version = 0;
    }
    context.batchFiles->push_back(std::move(file));
  }
}

// Empty when the person cancels.
std::wstring chooseOutputFolder(const std::wstring& sourceFolder) {
  const std::wstring start = sourceFolder.substr(0, sourceFolder.size() - 1);
  const auto folder = chooseFolder(hostFrame(), {L"変換後のﾌｧｲﾙを保存するﾌｫﾙﾀﾞを選択", start});
  return base::ensureTrailingSeparator(folder.value_or(L""));
}

// The file; empty when it could not be written, which is told.
std::wstring writeScript(const std::vector<BatchFile>& files) {
  std::vector<std::wstring> paths;
  for (const BatchFile& file : files) {
    if (isReadable(file)) paths.push_back(fullPathOf(file));
  }
  std::wstring path = batchScriptFile();
  const base::Status written = writeBatchScript(path, batchScript(paths));
  if (written) return path;
  printError(refusalText(L"ｽｸﾘﾌﾟﾄを書き出せません.", written.failure()));
  return {};
}

// The suite has its scripts started so.
void writeBackUserNumber() {
  resbuf value{};
  if (acedGetVar(L"USERR1", &value) == RTNORM) acedSetVar(L"USERR1", &value);
}

void markPending(std::vector<BatchFile>& files, bool pending) {
  for (BatchFile& file : files) file.isPending = pending && isReadable(file);
}

// The host may begin at once, so the records are ready before.
bool startScript(std::vector<BatchFile>& files, const std::wstring& script) {
  markPending(files, true);
  beginTurns();
  writeBackUserNumber();
  const int started = acedCommandS(RTSTR, L"SCRIPT", RTSTR, script.c_str(), RTNONE);
  acedCommandS(RTNONE);
  if (started == RTNORM) return true;
  endTurns();
  markPending(files, false);
  printError(L"ｽｸﾘﾌﾟﾄを開始できません: " + script);
  return false;
}

bool convertInto(ConversionContext& context, const std::wstring& outputFolder) {
  if (outputFolder.empty()) return false;
  context.contextPaths[kOutputFolder] = outputFolder;
  const std::wstring script = writeScript(*context.batchFiles);
  return !script.empty() && startScript(*context.batchFiles, script);
}

}  // namespace

void startBatch() {
  ConversionContext& context = conversionContext();
  chooseFormatAndFolder(context, {});
  const DrawingChoice choice = chooseBatchDrawings();
  if (choice.names.empty()) return typeIntoHost(kInteractiveCommandText);
  chooseFormatAndFolder(context, choice);
  addRecords(context, choice.names);
  const auto& files = *context.batchFiles;
  const auto count = std::count_if(files.begin(), files.end(), isReadable);
  if (count == 0) return typeIntoHost(kInteractiveCommandText);
  context.batchStartDocument = acDocManagerPtr()->curDocument();
  context.batchRemaining = count;
  const std::wstring folder = chooseOutputFolder(context.contextPaths[kSourceFolder]);
  if (convertInto(context, folder)) return;
  printOnCommandLine(L"\n連続変換を開始していません. KIV_TOACADでﾀﾞｲｱﾛｸﾞに戻ります.");
}

}  // namespace kiv
