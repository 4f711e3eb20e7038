#pragma once
// As much of the host's controls as the module's sources name; see docs/real-host.md.

#if !defined(__AFXWIN_H__)
#error "the framework's header comes first"
#endif

class CAcUiLineWeightComboBox : public CComboBox {
 public:
  CAcUiLineWeightComboBox();
  int FindItemByLineWeight(int lineWeight);
  int GetCurrentItemLineWeight();
  void SetUseDefault(BOOL use);
};
