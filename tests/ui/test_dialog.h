#pragma once
// A dialog of the resource script without behaviour of its own: it writes down what is called, and does what
// the test gives it to do.

#include <functional>
#include <string>
#include <vector>

#include "platform/dialog.h"

namespace kiv::test {

class TestDialog : public Dialog {
 public:
  explicit TestDialog(int resource) : Dialog(resource) {}

  // "command 1023", "edited 1041: text", "selected 1218", "double-click 1303", "header 1303 1", "key 1303",
  // "menu 1218", "destroyed", in the order of the calls.
  std::vector<std::wstring> calls;
  std::function<void()> init = [this] { window().show(true); };
  std::function<bool(int)> command;  // true: done with
  std::function<void(int)> edited;
  std::function<bool(int, Key)> key;
  std::function<void(int)> menu;
  std::function<void()> destroyed;

  std::vector<std::wstring> takeCalls() { return std::exchange(calls, {}); }

  void onInit() override { init(); }
  void onCommand(int id) override {
    note(L"command", id);
    if (!command || !command(id)) Dialog::onCommand(id);
  }
  void onEdited(int id) override {
    note(L"edited", id, L": " + window().text(id));
    if (edited) edited(id);
  }
  void onSelected(int id) override { note(L"selected", id); }
  void onDoubleClicked(int id) override { note(L"double-click", id); }
  void onHeaderClicked(int id, int column) override { note(L"header", id, L" " + std::to_wstring(column)); }
  bool onKey(int id, Key pressed) override {
    note(L"key", id);
    return key && key(id, pressed);
  }
  void onContextMenu(int id, Place) override {
    note(L"menu", id);
    if (menu) menu(id);
  }
  void onDestroyed() override {
    calls.push_back(L"destroyed");
    if (destroyed) destroyed();
  }

 private:
  void note(const wchar_t* what, int id, const std::wstring& rest = {}) {
    calls.push_back(std::wstring(what) + L" " + std::to_wstring(id) + rest);
  }
};

using Calls = std::vector<std::wstring>;

}  // namespace kiv::test
