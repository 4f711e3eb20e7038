#pragma once
// The part of the module's automation entry that deals with specifications as files: reading, checking and
// writing them. What host/automation.h says of texts and arrays holds here, too.

#include "siblings/common/export.h"

extern "C" {

struct KivDiagnostic {
  int number;             // numbered reasons of the specification reader
  int line;               // 1-based; 0: the whole file
  int dropped;            // 1: the line adds nothing; 0: a warning, the reader keeps what it makes of it
  const wchar_t* reason;  // for a person
  const wchar_t* text;    // the line as read
};

struct KivSpecificationReport {
  int usable;              // 0: not a conversion specification, or unreadable; `failure` says why
  const wchar_t* failure;  // empty when usable
  int settings;            // of the five rule sections
  int entries;             // of the five list sections
  int changes;             // settings and entries that can change a drawing at all
  int diagnosticCount;
  const KivDiagnostic* diagnostics;  // by line
};

// Reads a CVT file and tells what the reader makes of it. Returns 1, or 0 for a null pointer.
KIV_EXPORT int dll_kiv_checkSpecification(const wchar_t* path, KivSpecificationReport* report);
using KivCheckSpecification = int (*)(const wchar_t*, KivSpecificationReport*);

// The names of a drawing's layers, linetypes and text styles, in this order.
struct KivNames {
  int count;
  const wchar_t* const* names;
};
struct KivDrawingNames {
  const wchar_t* drawing;  // as a person calls it
  KivNames has[3];         // in its tables
  KivNames used[3];        // by its objects
};

// The same with warnings of the names that the specification expects of these drawings in vain.
KIV_EXPORT int dll_kiv_checkSpecificationFor(const wchar_t* path, const KivDrawingNames* drawings, int count,
                                             KivSpecificationReport* report);
using KivCheckSpecificationFor = int (*)(const wchar_t*, const KivDrawingNames*, int,
                                         KivSpecificationReport*);

enum KivFormatEnd {
  kKivInForm = 0,     // the file is byte for byte what the module writes
  kKivFormatted = 1,  // it was not; written when a target was given
  kKivLinesLost = 2,  // lines that the module does not write would be lost; nothing written
  kKivFormatFailed = 3,
};

// Texts are never null.
struct KivFormatReport {
  int end;                           // KivFormatEnd
  const wchar_t* failure;            // of kKivFormatFailed, else empty
  int diagnosticCount;               // of kKivLinesLost: the lines
  const KivDiagnostic* diagnostics;  // by line
};

// Writes the specification of a file as the module writes one, to `target` (full path; null or empty: nothing
// is written). What the reader keeps stays as it is. `drop`: 1 when lines may be lost that do nothing.
// Returns 1, or 0 for a null path or report.
KIV_EXPORT int dll_kiv_formatSpecification(const wchar_t* path, const wchar_t* target, int drop,
                                           KivFormatReport* report);
using KivFormatSpecification = int (*)(const wchar_t*, const wchar_t*, int, KivFormatReport*);

// Parts of a specification in the numbers of sections and kinds of items; values as a file has them.
struct KivItem {
  int kind;
  int inverted;             // conditions only
  const wchar_t* variable;  // the dimension variable's name, for that kind
  const wchar_t* value;
};
struct KivSetting {
  int section;
  int conditionCount;
  const KivItem* conditions;
  int resultCount;
  const KivItem* results;
};
// Fields as the editor has them: a linetype before its file.
struct KivEntry {
  int section;
  int fieldCount;
  const wchar_t* const* fields;
};
struct KivSpecification {
  const wchar_t* remark;
  int settingCount;
  const KivSetting* settings;  // each section's in their order
  int entryCount;
  const KivEntry* entries;
};

// Writes a CVT file. Returns an empty text, or why not: an item or entry that its section does not take,
// characters that such files cannot hold, a file that cannot be made. Nothing is written then.
KIV_EXPORT const wchar_t* dll_kiv_writeSpecification(const KivSpecification* specification,
                                                     const wchar_t* path);
using KivWriteSpecification = const wchar_t* (*)(const KivSpecification*, const wchar_t*);

// Writes a text search list; the same.
KIV_EXPORT const wchar_t* dll_kiv_writeTextList(const KivNames* texts, const wchar_t* path);
using KivWriteTextList = const wchar_t* (*)(const KivNames*, const wchar_t*);

}  // extern "C"
