#include "host/pick_items.h"

#include <iterator>

namespace kiv {
namespace {

// By code, from 1.
constexpr PickTarget kTargets[] = {
    {PickItem::kLayer, L"画層", kPickAll},
    {PickItem::kLinetype, L"線種", kPickAllButBlockReferences},
    {PickItem::kColor, L"色", kPickAllButBlockReferences},
    {PickItem::kTextStyle, L"字体", kPickTexts},
    {PickItem::kTextHeight, L"文字高さ", kPickTexts},
    {PickItem::kTextAngle, L"文字角度", kPickTexts},
    {PickItem::kWidthFactor, L"文字幅高比", kPickTexts},
    {PickItem::kBlock, L"ﾌﾞﾛｯｸ図形", kPickBlockReferences},
    {PickItem::kDimStyle, L"寸法設定", kPickAll},
    {PickItem::kLineWeight, L"線幅値", kPickAll},
    {PickItem::kTransparency, L"透過性", kPickAll},
    {PickItem::kLinetypeScale, L"線種尺度", kPickAll},
    {PickItem::kDisplay, L"表示", kPickAll},
    {PickItem::kLock, L"ロック", kPickAll},
    {PickItem::kFreeze, L"フリーズ", kPickAll},
    {PickItem::kPlot, L"印刷", kPickAll},
};

}  // namespace

const PickTarget* pickTarget(int code) {
  return code >= 1 && code <= static_cast<int>(std::size(kTargets)) ? &kTargets[code - 1] : nullptr;
}

}  // namespace kiv
