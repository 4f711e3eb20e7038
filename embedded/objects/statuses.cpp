#include "acadstrc.h"

const wchar_t* acadErrorStatusText(Acad::ErrorStatus status) {
  switch (status) {
#define STATUS_NAME(name) \
  case Acad::name:        \
    return L## #name;
    STATUS_NAME(eOk)
    STATUS_NAME(eNotApplicable)
    STATUS_NAME(eInvalidInput)
    STATUS_NAME(eNullObjectPointer)
    STATUS_NAME(eNullObjectId)
    STATUS_NAME(eUnknownHandle)
    STATUS_NAME(eKeyNotFound)
    STATUS_NAME(eInvalidIndex)
    STATUS_NAME(eAlreadyInDb)
    STATUS_NAME(eDeletedEntry)
    STATUS_NAME(eInvalidAdsName)
    STATUS_NAME(eInvalidKey)
    STATUS_NAME(eWrongObjectType)
    STATUS_NAME(eWrongDatabase)
    STATUS_NAME(eNoDatabase)
    STATUS_NAME(eUndefinedLineType)
    STATUS_NAME(eFilerError)
    STATUS_NAME(eFileNotFound)
    STATUS_NAME(eNotInDatabase)
    STATUS_NAME(eNotOpenForRead)
    STATUS_NAME(eNotOpenForWrite)
    STATUS_NAME(eNotThatKindOfClass)
    STATUS_NAME(eWasErased)
    STATUS_NAME(eWasOpenForRead)
    STATUS_NAME(eWasOpenForWrite)
    STATUS_NAME(eOnLockedLayer)
    STATUS_NAME(eAtMaxReaders)
    STATUS_NAME(eHadMultipleReaders)
    STATUS_NAME(eDuplicateRecordName)
    STATUS_NAME(eWasNotOpenForWrite)
    STATUS_NAME(eCannotBeErasedByCaller)
    STATUS_NAME(eLockViolation)
    STATUS_NAME(eInvalidLayer)
#undef STATUS_NAME
    default:
      return L"eOther";
  }
}
