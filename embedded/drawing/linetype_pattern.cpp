#include "embedded/drawing/drawing.h"

namespace cad {

base::Status Drawing::setDashes(RecordId linetype, std::span<const double> dashes) {
  constexpr std::size_t kMostDashes = 12;
  if (dashes.size() > kMostDashes) return base::Failure{{}, L"a linetype has at most 12 dashes"};
  if (const base::Status status = materialise(linetype); !status.ok()) return status;
  const base::Result<EditId> edits = storage_->setDashes(records_[linetype], dashes);
  if (!edits.ok()) return edits.failure();
  setEdits(linetype, edits.value());
  return {};
}

}  // namespace cad
