// The list of lineweights from the host's own dialogs.
#include "platform/win32/host_lineweights.h"

// The headers of the host's two libraries of controls, on which that of a control stands in releases that
// have them.
#if __has_include(<adui.h>)
#include <adui.h>
#endif
#if __has_include(<acui.h>)
#include <acui.h>
#endif
#include <acuiComboBox.h>

namespace kiv::win32 {
namespace {

class List final : public CAcUiLineWeightComboBox {
 public:
  // The framework tells its own windows' parents, and the parent here is none of them.
  void takeNotice(UINT message, WPARAM first, LPARAM second) {
    LRESULT answer = 0;
    OnChildNotify(message, first, second, &answer);
  }
};

class LentList final : public HostLineweights {
 public:
  explicit LentList(HWND comboBox) {
    list_.SetUseDefault(TRUE);
    list_.SubclassWindow(comboBox);
  }
  ~LentList() override {
    if (isLent()) list_.UnsubclassWindow();
  }

  bool isLent() const { return list_.GetSafeHwnd() != nullptr; }

  int entryOf(int lineweight) override { return list_.FindItemByLineWeight(lineweight); }
  int lineweightOfChosen() override { return list_.GetCurrentItemLineWeight(); }
  void take(UINT message, WPARAM first, LPARAM second) override { list_.takeNotice(message, first, second); }

 private:
  List list_;
};

}  // namespace

std::unique_ptr<HostLineweights> lendHostLineweights(HWND comboBox) {
  auto list = std::make_unique<LentList>(comboBox);
  return list->isLent() ? std::move(list) : nullptr;
}

}  // namespace kiv::win32
