#include "engine/selection_set.h"

#include "acdb.h"
#include "adscodes.h"

namespace kiv {

SelectionSet::SelectionSet(const BufferChain& filter) {
  const int answer = filter.isWhole() ? acedSSGet(L"X", nullptr, nullptr, filter.get(), set_) : RTREJ;
  isRefused_ = answer == RTREJ;
  if (answer != RTNORM) return;
  open_ = true;
  Adesk::Int32 length = 0;
  if (acedSSLength(set_, &length) == RTNORM) size_ = static_cast<int>(length);
}

SelectionSet::~SelectionSet() {
  if (open_) acedSSFree(set_);
}

AcDbObjectId SelectionSet::at(int index) const {
  ads_name entity;
  AcDbObjectId id;
  if (acedSSName(set_, index, entity) != RTNORM || acdbGetObjectId(id, entity) != Acad::eOk) {
    return AcDbObjectId::kNull;
  }
  return id;
}

}  // namespace kiv
