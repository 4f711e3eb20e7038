#include "siblings/KivDll/entity_kind.h"

#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "siblings/common/insert_class.h"

namespace kiv {
namespace {

constexpr std::uint32_t kPickOthers = kPickAll & ~(kPickBlockReferences | kPickTexts);

// A dimension's text has these of its own; its width is the style's.
bool dimensionsCarry(PickItem item) {
  return item == PickItem::kTextStyle || item == PickItem::kTextHeight || item == PickItem::kTextAngle;
}

std::uint32_t kindOf(const AcDbEntity& entity, PickItem item) {
  if (isInsertClass(*entity.isA())) return kPickBlockReferences;
  if (entity.isKindOf(AcDbText::desc()) || entity.isKindOf(AcDbMText::desc())) return kPickTexts;
  const bool carriesText = dimensionsCarry(item) && entity.isKindOf(AcDbDimension::desc());
  return carriesText ? kPickOthers | kPickTexts : kPickOthers;
}

}  // namespace

bool isAdmitted(const AcDbEntity& entity, PickItem item, std::uint32_t mask) {
  return (kindOf(entity, item) & mask) != 0;
}

std::wstring wrongKindMessage(PickItem item, std::uint32_t mask) {
  const std::uint32_t admitted = mask & kPickAll;
  if (admitted == kPickTexts) {
    return dimensionsCarry(item) ? L"\n文字または寸法を指示してください。" : L"\n文字を指示してください。";
  }
  if (admitted == kPickBlockReferences) return L"\nﾌﾞﾛｯｸ図形を指示してください。";
  if (admitted == kPickAllButBlockReferences) return L"\nﾌﾞﾛｯｸ図形以外の図形を指示してください。";
  return L"\nこの種類の図形は指示できません。";
}

}  // namespace kiv
