#pragma once
// The specification that the reader's and the writer's tests share, and its file.

#include <string>

#include "spec/specification.h"

namespace kiv::testing {

inline Specification sampleSpecification() {
  Specification sample;
  sample.remark = L"sample";
  static_cast<void>(sample.addSetting(1));
  static_cast<void>(sample.addCondition(1, 0, {kLayerKind, false, {}, L"A-TEXT"}));
  static_cast<void>(sample.addCondition(1, 0, {kColorKind, true, {}, L"7:白"}));
  static_cast<void>(sample.addResult(1, 0, {kLayerKind, false, {}, L"TEXT"}));
  static_cast<void>(sample.addResult(1, 0, {kColorKind, false, {}, L"3:緑"}));
  static_cast<void>(sample.addSetting(1));
  static_cast<void>(sample.addResult(1, 1, {kTextHeightKind, false, {}, L"2.5"}));
  static_cast<void>(sample.addSetting(6));
  static_cast<void>(sample.addCondition(6, 0, {kLayerKind, false, {}, L"0"}));
  static_cast<void>(sample.addResult(6, 0, {kColorKind, false, {}, L"256:BYLAYER"}));
  static_cast<void>(sample.addEntry(8, {{L"DASHED", L"SAMPLE.LIN"}}));
  return sample;
}

inline const wchar_t* const kSampleText =
    L"[備考]\r\nsample\r\n\r\n"
    L"[文字]\r\n"
    L"[画層] = A-TEXT\r\n"
    L"[色] <> 7\r\n"
    L"                {\r\n"
    L"                        [画層] = TEXT\r\n"
    L"                        [色] = 3\r\n"
    L"                }\r\n"
    L"[***]\r\n"
    L"                {\r\n"
    L"                        [文字高さ] = 2.5\r\n"
    L"                }\r\n"
    L"---End---\r\n\r\n"
    L"[寸法]\r\n---End---\r\n\r\n"
    L"[ﾊｯﾁﾝｸﾞ]\r\n---End---\r\n\r\n"
    L"[その他の図形]\r\n---End---\r\n\r\n"
    L"[寸法設定]\r\n---End---\r\n\r\n"
    L"[画層の色･線種]\r\n"
    L"[画層] = 0\r\n"
    L"                {\r\n"
    L"                        [色] = BYLAYER\r\n"
    L"                }\r\n"
    L"---End---\r\n\r\n"
    L"[画層の作成]\r\n---End---\r\n\r\n"
    L"[線種のﾛｰﾄﾞ]\r\nSAMPLE.LIN, DASHED\r\n---End---\r\n\r\n"
    L"[字体のﾛｰﾄﾞ]\r\n---End---\r\n\r\n"
    L"[矢印のﾛｰﾄﾞ]\r\n---End---\r\n\r\n"
    L"[EOF]\r\n";

}  // namespace kiv::testing
