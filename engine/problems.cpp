#include "engine/problems.h"

#include <utility>

namespace kiv {
namespace {

// Behind the name of the linetype file.
constexpr std::pair<Acad::ErrorStatus, const wchar_t*> kLoadingReasons[] = {
    {Acad::eFileNotFound, L"が見つかりません"},
    {Acad::eUndefinedLineType, L"にこの線種の定義がありません"},
    {Acad::eInvalidInput, L"の定義に誤りがあります"},
    {Acad::eKeyNotFound, L"の定義が使う文字スタイルが図面にありません"},
    {Acad::eNotApplicable, L"の定義はこの図面のバージョンでは使えません"},
};

std::wstring loadingReason(Acad::ErrorStatus status) {
  for (const auto& [known, reason] : kLoadingReasons)
    if (known == status) return reason;
  return L"の定義が受け付けられませんでした";
}

const wchar_t* refusalReason(RefusalReason reason) {
  switch (reason) {
    case RefusalReason::kNoSuchName:
      return L"その名前のものが図面にありません";
    case RefusalReason::kNotInThisVersion:
      return L"この図面のバージョンでは設定できません";
    case RefusalReason::kBadValue:
      return L"値が範囲外か、形式が違います";
    case RefusalReason::kNotForObject:
      return L"寸法図形にはない変数です";
    case RefusalReason::kNoSuchFile:
      return L"その名前のファイルがありません";
    case RefusalReason::kOther:
      break;
  }
  return L"設定を受け付けませんでした";
}

std::wstring refuserText(const RefusalNote& refusal) {
  if (refusal.by == Refuser::kDrawing) return L"図面に設定できませんでした";
  return (refusal.by == Refuser::kLayer ? L"画層" : L"") + std::to_wstring(refusal.count) +
         L"件変換できませんでした";
}

}  // namespace

RefusalReason refusalOf(Acad::ErrorStatus status) {
  switch (status) {
    case Acad::eKeyNotFound:
    case Acad::eUndefinedLineType:
    case Acad::eNullObjectId:
      return RefusalReason::kNoSuchName;
    case Acad::eNotApplicable:
      return RefusalReason::kNotInThisVersion;
    case Acad::eInvalidInput:
      return RefusalReason::kBadValue;
    case Acad::eNotThatKindOfClass:
      return RefusalReason::kNotForObject;
    default:
      return RefusalReason::kOther;
  }
}

std::wstring unreadableProblem(const std::wstring& path) {
  return L"[" + path + L"]の読み込みに失敗しました";
}

std::wstring textListProblem(const std::wstring& path, const std::wstring& reason) {
  return L"[" + path + L"]" + reason;
}

std::wstring cutTextListProblem(const std::wstring& path, std::size_t kept) {
  const std::wstring count = std::to_wstring(kept);
  return L"[" + path + L"]の検索文字は" + count + L"件を超えているため、先頭の" + count +
         L"件だけを使用しました";
}

std::wstring arrowProblem(const std::wstring& block) {
  return L"矢印[" + block + L"]のロードができませんでした";
}

std::wstring linetypeProblem(const std::wstring& linetype) {
  return L"線種[" + linetype + L"]のロードができませんでした";
}

std::wstring linetypeReason(const std::wstring& file, Acad::ErrorStatus status) {
  return L"[" + file + L"]" + loadingReason(status);
}

std::wstring layerRecordProblem(const std::wstring& layer) {
  return L"画層変換で、画層[" + layer + L"]の情報が取得できませんでした";
}

std::wstring selectionProblem(const std::wstring& passLabel) {
  return passLabel + L" 条件による図形の選択ができなかった設定があります";
}

std::wstring lockedProblem(const std::wstring& passLabel, int count) {
  return passLabel + L" ロックされた画層上にあるため " + std::to_wstring(count) + L"件変換できませんでした";
}

std::wstring failedProblem(const std::wstring& passLabel, int count) {
  return passLabel + L" " + std::to_wstring(count) + L"件変換できませんでした";
}

std::wstring saveProblem(const std::wstring& path) { return L"[" + path + L"]の保存に失敗しました"; }

std::wstring brokenOffProblem(const std::wstring& path) { return L"[" + path + L"]の変換を中断しました"; }

std::wstring layerCreationProblem(const std::wstring& layer, const std::wstring& kind,
                                  const std::wstring& value) {
  return L"画層の作成で、画層[" + layer + L"]の" + kind + L"[" + value + L"]を設定できませんでした";
}

std::wstring layerNotCreatedProblem(const std::wstring& layer) {
  return L"画層[" + layer + L"]を作成できませんでした";
}

std::wstring layerSettingProblem(const std::wstring& layer, const std::wstring& kind,
                                 const std::wstring& value) {
  return L"画層変換で、画層[" + layer + L"]の" + kind + L"[" + value + L"]を設定できませんでした";
}

std::wstring layerRenameProblem(const std::wstring& layer, const std::wstring& newName) {
  return L"画層変換で、画層[" + layer + L"]の名前を[" + newName + L"]に変更できませんでした";
}

std::wstring referenceLayerRenameProblem(const std::wstring& layer) {
  return L"画層変換で、外部参照の画層[" + layer + L"]の名前は変更できませんでした";
}

std::wstring currentLayerFreezeProblem(const std::wstring& layer) {
  return L"画層変換で、現在の画層[" + layer + L"]はフリーズできませんでした";
}

std::wstring refusalLine(const RefusalNote& refusal) {
  return refusal.kind + L"[" + refusal.value + L"] " + refuserText(refusal) + L": " +
         refusalReason(refusal.reason);
}

}  // namespace kiv
