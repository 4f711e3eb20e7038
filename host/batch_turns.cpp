#include "host/batch_turns.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "aced.h"
#include "base/files.h"
#include "base/fold.h"
#include "engine/problems.h"
#include "host/conversion_log.h"
#include "host/module.h"
#include "platform/host_documents.h"
#include "platform/host_output.h"
#include "platform/host_variables.h"

namespace kiv {
namespace {

using Files = std::vector<BatchFile>;

bool isPending(const BatchFile& file) { return file.state == BatchState::kPending; }

std::wstring fullPathOf(const BatchFile& file) {
  return conversionContext().contextPaths[kSourceFolder] + file.name;
}

// --- The script goes on

// A host that does not tell runs no command but the script's while a batch is under way.
bool isScriptActive() {
  constexpr int kScript = 4;
  return (integerVariable(L"CMDACTIVE").value_or(kScript) & kScript) != 0;
}

// A failure suspends the script. One that the person meets in a suspended script's pause resumes nothing, and
// what the person has cancelled stays so.
class OpenWatch : public AcEditorReactor {
 public:
  OpenWatch() : openBefore_(openDocuments()) {
    if (AcEditor* const editor = acedEditor) editor->addReactor(this);
  }
  ~OpenWatch() override {
    if (AcEditor* const editor = acedEditor) editor->removeReactor(this);
  }
  OpenWatch(const OpenWatch&) = delete;
  OpenWatch& operator=(const OpenWatch&) = delete;

  void commandWillStart(const ACHAR* name) override {
    guarded([&] {
      if (isNamed(name, L"SCRIPT")) ++scripts_;
      isScripts_ = isNamed(name, L"OPEN") && isScriptActive() && !isReplaced();
      if (isScripts_) openBefore_ = openDocuments();
    });
  }
  void commandFailed(const ACHAR* name) override {
    guarded([&] {
      if (isNamed(name, L"OPEN") && std::exchange(isScripts_, false)) sendToCurrentDocument(L"RESUME\n");
    });
  }

  // The first script is the batch's. Another takes its place, and has no drawing's turn.
  bool isReplaced() const { return scripts_ > 1; }

  // By the script's newest OPEN. A drawing that somebody has opened otherwise is nobody's but theirs.
  bool hasOpened(const AcApDocument* document) const {
    return std::find(openBefore_.begin(), openBefore_.end(), document) == openBefore_.end();
  }

 private:
  static bool isNamed(const ACHAR* name, std::wstring_view command) {
    return name != nullptr && base::equalFolded(name, command);
  }

  int scripts_ = 0;
  bool isScripts_ = false;
  std::vector<const AcApDocument*> openBefore_;  // to be compared only: they may be closed
};

// Not a static object: detaching the library would remove it from a host that may be gone.
OpenWatch* theWatch = nullptr;

// --- The records

void tellUnopened(BatchFile& file) {
  file.state = BatchState::kFailed;
  const std::wstring path = fullPathOf(file);
  const std::wstring problem = unreadableProblem(path);
  printError(problem + L".");
  ConversionLog log(path);
  log.addMessage(problem);
  // As after a run, the command line says nothing of it: the log never disturbs a conversion.
  static_cast<void>(log.writeEntry());
}

// The host may write a path in another way than it was given.
bool isSameFile(const AcApDocument& document, const BatchFile& file) {
  std::error_code error;
  return std::filesystem::equivalent(base::pathFromText(document.fileName()),
                                     base::pathFromText(fullPathOf(file)), error);
}

// The first pending record of the current document; the end when there is none.
Files::iterator findCurrent(Files& files) {
  const AcApDocument* const document = acDocManagerPtr()->curDocument();
  if (document == nullptr || !theWatch->hasOpened(document)) return files.end();
  const auto byName = std::find_if(files.begin(), files.end(), [&](const BatchFile& file) {
    return isPending(file) && isDocumentOf(*document, fullPathOf(file));
  });
  if (byName != files.end()) return byName;
  return std::find_if(files.begin(), files.end(),
                      [&](const BatchFile& file) { return isPending(file) && isSameFile(*document, file); });
}

}  // namespace

void beginBatch() {
  abandonBatch();
  theWatch = new OpenWatch;
}

bool isBatchUnderWay() {
  const auto& files = conversionContext().batchFiles;
  return theWatch != nullptr && !theWatch->isReplaced() && files &&
         std::any_of(files->begin(), files->end(), isPending);
}

bool isScriptsTurn() { return isBatchUnderWay() && isScriptActive(); }

BatchFile* takeTurn() {
  if (!isBatchUnderWay()) return nullptr;
  Files& files = *conversionContext().batchFiles;
  const auto own = findCurrent(files);
  const auto next = std::find_if(files.begin(), files.end(), isPending);
  const auto end = own != files.end() ? own : std::next(next);
  for (auto each = next; each != end; ++each) {
    if (isPending(*each)) tellUnopened(*each);
  }
  if (own == files.end()) return nullptr;
  own->state = BatchState::kFailed;
  return &*own;
}

void finishTurn() {
  if (isBatchUnderWay()) return;
  abandonBatch();
  AcApDocument* const start = conversionContext().batchStartDocument;
  if (start == nullptr) return;
  AcApDocManager* const documents = acDocManagerPtr();
  AcApDocument* const document = isOpen(start) ? start : documents->curDocument();
  documents->sendStringToExecute(document, kInteractiveCommandText, true, false, true);
}

void abandonBatch() { delete std::exchange(theWatch, nullptr); }

}  // namespace kiv
