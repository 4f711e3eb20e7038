// What is compared of two records besides their properties.

#include <algorithm>

#include "embedded/drawing/value_texts.h"
#include "embedded/dxf/property_places.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

// Groups in which geometry stands: points, lengths and angles, counts and switches, the normal.
bool isGeometric(int code) {
  return (code >= 10 && code <= 59) || (code >= 70 && code <= 79) || (code >= 90 && code <= 99) ||
         (code >= 210 && code <= 239);
}

// The groups that are told by the properties and dimension variables of a type.
class ToldGroups {
 public:
  ToldGroups(const Record& record, std::string_view type)
      : isStyle_(record.table == Table::kDimStyle || record.table == Table::kLinetype),
        hidesExtended_(type.ends_with("DIMENSION") || type == "LEADER" || type == "TOLERANCE" ||
                       record.table == Table::kTextStyle || record.table == Table::kLayer) {
    for (const PropertyInfo& info : allProperties()) {
      const PropertyPlace* place = findPlace(record.kind, type, info.property);
      if (place == nullptr) continue;
      (isCommon(*place) ? common_ : own_).push_back(place->code);
    }
    if (!common_.empty()) common_.insert(common_.end(), {kTrueColor, kColorName});
    if (isMText(type)) own_.insert(own_.end(), {3, 11, 21, 31});
    isEntity_ = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
  }

  bool hold(const RegionCursor& cursor, const OtherParts& parts) {
    const Group& group = cursor.group();
    if (group.code == 1001) application_ = group.value;
    if (cursor.region() == Region::kExtendedData)
      return hidesExtended_ &&
             (trimmed(application_) == "ACAD" || trimmed(application_) == "AcCmTransparency");
    if (isStyle_ || isIdentity(group.code)) return true;
    if (isReference(group.code) && (!parts.handles || cursor.region() == Region::kApplication)) return true;
    if (cursor.region() != Region::kHead && cursor.region() != Region::kSubclass) return false;
    if (has(common_, group.code) && (cursor.inCommon() || cursor.maybeCommon(group.code))) return true;
    return has(own_, group.code) || (isEntity_ && !parts.geometry && isGeometric(group.code));
  }

 private:
  static bool has(const std::vector<int>& codes, int code) {
    return std::ranges::find(codes, code) != codes.end();
  }
  // Its type, its handle, its owner, and how it is divided.
  bool isIdentity(int code) const {
    return code == 0 || code == 5 || code == 100 || code == 102 || code == 105 || (isEntity_ && code == 330);
  }
  static bool isReference(int code) { return valueType(code) == ValueType::kHandle; }

  std::vector<int> common_, own_;
  std::string_view application_;
  bool isStyle_, hidesExtended_, isEntity_ = false;
};

}  // namespace

std::wstring valueText(const DxfStorage& storage, const Group& group) {
  if (valueType(group.code) == ValueType::kReal) {
    if (const auto value = realValue(group, storage.dialect())) return shortNumberText(*value);
  } else if (valueType(group.code) != ValueType::kText && valueType(group.code) != ValueType::kChunk) {
    if (const auto value = integerValue(group, storage.dialect())) return std::to_wstring(*value);
  }
  return storage.decode(valueType(group.code) == ValueType::kText ? group.value : trimmed(group.value));
}

bool DxfStorage::holdsSame(const Record& record, const RecordStorage& other, const Record& others) const {
  const auto* dxf = dynamic_cast<const DxfStorage*>(&other);
  if (dxf == nullptr || dialect_.binary != dxf->dialect_.binary ||
      dialect_.wideCodes != dxf->dialect_.wideCodes || facts_.version != dxf->facts_.version ||
      facts_.codePage != dxf->facts_.codePage) {
    return false;
  }
  std::string scratch, othersScratch;
  return bytes(record, scratch) == dxf->bytes(others, othersScratch);
}

std::vector<std::wstring> DxfStorage::otherData(const Record& record, const OtherParts& parts) const {
  std::vector<std::wstring> data;
  std::string scratch;
  ToldGroups told(record, typeName(record));
  RegionCursor cursor(bytes(record, scratch), dialect_);
  while (cursor.next()) {
    if (told.hold(cursor, parts)) continue;
    data.push_back(std::to_wstring(cursor.group().code) + L": " + valueText(*this, cursor.group()));
  }
  return data;
}

}  // namespace cad::dxf
