#pragma once
// Names of symbol table records by id, each read from the drawing once.

#include <string>
#include <unordered_map>

#include "dbid.h"

namespace kiv {

class SymbolNames {
 public:
  struct Names {
    std::wstring name;
    std::wstring folded;  // upper-cased
  };
  // Empty names for a null id and for a record that does not open. The reference stays valid.
  const Names& of(AcDbObjectId id);

 private:
  std::unordered_map<Adesk::Int64, Names> names_;
};

}  // namespace kiv
