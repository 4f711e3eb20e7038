#pragma once
// The embedded host as our own programs see it: start it, load modules, open drawings, run
// commands, and show what they do. What a drawing looks like is told in embedded/graphics/scene.h. One per
// process; everything runs on the thread that started it.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "embedded/drawing/geometry.h"
#include "embedded/drawing/record.h"

namespace cad {

class Drawing;
struct HostState;
struct Scene;

// The outcome of the newest SAVEAS or QSAVE.
struct SaveReport {
  std::filesystem::path path;
  base::Status status;
};

// An open drawing's document, as it is when it is asked for.
struct DocumentInfo {
  int number = 0;              // above 0, its own as long as the host runs
  std::filesystem::path path;  // empty when it was never saved
  std::wstring name;           // the file's, without its folder
  std::uint64_t revision = 0;  // another one after each change
  bool isModified = false;
  bool isReadOnly = false;
};

// What the status bar's meter shows. A cleared meter has an empty label and most == least.
struct Meter {
  std::wstring label;
  int least = 0, most = 0, position = 0;
};

// How far a script has come. It is told that it runs when it is started or resumed and at each of its OPEN
// commands.
struct ScriptProgress {
  enum class State { kRunning, kSuspended, kEnded };
  State state = State::kRunning;
  int drawing = 0;    // under way, from 1; 0 before the first
  int drawings = 0;   // how many drawings the script opens; 0: none
  std::wstring name;  // the file's, without its folder
};

// One event for acedGrRead and acedEntSel: its kind (2 key, 3 pick, 5 drag) and the key or the point.
struct InputEvent {
  int kind = 2;
  int key = 0;            // 13 Enter, 32 blank, 27 or 3 cancel
  double x = 0, y = 0;    // drawing units
  double pickRadius = 0;  // how far from the point an entity may lie to be picked, drawing units
};

class Host {
 public:
  static Host& instance();

  // Makes the start document "Drawing1.dwg" current. A second start does nothing.
  void start();
  // Sends kQuitMsg, unloads the modules, closes every document without saving.
  void stop();

  // The drawing becomes current; one that is open already is only made current.
  base::Status openDocument(const std::filesystem::path& path);
  // The current document; unsaved changes are lost.
  base::Status closeDocument();
  Drawing& currentDrawing();
  std::size_t documentCount() const;
  DocumentInfo currentDocument() const;         // number 0 before the start
  std::vector<DocumentInfo> documents() const;  // the most recently current one last
  bool activateDocument(int number);            // false: it is not open

  // Types a text at the command line (a line end is added unless it has one), then runs everything that
  // this has queued: scripts and strings sent to documents. Failure: a command refused or is unknown.
  base::Status execute(std::wstring_view text);
  // A typed command wants more input, which the next text is; until the prompt is cancelled.
  bool hasOpenPrompt() const;
  void cancelPrompt();

  // Receives all text that the host and the modules print. Without one, texts are dropped.
  void setOutput(std::function<void(std::wstring_view)> sink);
  // Where files are looked for, in this order; acedFindFile, ACADPREFIX and the environment value "ACAD" go
  // by it.
  void setSupportPath(std::vector<std::filesystem::path> folders);
  void setMeterObserver(std::function<void(const Meter&)> observer);
  void setScriptObserver(std::function<void(const ScriptProgress&)> observer);
  // Asked by acedUsrBrk, and between the commands of a script, which is suspended then; not right behind an
  // OPEN, so that a drawing that a script has opened is not left alone.
  void setBreakQuery(std::function<bool()> query);
  // Waits for the next input event; without one, or when it has none, acedGrRead returns RTERROR.
  void setInputSource(std::function<std::optional<InputEvent>()> source);
  // A function that the program defines for modules that call it by its name (acedInvoke), the name written
  // as they write it or with other capitals. It gets at its values by acedGetArgs and returns one by
  // acedRetInt or acedRetNil. An empty one takes it away.
  void setFunction(const std::wstring& name, std::function<void()> function);
  // The main frame's window handle, for modules that show dialogs over it.
  void setMainWindow(void* windowHandle);

  // --- What a window needs ----------------------------------------------------------------------------
  // What the current drawing shows. Built anew only when the drawing has changed or another one is current;
  // valid until then.
  const Scene& scene();
  // Told which entity of the current drawing to highlight: the one under the cursor and the one picked
  // while acedEntSel waits, and those of acedRedraw. kNoRecord: none.
  void setHighlightObserver(std::function<void(RecordId)> observer);
  void clearHighlight();
  // True while acedEntSel waits for a point: a click is a pick then.
  bool isPicking() const;
  // To be called with each message (MSG*) before it is dispatched: true when a module has taken it.
  bool filterMessage(void* message);

  base::Status loadModule(const std::filesystem::path& path);
  base::Status unloadModule(std::wstring_view name);
  // An exported function of a loaded module; null when the module or the function is missing.
  void* moduleSymbol(std::wstring_view module, const char* symbol);

  // For programs without a window; see base/temporary_files.h. The host writes the files, so it removes them.
  void removeTemporaryFilesOnSignals();
  void setWaitingForDisk(bool waits);  // of drawings that are saved; see base/disk.h

  void beginRun();  // forgets the last save and the remarks that nobody took
  // Empty when nothing was saved since the last beginRun().
  const std::optional<SaveReport>& lastSave() const;
  // What functions of the interface have said since the last call, beyond the status that they return, and
  // why -INSERT refused a block.
  std::vector<base::Failure> takeRemarks();

 private:
  friend HostState& hostState();
  Host();
  ~Host();
  std::unique_ptr<HostState> state_;
};

// The folder of the running program.
std::filesystem::path programFolder();

// The support path of our programs: the folder of the specifications in use, then those that the variable
// KIV_SUPPORT_PATH of the process's environment names, separated by ";", then the folder "support" beside the
// program.
std::vector<std::filesystem::path> usualSupportPath(const std::filesystem::path& specifications);

// The command that a typed line begins with, upper-case and without the marks before it; empty for an empty
// line.
std::wstring commandName(std::wstring_view line);

// "x,y" or "x,y,z", drawing units.
std::optional<Point> typedPoint(std::wstring_view text);

}  // namespace cad
