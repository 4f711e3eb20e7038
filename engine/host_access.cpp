#include "engine/host_access.h"

#include <cmath>
#include <limits>

#include "acdb.h"
#include "adscodes.h"
#include "base/fold.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

namespace kiv {
namespace {

bool isShort(double value) {
  using Limits = std::numeric_limits<short>;
  return std::trunc(value) == value && value >= Limits::min() && value <= Limits::max();
}

}  // namespace

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

std::optional<std::wstring> textVariable(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM || value.restype != RTSTR || value.resval.rstring == nullptr) {
    return std::nullopt;
  }
  std::wstring text = value.resval.rstring;
  acutDelString(value.resval.rstring);
  return text;
}

std::optional<int> integerVariable(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM) return std::nullopt;
  if (value.restype == RTSHORT) return value.resval.rint;
  if (value.restype == RTLONG) return value.resval.rlong;
  if (value.restype == RTSTR) acutDelString(value.resval.rstring);
  return std::nullopt;
}

bool setTextVariable(const wchar_t* name, const std::wstring& value) {
  std::wstring text = value;
  resbuf buffer{};
  buffer.restype = RTSTR;
  buffer.resval.rstring = text.data();
  return acedSetVar(name, &buffer) == RTNORM;
}

bool setNumberVariable(const wchar_t* name, short type, double value) {
  resbuf buffer{};
  buffer.restype = type;
  if (type == RTREAL) {
    buffer.resval.rreal = value;
  } else if (type == RTSHORT && isShort(value)) {
    buffer.resval.rint = static_cast<short>(value);
  } else {
    return false;
  }
  return acedSetVar(name, &buffer) == RTNORM;
}

short variableType(const wchar_t* name) {
  resbuf value{};
  if (acedGetVar(name, &value) != RTNORM) return RTNONE;
  if (value.restype == RTSTR) acutDelString(value.resval.rstring);
  return value.restype;
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
