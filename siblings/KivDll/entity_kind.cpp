#include "siblings/KivDll/entity_kind.h"

#include "dbents.h"
#include "dbmtext.h"

namespace kiv {
namespace {

unsigned kindOf(const AcDbEntity& entity) {
  if (entity.isKindOf(AcDbBlockReference::desc())) return kBlockReferenceKind;
  const bool text = entity.isKindOf(AcDbText::desc()) || entity.isKindOf(AcDbMText::desc());
  return text ? kTextKind : kOtherKinds;
}

}  // namespace

bool isAdmitted(const AcDbEntity& entity, unsigned mask) { return (kindOf(entity) & mask) != 0; }

std::wstring wrongKindMessage(unsigned mask) {
  const unsigned admitted = mask & kEveryKind;
  if (admitted == kTextKind) return L"\n文字を指示してください。";
  if (admitted == kBlockReferenceKind) return L"\nﾌﾞﾛｯｸ図形を指示してください。";
  if (admitted == (kEveryKind & ~kBlockReferenceKind)) return L"\nﾌﾞﾛｯｸ図形以外の図形を指示してください。";
  return L"\nこの種類の図形は指示できません。";
}

}  // namespace kiv
