#pragma once
// Documents: the drawings that are open.

#include "AdAChar.h"
#include "acadstrc.h"
#include "rxclass.h"
#include "rxobject.h"

class AcDbDatabase;

namespace AcAp {

// How a document is held. Reading needs no lock; writing needs one of the writing kinds.
enum DocLockMode {
  kNone = 0x00,
  kAutoWrite = 0x01,
  kNotLocked = 0x02,
  kWrite = 0x04,
  kProtectedAutoWrite = 0x14,
  kRead = 0x20,
  kXWrite = 0x40
};

}  // namespace AcAp

class AcApDocument : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocument);
  virtual const ACHAR* fileName() const = 0;  // the full path; of a drawing never saved its name alone
  virtual const ACHAR* docTitle() const = 0;
  virtual AcDbDatabase* database() const = 0;
  virtual bool isReadOnly() const = 0;
  virtual bool isQuiescent() const = 0;  // no command is running in it
};

class AcApDocumentIterator {
 public:
  virtual ~AcApDocumentIterator() = default;
  virtual bool done() const = 0;
  virtual void step() = 0;
  virtual AcApDocument* document() = 0;
};

class AcApDocManager : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocManager);
  virtual AcApDocument* curDocument() const = 0;
  virtual AcApDocument* mdiActiveDocument() const = 0;
  virtual AcApDocument* document(const AcDbDatabase* database) const = 0;  // NULL when none has it
  virtual int documentCount() const = 0;
  virtual AcApDocumentIterator* newAcApDocumentIterator() = 0;  // the caller deletes it
  virtual Acad::ErrorStatus activateDocument(AcApDocument* document, bool passScript = false) = 0;
  virtual Acad::ErrorStatus setCurDocument(AcApDocument* document) = 0;
  virtual Acad::ErrorStatus appContextOpenDocument(const ACHAR* path) = 0;
  // Discards unsaved changes. The active document closes when the running commands have ended.
  virtual Acad::ErrorStatus closeDocument(AcApDocument* document) = 0;
  // Holds a document for code that no command of it runs; each lock needs its own unlockDocument(). A running
  // command holds the current document by itself. eInvalidInput: no such document, or nothing to unlock.
  virtual Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                         const ACHAR* globalCommand = nullptr,
                                         const ACHAR* localCommand = nullptr, bool prompt = true) = 0;
  virtual Acad::ErrorStatus unlockDocument(AcApDocument* document) = 0;
  // Queues typed text for a document; it runs, in the order sent, when no command is running. A host may
  // suspend the command that asks for `activate` until its document is active again: whatever must be done is
  // done before the call.
  virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                bool activate = true, bool wrapUpInactive = false,
                                                bool echo = true) = 0;
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
