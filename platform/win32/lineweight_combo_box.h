#pragma once
// The combo box of lineweights: the host's own list where the host lends one that has what the dialog offers,
// else the module's. The dialog sees the texts of conversion specifications, however the host's list names
// them.

#include <memory>
#include <string>
#include <vector>

#include "platform/win32/combo_box.h"
#include "platform/win32/host_lineweights.h"

namespace kiv::win32 {

class LineweightComboBox final : public ComboBox, public Control {
 public:
  LineweightComboBox(HWND comboBox, int& quietDepth)
      : LineweightComboBox(comboBox, quietDepth, comboBox ? lendHostLineweights(comboBox) : nullptr) {}
  LineweightComboBox(HWND comboBox, int& quietDepth, std::unique_ptr<HostLineweights> lent);

  void clear() override;
  // A text that the host's list lacks, or that is no lineweight, gives the list back: from then on all
  // entries are the module's.
  void add(std::wstring_view entry) override;
  std::vector<std::wstring> entries() const override;  // those that were added
  int selected() const override;  // also -1 for an entry of the host's list that was not added
  void select(int entry) override;
  void putCaretAtEnd() override {}  // there is no field to type into

  std::wstring text() const;  // of the chosen entry; empty where selected() is -1
  void draw(const DRAWITEMSTRUCT& item);
  void takeNotice(WPARAM notice);  // a WM_COMMAND of the control

 private:
  void giveBack();

  SystemComboBox own_;
  std::unique_ptr<HostLineweights> lent_;
  std::vector<std::wstring> added_;  // while the list is lent
};

}  // namespace kiv::win32
