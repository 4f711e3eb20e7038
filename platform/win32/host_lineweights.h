#pragma once
// The host's own list of lineweights, where it has one to lend.

#include <memory>

#include "platform/win32/system.h"

namespace kiv::win32 {

// Lineweights are hundredths of a millimetre, or -3: Default. The list has its entries from the host.
class HostLineweights {
 public:
  virtual ~HostLineweights() = default;     // the control is what it was before, with entries or without
  virtual int entryOf(int lineweight) = 0;  // -1: not in the list
  virtual int lineweightOfChosen() = 0;     // of the entry that is chosen, which there must be
  // What the dialog is told or asked by the control, before the dialog does with it what it does: the host's
  // list draws and measures itself, and follows what is chosen.
  virtual void take(UINT message, WPARAM first, LPARAM second) = 0;
};

// Makes the combo box the host's; null where the host has no such list.
std::unique_ptr<HostLineweights> lendHostLineweights(HWND comboBox);

}  // namespace kiv::win32
