#pragma once
// What an operation of the host came to. eOk is the only success; the numbers of the object-access group
// (80 and up) are fixed, since callers compare eOnLockedLayer by number.

namespace Acad {

enum ErrorStatus {
  eOk = 0,
  eNotImplementedYet = 1,
  eNotApplicable = 2,  // the object or the drawing's version has no such property
  eInvalidInput = 3,   // a value outside the property's limits
  eAmbiguousInput = 4,
  eAmbiguousOutput = 5,
  eOutOfMemory = 6,
  eBufferTooSmall = 7,
  eInvalidOpenState = 8,  // what an iterator walks cannot be closed
  eEntityInInactiveLayout = 9,
  eHandleExists = 10,
  eNullHandle = 11,
  eBrokenHandle = 12,
  eUnknownHandle = 13,
  eHandleInUse = 14,
  eNullObjectPointer = 15,
  eNullObjectId = 16,
  eNullBlockName = 17,
  eContainerNotEmpty = 18,
  eNullEntityPointer = 19,
  eIllegalEntityType = 20,
  eKeyNotFound = 21,  // no record of that name
  eDuplicateKey = 22,
  eInvalidIndex = 23,
  eDuplicateIndex = 24,
  eAlreadyInDb = 25,
  eOutOfDisk = 26,
  eDeletedEntry = 27,
  eNegativeValueNotAllowed = 28,
  eInvalidExtents = 29,
  eInvalidAdsName = 30,
  eInvalidSymbolTableName = 31,
  eInvalidKey = 32,
  eWrongObjectType = 33,
  eWrongDatabase = 34,
  eNoDatabase = 35,
  eNoWorkingDatabase = 36,
  eObjectToBeDeleted = 37,
  eUndefinedLineType = 38,
  eFilerError = 39,
  eFileNotFound = 40,
  eNotInDatabase = 41,
  eNotOpenForRead = 76,
  eNotOpenForWrite = 77,
  eNotThatKindOfClass = 78,
  eWasErased = 80,
  ePermanentlyErased = 81,
  eWasOpenForRead = 82,
  eWasOpenForWrite = 83,
  eWasOpenForUndo = 84,
  eWasNotifying = 85,
  eWasOpenForNotify = 86,
  eOnLockedLayer = 87,  // an entity on a locked layer does not open for write
  eMustOpenThruOwner = 88,
  eSubentitiesStillOpen = 89,
  eAtMaxReaders = 90,
  eIsWriteProtected = 91,
  eIsXRefObject = 92,
  eNotAnEntity = 93,
  eHadMultipleReaders = 94,
  eDuplicateRecordName = 95,
  eXRefDependent = 96,
  eSelfReference = 97,
  eMissingSymbolTable = 98,
  eMissingSymbolTableRec = 99,
  eWasNotOpenForWrite = 100,
  eCloseWasNotifying = 101,
  eCannotBeErasedByCaller = 105,
  eLockViolation = 135,  // the document is not locked for writing
  eInvalidLayer = 168    // the current layer cannot be frozen
};

}  // namespace Acad

// The name of a status for messages, "eOnLockedLayer"; never null, valid for ever.
const wchar_t* acadErrorStatusText(Acad::ErrorStatus status);
