#pragma once
// The main dialog over a configuration folder of the test's own, and the person before it.

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"
#include "tests/ui/user.h"
#include "ui/main_dialog.h"
#include "ui/resource.h"

namespace kiv::testing {

using Texts = std::vector<std::wstring>;

// The main dialog's message boxes.
inline MessageQuestion told(const std::wstring& text) {
  return {text, L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ", Buttons::kOk, Icon::kWarning};
}
inline MessageQuestion asked(const std::wstring& text) {
  return {text + L"\nよろしいですか？", L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ", Buttons::kYesNo, Icon::kQuestion, true};
}

class MainDialog : public test_support::TempFolder {
 protected:
  using Where = test::User::Where;
  void SetUp() override;
  void TearDown() override;

  // --- The dialog
  void open();
  CCnvDlg& dialog() { return *dialog_; }
  DialogWindow& window() { return dialog_->window(); }
  // `path` is the texts of the nodes below the root.
  TreeItem item(const Texts& path, Where where = Where::current());
  Texts rows(const Texts& path, Where where = Where::current());  // the texts of the node's children
  std::wstring selectedText();

  // --- What the person does
  void click(int id, Where where = Where::current()) { user_.click(window(), id, where); }
  void select(const Texts& path, Where where = Where::current());
  // In the node's context menu. 0: only looks at it.
  void chooseFromMenu(const Texts& path, int command, Where where = Where::current());
  // Adds or edits by the menu, types the value into the picker and confirms.
  void give(const Texts& path, int command, const std::wstring& value, Where where = Where::current());
  DialogWindow* picker(Where where = Where::current()) { return user_.shown(IDD_VALUE, where); }
  bool hasPicker() const { return user_.isShown(IDD_VALUE); }
  // Each with its button and in the dialog that it opens.
  void save(const std::wstring& name, const std::wstring& remark, Where where = Where::current());
  void load(const std::wstring& name, Where where = Where::current());

  // --- Files, below the configuration folder
  std::filesystem::path config(const std::wstring& name) const;
  bool exists(const std::wstring& name) const { return std::filesystem::exists(config(name)); }
  std::string bytes(const std::wstring& name) const { return base::readFile(config(name)).value(); }
  std::map<std::wstring, std::string> files() const;  // their bytes by their names
  void makeConfig(const std::wstring& name, std::wstring_view text) const;

  test::User user_;
  PickHandOver pick_;
  Rect place_;
  std::unique_ptr<CCnvDlg> dialog_;
};

// What is enabled in the menu, as ids.
std::vector<int> enabledItems(const Menu& menu);

}  // namespace kiv::testing
