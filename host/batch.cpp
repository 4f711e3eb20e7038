#include "host/batch.h"

#include <algorithm>
#include <utility>

#include "acdocman.h"
#include "base/paths.h"
#include "base/save_format.h"
#include "host/batch_choice.h"
#include "host/batch_script.h"
#include "host/batch_targets.h"
#include "host/batch_turns.h"
#include "host/module.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/questions.h"

namespace kiv {
namespace {

bool isChosen(const BatchFile& file) { return file.state == BatchState::kChosen; }

void keepChoice(ConversionContext& context, const DrawingChoice& choice) {
  context.saveFormat = choice.saveFormat;
  context.savedChoice2 = choice.secondChoice;
  context.contextPaths[kSourceFolder] = choice.folder;
  context.contextPaths[kOutputFolder].clear();
}

void addRecords(ConversionContext& context, const std::vector<std::wstring>& names) {
  if (!context.batchFiles) context.batchFiles.emplace();
  const DrawingVersions versions;
  base::SavedNames saved;
  for (const std::wstring& name : names) {
    const std::wstring path = context.contextPaths[kSourceFolder] + name;
    BatchFile file{name, versions.of(path)};
    const std::wstring refusal = refusalOf(file, path, context.saveFormat, saved);
    if (!refusal.empty()) {
      printError(refusal);
      file.state = BatchState::kFailed;
    }
    context.batchFiles->push_back(std::move(file));
  }
}

// Empty when the person cancels.
std::wstring chooseOutputFolder(const ConversionContext& context) {
  const std::wstring& source = context.contextPaths[kSourceFolder];
  const FolderQuestion question{L"変換後のﾌｧｲﾙを保存するﾌｫﾙﾀﾞを選択", source.substr(0, source.size() - 1)};
  while (const auto chosen = chooseFolder(hostFrame(), question)) {
    std::wstring folder = base::ensureTrailingSeparator(*chosen);
    if (!overwritesSources(context, folder) || isOverwritingAgreed()) return folder;
  }
  return {};
}

// The host may begin at once, so the records are ready before.
bool startBatchScript(ConversionContext& context) {
  std::vector<BatchFile*> files;
  std::vector<std::wstring> paths;
  for (BatchFile& file : *context.batchFiles) {
    if (!isChosen(file)) continue;
    files.push_back(&file);
    paths.push_back(context.contextPaths[kSourceFolder] + file.name);
  }
  const std::wstring script = batchScript(paths);
  for (BatchFile* const file : files) file->state = BatchState::kPending;
  beginBatch();
  if (startScript(script)) return true;
  abandonBatch();
  for (BatchFile* const file : files) file->state = BatchState::kChosen;
  return false;
}

// Without a script conversions stay in place.
bool startInto(ConversionContext& context, const std::wstring& outputFolder) {
  if (outputFolder.empty()) return false;
  context.contextPaths[kOutputFolder] = outputFolder;
  const bool isStarted = startBatchScript(context);
  if (!isStarted) context.contextPaths[kOutputFolder].clear();
  return isStarted;
}

}  // namespace

void startBatch() {
  ConversionContext& context = conversionContext();
  keepChoice(context, {});
  const DrawingChoice choice = chooseBatchDrawings();
  if (choice.names.empty()) return typeIntoHost(kInteractiveCommandText);
  keepChoice(context, choice);
  addRecords(context, choice.names);
  const auto& files = *context.batchFiles;
  const auto count = std::count_if(files.begin(), files.end(), isChosen);
  if (count == 0) return typeIntoHost(kInteractiveCommandText);
  context.batchStartDocument = acDocManagerPtr()->curDocument();
  context.batchRemaining = count;
  if (startInto(context, chooseOutputFolder(context))) return;
  printOnCommandLine(L"\n連続変換を開始していません. KIV_TOACADでﾀﾞｲｱﾛｸﾞに戻ります.");
}

}  // namespace kiv
