#include "engine/host_access.h"

#include "acdb.h"
#include "adscodes.h"
#include "base/fold.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

namespace kiv {
BufferChain& BufferChain::append(resbuf* piece) {
  if (piece == nullptr) {
    isWhole_ = false;
    return *this;
  }
  (tail_ != nullptr ? tail_->rbnext : head_) = piece;
  tail_ = piece;
  return *this;
}

BufferChain& BufferChain::text(int type, const std::wstring& value) {
  return append(acutBuildList(type, value.c_str(), RTNONE));
}

BufferChain& BufferChain::integer(int type, int value) { return append(acutBuildList(type, value, RTNONE)); }

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

AcDbObjectId findInTable(AcDbObjectId table, const std::wstring& name) {
  AcDbObjectPointer<AcDbSymbolTable> opened(table, AcDb::kForRead);
  AcDbObjectId id;
  if (opened.openStatus() != Acad::eOk || opened->getIdAt(name.c_str(), id) != Acad::eOk) {
    return AcDbObjectId::kNull;
  }
  return id;
}

std::wstring recordName(AcDbObjectId id) {
  AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
  AcString name;
  if (record.openStatus() != Acad::eOk || record->getName(name) != Acad::eOk) return {};
  return name.constPtr();
}

const SymbolNames::Names& SymbolNames::of(AcDbObjectId id) {
  const auto known = names_.find(id.asOldId());
  if (known != names_.end()) return known->second;
  // Not kept: what does not open now may open later.
  static const Names nothing;
  const std::wstring name = recordName(id);
  if (name.empty()) return nothing;
  return names_.try_emplace(id.asOldId(), Names{name, base::upper(name)}).first->second;
}

}  // namespace kiv
