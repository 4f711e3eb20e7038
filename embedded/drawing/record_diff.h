#pragma once
// What differs between a record of one drawing and a record of another.

#include <vector>

#include "embedded/drawing/drawing_diff.h"

namespace cad {

class RecordComparison {
 public:
  // Both drawings must outlive it. `byHandle`: a handle means the same object in both.
  RecordComparison(const Drawing& before, const Drawing& after, bool byHandle)
      : before_(before), after_(after), byHandle_(byHandle) {}

  // True: certainly; false says nothing.
  bool holdSame(RecordId one, RecordId other) const;
  std::vector<ValueChange> changes(RecordId one, RecordId other) const;
  // Of dimensions: whether their blocks show the same, whatever handles their entities have.
  bool showSame(RecordId one, RecordId other) const;

 private:
  void addProperties(RecordId one, RecordId other, std::vector<ValueChange>& changes) const;
  void addLooks(RecordId one, RecordId other, std::vector<ValueChange>& changes) const;
  void addVariables(RecordId one, RecordId other, std::vector<ValueChange>& changes) const;
  void addGeometry(RecordId one, RecordId other, std::vector<ValueChange>& changes) const;
  void addOtherData(RecordId one, RecordId other, std::vector<ValueChange>& changes) const;

  const Drawing& before_;
  const Drawing& after_;
  bool byHandle_;
};

}  // namespace cad
