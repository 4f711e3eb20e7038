#pragma once
// The specification that the reader's and the writer's tests share, and its file.

#include <string>

#include "base/codepage.h"
#include "spec/specification.h"
#include "tests/support/test_file.h"

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

inline const std::wstring kSampleText =
    base::decode(test_support::testFile("spec/sample.cvt"), base::kJapanese).text;

}  // namespace kiv::testing
