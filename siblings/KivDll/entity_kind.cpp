#include "siblings/KivDll/entity_kind.h"

#include "dbents.h"
#include "dbmtext.h"

namespace kiv {
namespace {

constexpr std::uint32_t kPickOthers = kPickAll & ~(kPickBlockReferences | kPickTexts);

std::uint32_t kindOf(const AcDbEntity& entity) {
  if (entity.isKindOf(AcDbBlockReference::desc())) return kPickBlockReferences;
  const bool text = entity.isKindOf(AcDbText::desc()) || entity.isKindOf(AcDbMText::desc());
  return text ? kPickTexts : kPickOthers;
}

}  // namespace

bool isAdmitted(const AcDbEntity& entity, std::uint32_t mask) { return (kindOf(entity) & mask) != 0; }

std::wstring wrongKindMessage(std::uint32_t mask) {
  const std::uint32_t admitted = mask & kPickAll;
  if (admitted == kPickTexts) return L"\n文字を指示してください。";
  if (admitted == kPickBlockReferences) return L"\nﾌﾞﾛｯｸ図形を指示してください。";
  if (admitted == kPickAllButBlockReferences) return L"\nﾌﾞﾛｯｸ図形以外の図形を指示してください。";
  return L"\nこの種類の図形は指示できません。";
}

}  // namespace kiv
