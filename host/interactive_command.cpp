// KIV_TOACAD: shows the main dialog, serves its picks while it is up, and does what it was closed for.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>
#include <string>

#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "base/clock.h"
#include "base/paths.h"
#include "host/batch.h"
#include "host/batch_report.h"
#include "host/batch_script.h"
#include "host/batch_turns.h"
#include "host/module.h"
#include "platform/dialog.h"
#include "platform/entity_pick.h"
#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/paths.h"
#include "platform/questions.h"
#include "platform/screen_scale.h"
#include "platform/settings.h"
#include "ui/main_dialog.h"
#include "ui/messages.h"

namespace kiv {
namespace {

constexpr int kAllTracking = 15;

void beginAnew() {
  ConversionContext& context = conversionContext();
  context.pick.end();
  context.batchStartDocument = nullptr;
  context.batchRemaining = 0;
  writeCommonText(kLogFileKey, L"");
}

// A suspended script would go on by whatever the dialog is closed for.
void giveUpBatch() {
  if (!isBatchUnderWay()) return;
  abandonBatch();
  startScript({});
}

void printReport() {
  ConversionContext& context = conversionContext();
  printBatchReport(context.batchFiles, context.contextPaths[kSourceFolder]);
  giveUpBatch();
  if (context.batchFiles) context.batchFiles->clear();
}

void makeDialog() {
  ConversionContext& context = conversionContext();
  const ResourcesFirst ours(moduleState().extension);
  initScreenScale(hostFrame());  // the host may have been moved to another monitor
  context.dialog =
      std::make_unique<CCnvDlg>(CCnvDlg::Shared{context.pick, context.dialogRect}, findHostFile, hostFrame());
  if (!context.dialog->create(hostFrame())) context.dialog.reset();
}

struct PickTarget {
  PickItem item;
  const wchar_t* name;  // in the prompt
  std::uint32_t mask;
};

// By the code of a pick request, from 1.
constexpr PickTarget kTargets[] = {
    {PickItem::kLayer, L"画層", kPickAll},
    {PickItem::kLinetype, L"線種", kPickAllButBlockReferences},
    {PickItem::kColor, L"色", kPickAllButBlockReferences},
    {PickItem::kTextStyle, L"字体", kPickTexts},
    {PickItem::kTextHeight, L"文字高さ", kPickTexts},
    {PickItem::kTextAngle, L"文字角度", kPickTexts},
    {PickItem::kWidthFactor, L"文字幅高比", kPickTexts},
    {PickItem::kBlock, L"ﾌﾞﾛｯｸ図形", kPickBlockReferences},
    {PickItem::kDimension, L"寸法設定", kPickAll},
    {PickItem::kLineWeight, L"線幅値", kPickAll},
    {PickItem::kTransparency, L"透過性", kPickAll},
    {PickItem::kLinetypeScale, L"線種尺度", kPickAll},
    {PickItem::kDisplay, L"表示", kPickAll},
    {PickItem::kLock, L"ロック", kPickAll},
    {PickItem::kFreeze, L"フリーズ", kPickAll},
    {PickItem::kPlot, L"印刷", kPickAll},
};

constexpr bool inOrder() {
  for (std::size_t i = 0; i < std::size(kTargets); ++i) {
    if (static_cast<std::size_t>(kTargets[i].item) != i + 1) return false;
  }
  return std::size(kTargets) + 1 == static_cast<std::size_t>(PickItem::kEnd);
}
static_assert(inOrder());

// The dialog may have gone while the user was asked for an entity.
void servePick() {
  ConversionContext& context = conversionContext();
  PickHandOver& pick = context.pick;
  if (pick.request <= static_cast<int>(std::size(kTargets))) {
    const PickTarget& target = kTargets[pick.request - 1];
    focusHost();
    pick.values =
        pickEntity(L"\n" + std::wstring(target.name) + L"を指示:", {target.item, target.mask, pick.variable});
  }
  if (context.dialog) return context.dialog->pickCompleted();
  context.pick.end();
}

bool isDialogUp() {
  const CCnvDlg* dialog = conversionContext().dialog.get();
  return dialog != nullptr && dialog->hasWindow() && dialog->window().isShown();
}

// A scripted session whose script has run out: the host has no input to wait for, and never will. What a host
// with a person before it answers is not looked at, or a refusal would cost the person's work.
bool isAbandoned(int waitResult) { return waitResult == RTERROR && areDialogsScripted(); }

void waitForDialog() {
  while (isDialogUp()) {
    int kind = 0;
    resbuf event{};
    const int result = acedGrRead(kAllTracking, &kind, &event);
    if (conversionContext().pick.request >= 1) {
      servePick();
    } else if (isDialogUp() && isAbandoned(result)) {
      conversionContext().dialog->cancel();
    }
  }
}

std::wstring logFile() {
  if (readCommonInteger(kCreateLogKey, 0) != 1) return {};
  const std::wstring folder = readCommonText(kLogFolderKey, L"");
  if (folder.empty()) return {};
  const std::wstring name = base::localTimeText(base::kLogNameFormat);
  // A run without the log that was asked for would say nothing of what it could not convert.
  if (name.empty()) throw std::invalid_argument("the clock shows no local time");
  return base::joinPath(folder, name);
}

void storeOptions() {
  const CCnvDlg& dialog = *conversionContext().dialog;
  const ConversionOptions& options = dialog.options();
  writeCommonInteger(kBlockScopeKey, std::clamp(options.blockScope, 0, 2));
  writeCommonInteger(kIgnoreLocksKey, options.ignoreLocks ? 1 : 0);
  writeCommonInteger(kCreateLogKey, options.createLog ? 1 : 0);
  writeCommonText(kLogFolderKey, options.logFolder.c_str());
  conversionContext().contextPaths[kSpecificationPath] = dialog.specificationFolder() + kWorkFileName;
  writeCommonText(kLogFileKey, logFile().c_str());
}

void convertThisDrawing() {
  ConversionContext& context = conversionContext();
  context.contextPaths[kOutputFolder].clear();
  conversionCommand();
  static_cast<void>(showMessage(hostFrame(), {L"変換を完了しました", kModuleTitle}));
  context.dialog.reset();
  writeCommonText(kLogFileKey, L"");
}

void serveClosedDialog() {
  ConversionContext& context = conversionContext();
  if (!context.dialog) return;
  const Closing closing = context.dialog->closing();
  if (closing == Closing::kCancelled) return context.dialog.reset();
  storeOptions();
  if (closing == Closing::kConvert) return convertThisDrawing();
  startBatch();
}

void runDialog() {
  const ConversionContext& context = conversionContext();
  beginAnew();
  // The end of a batch, and a choice of nothing, send the command again; the dialog is still there, unless
  // its window went meanwhile.
  if (context.dialog) printReport();
  if (context.dialog && context.dialog->hasWindow()) {
    context.dialog->reopen();
  } else {
    makeDialog();
  }
  waitForDialog();
  serveClosedDialog();
}

void interact() {
  if (canShowDialogs()) return runDialog();
  printOnCommandLine(L"\nこのﾎｽﾄではﾀﾞｲｱﾛｸﾞを使用できません.");
}

}  // namespace

void interactiveCommand() { guarded(interact); }

}  // namespace kiv
