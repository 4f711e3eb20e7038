#pragma once
// Table records that copied entities name: made in the receiving drawing when it does not have them.

#include <string_view>

#include "embedded/drawing/drawing.h"

namespace cad {

class SymbolCopier {
 public:
  SymbolCopier(Drawing& target, const Drawing& source) : target_(target), source_(source) {}

  // A record of the name stays as it is; a new one has the source's values as far as the receiving version
  // can hold them.
  base::Status need(Table table, std::wstring_view name);
  // A value that the receiving drawing cannot hold is left at its default.
  void copyValue(RecordId from, RecordId to, Property property);

 private:
  base::Status copyLayer(RecordId from, RecordId to);
  void copyLinetype(RecordId from, RecordId to);
  bool copySymbol(DashSymbol& symbol);  // its style becomes the receiving drawing's; false: it has none
  void copyTextStyle(RecordId from, RecordId to);

  Drawing& target_;
  const Drawing& source_;
};

}  // namespace cad
