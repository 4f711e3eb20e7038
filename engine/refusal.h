#pragma once
// Why the host refused, as far as a person is told.

#include "acadstrc.h"
#include "engine/run_interfaces.h"

namespace kiv {

inline RefusalReason refusalOf(Acad::ErrorStatus status) {
  switch (status) {
    case Acad::eKeyNotFound:
    case Acad::eUndefinedLineType:
    case Acad::eNullObjectId:
      return RefusalReason::kNoSuchName;
    case Acad::eNotApplicable:
      return RefusalReason::kNotInThisVersion;
    case Acad::eInvalidInput:
      return RefusalReason::kBadValue;
    case Acad::eNotThatKindOfClass:
      return RefusalReason::kNotForObject;
    default:
      return RefusalReason::kOther;
  }
}

}  // namespace kiv
