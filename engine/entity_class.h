#pragma once
// What sort of entity an object is, as far as conditions and results differ by it.

#include <utility>
#include <vector>

#include "dbmain.h"

namespace kiv {

enum class EntityClass : unsigned char {
  kPlain,
  kText,  // single-line: texts, attribute definitions, attributes
  kMText,
  kDimension,
  kLeader,
  kBlockReference,
};

// Asked once per object, so the answer is kept per class of the host.
class EntityClasses {
 public:
  EntityClass of(const AcDbEntity& entity);

 private:
  std::vector<std::pair<const AcRxClass*, EntityClass>> known_;
};

}  // namespace kiv
