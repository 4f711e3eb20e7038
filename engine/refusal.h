#pragma once
// Why the host refused, as far as a person is told.

#include "acadstrc.h"
#include "engine/run_interfaces.h"

namespace kiv {

inline Refusal refusalOf(Acad::ErrorStatus status) {
  switch (status) {
    case Acad::eKeyNotFound:
    case Acad::eUndefinedLineType:
    case Acad::eNullObjectId:
      return Refusal::kNoSuchName;
    case Acad::eNotApplicable:
      return Refusal::kNotInThisVersion;
    case Acad::eInvalidInput:
      return Refusal::kBadValue;
    default:
      return Refusal::kOther;
  }
}

}  // namespace kiv
