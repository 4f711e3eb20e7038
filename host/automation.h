#pragma once
// The module's automation entry: plain functions that a program which drives the host looks up by name in
// the loaded module. They set what the main dialog sets in interactive use, and tell how the last
// conversion run ended. Everything stays on the host's main thread.
//
// Texts handed in are copied. Texts and arrays handed out belong to the module and stay valid until the
// next call of the same function or the next conversion run, whichever comes first.

#include "engine/run_observer.h"
#include "siblings/common/export.h"

extern "C" {

// Null texts count as empty.
struct KivConversion {
  const wchar_t* specification;  // full path of a CVT file; empty: KIV_TOACAD2 refuses to run
  const wchar_t* outputFolder;   // empty: converted in place, neither saved nor closed
  int saveFormat;                // 0 DWG, 1 DXF, 2 DWT
  int blockScope;                // 0 references, 1 their definitions, 2 both; others are clamped
  int ignoreLocks;               // 1: objects on locked layers are converted too
  const wchar_t* logFile;        // full path, appended to; empty: no log
};

// Sets the conversion context and the options of the following KIV_TOACAD2 runs. The options hold for
// this process only: the user's stored settings are neither read nor changed until they are given up by a
// call with a null pointer, which empties the context. Returns 1, or 0 for a save format out of range.
KIV_EXPORT int dll_kiv_setConversion(const KivConversion* conversion);
using KivSetConversion = int (*)(const KivConversion*);

enum KivRunEnd {
  kKivNeverRun = 0,
  kKivConverted = 1,        // every stage was run; problems may stand in the report all the same
  kKivNoSpecification = 2,  // the context names no specification
  kKivSpecificationUnreadable = 3,
  kKivEmptyDrawing = 4,  // a drawing without entities is neither converted nor saved
};

enum KivNoteReason {
  kKivRefused = 0,           // for a reason that the host did not tell apart
  kKivNoSuchName = 1,        // a layer, linetype, text style or block that the drawing does not have
  kKivNotInThisVersion = 2,  // the property cannot be held by a drawing of this version
  kKivBadValue = 3,          // a value out of limits or not of the property's form
  kKivNotForObject = 4,      // objects of this sort have no such property (a variable of the drawing alone)
  kKivNoSuchFile = 5,        // an entry of a list that names no file, and nothing that the host has itself
};

enum KivRefuser {
  kKivObjects = 0,
  kKivLayers = 1,
  kKivDrawing = 2,  // a dimension variable or a text style of the drawing itself
};

// A result that the host refused, with its reason, which the log does not have.
struct KivNote {
  const wchar_t*
      kind;  // the item's key in a CVT file, a dimension variable's name, or the section of a list's entry
  const wchar_t* value;  // the value that was refused
  int reason;            // KivNoteReason
  int count;             // how many objects or layers refused it
  int refuser;           // KivRefuser
};

struct KivRunReport {
  int runs;                // conversion runs since the module was loaded
  int end;                 // KivRunEnd of the last one
  const wchar_t* drawing;  // full name of the drawing that it worked on
  // The file written; empty: none. A save that was asked for has failed then, the last of the problems says
  // so, and the host knows why.
  const wchar_t* savedPath;
  const wchar_t* logFailure;  // why the log could not be written; empty: it was, or none is wanted
  int problemCount;
  // In the order met, without duplicates: the lines of the log, logged or not, with the reason where one is
  // known; not those that a note tells.
  const wchar_t* const* problems;
  int noteCount;
  const KivNote* notes;
};

// Fills `report`. Returns 1, or 0 for a null pointer.
KIV_EXPORT int dll_kiv_lastRunReport(KivRunReport* report);
using KivLastRunReport = int (*)(KivRunReport*);

// Who is told of everything that the following runs do (see engine/run_observer.h); null: nobody. The record
// is copied. Returns 1, or 0 for one that lacks a function that it must have.
KIV_EXPORT int dll_kiv_observeRuns(const KivRunObserver* observer);
using KivObserveRuns = int (*)(const KivRunObserver*);

}  // extern "C"
