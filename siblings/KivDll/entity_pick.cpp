#include <exception>

#include "acdb.h"
#include "acedads.h"
#include "dbobjptr.h"
#include "siblings/KivDll/entity_kind.h"
#include "siblings/KivDll/exports.h"
#include "siblings/KivDll/picked_values.h"
#include "siblings/common/host_output.h"

namespace kiv {
namespace {

constexpr int kFirstItem = static_cast<int>(PickItem::kLayer), kLastItem = static_cast<int>(PickItem::kPlot);

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

std::vector<std::wstring> pick(const wchar_t* prompt, PickItem item, std::uint32_t mask) {
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
  std::vector<std::wstring> values = pickedValues(*entity.object(), item);
  if (values.empty()) printOnCommandLine(L"\nこの図形には該当する値がありません。");
  return values;
}

}  // namespace
}  // namespace kiv

int dll_kiv_entsel(const wchar_t* prompt, int item, std::uint32_t mask, kiv::TakePickedValue* take,
                   void* context) {
  if (take == nullptr || item < kiv::kFirstItem || item > kiv::kLastItem) return 0;
  try {
    const std::vector<std::wstring> values = kiv::pick(prompt, static_cast<kiv::PickItem>(item), mask);
    for (const std::wstring& value : values) take(value.c_str(), context);
    return values.empty() ? 0 : 1;
  } catch (const std::exception&) {
    return 0;
  }
}
