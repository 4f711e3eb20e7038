// The pick of an entity for the values of one item.

#include <exception>

#include "acdb.h"
#include "acedads.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "siblings/KivDll/exports.h"
#include "siblings/KivDll/picked_values.h"
#include "siblings/common/host_output.h"
#include "siblings/common/insert_class.h"

namespace kiv {
namespace {

constexpr int kFirstItem = static_cast<int>(PickItem::kLayer), kEndItem = static_cast<int>(PickItem::kEnd);

// --- Which entities a pick admits

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

// --- The pick

// The host's own word for why a pick gave nothing.
bool wasEmptyPick() {
  constexpr short kEmptyPick = 7;
  resbuf value{};
  return acedGetVar(L"ERRNO", &value) == RTNORM && value.restype == RTSHORT &&
         value.resval.rint == kEmptyPick;
}

AcDbObjectId letPick(const wchar_t* prompt) {
  ads_name picked;
  ads_point point;
  AcDbObjectId id;
  const int outcome = acedEntSel(prompt, picked, point);
  if (outcome == RTNORM) {
    acdbGetObjectId(id, picked);
  } else if (outcome == RTERROR && wasEmptyPick()) {
    printOnCommandLine(L"\n図形が見つかりません。");
  }
  return id;
}

std::vector<std::wstring> pick(const wchar_t* prompt, PickItem item, std::wstring_view variable,
                               std::uint32_t mask) {
  const AcDbObjectId id = letPick(prompt);
  if (id.isNull()) return {};
  const AcDbEntityPointer entity(id, AcDb::kForRead);
  if (entity.openStatus() != Acad::eOk) {
    printOnCommandLine(L"\n図形を読み取れません。");
    return {};
  }
  if (!isAdmitted(*entity.object(), item, mask)) {
    printOnCommandLine(wrongKindMessage(item, mask));
    return {};
  }
  std::vector<std::wstring> values = pickedValues(*entity.object(), item, variable);
  if (values.empty()) printOnCommandLine(L"\nこの図形には該当する値がありません。");
  return values;
}

}  // namespace
}  // namespace kiv

int dll_kiv_entsel(const wchar_t* prompt, int item, const wchar_t* variable, std::uint32_t mask,
                   kiv::TakePickedValue* take, void* context) {
  if (take == nullptr || item < kiv::kFirstItem || item >= kiv::kEndItem) return 0;
  try {
    const std::vector<std::wstring> values =
        kiv::pick(prompt, static_cast<kiv::PickItem>(item), variable == nullptr ? L"" : variable, mask);
    for (const std::wstring& value : values) take(value.c_str(), context);
    return values.empty() ? 0 : 1;
  } catch (const std::exception&) {
    return 0;
  }
}
