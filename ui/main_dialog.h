#pragma once
// The main dialog: the specification being edited in its tree, the options of a conversion, and the buttons
// that end it. It is modeless; whoever made it waits until it is hidden or its window has gone, and then
// reads how it was closed and what was chosen.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/questions.h"
#include "spec/configuration.h"
#include "spec/cvt_writer.h"
#include "spec/specification.h"
#include "ui/select_base.h"
#include "ui/specification_tree.h"

namespace kiv {

struct ConversionOptions {
  int blockScope = 0;  // 0 references, 1 their definitions, 2 both
  bool ignoreLocks = false;
  bool createLog = false;
  std::wstring logFolder;  // as typed
};

// How the dialog was closed.
enum class Closing { kCancelled = 0, kConvert = 1, kBatch = 2 };

class CCnvDlg : public Dialog, private PickerOwner {
 public:
  // What the dialog shares with whoever waits for it. Both must outlive it.
  struct Shared {
    PickHandOver& pick;
    Rect& place;  // where it stood when it was closed last; empty: where the resource puts it
  };
  // `hostFrame` owns the pickers and the text list dialog; null in a host without a window.
  CCnvDlg(Shared shared, HostFileLookup findFile, NativeWindow hostFrame);
  ~CCnvDlg() override;

  Closing closing() const { return closing_; }
  // As they were when the dialog was closed by a run button.
  const ConversionOptions& options() const { return options_; }
  // The configuration folder with its trailing separator; empty when the host does not find the module.
  const std::wstring& specificationFolder() const { return folder_; }
  const Specification& specification() const { return specification_; }

  // Shows the hidden dialog again with everything that was in it.
  void reopen();
  // As the cancel button. The window goes; the object stays.
  void cancel();
  // The pick that a picker asked for has ended: shows the dialog and hands the picked values to the picker.
  void pickCompleted();

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onContextMenu(int id, Place screen) override;
  bool onKey(int id, Key key) override;
  void onDoubleClicked(int id) override;
  void onDestroyed() override;

 private:
  // --- Options (main_dialog_options.cpp)
  void initOptions();
  bool onOptionCommand(int command);
  void enableLogFolder();
  void browseForLogFolder();
  void editTextLists();
  bool takeLogFolder();
  void takeBlockScope();

  // --- Files (main_dialog_files.cpp)
  bool onFileCommand(int command);
  void load(const std::wstring& name, bool asDefault);
  void loadChosen();
  void saveAs();
  void showFile();
  bool tellMissingLayer(const CvtWriteResult& result);
  void writeDefaultName();
  bool writeWorkFile();

  // --- The tree (main_dialog_tree.cpp)
  SpecificationTree tree();
  bool onTreeCommand(int command);
  void runFromMenu(const Menu& menu, Place screen);
  void applyOrOffer(int command, const Node& node, Place screen);
  void openSelected();
  void addSetting();
  void clearChildren(const std::wstring& question);
  void clearItems(Role role);
  void removeNode();
  void invert();
  void move(bool up);
  void copyVariables();
  bool assignVariable(const Item& item);

  // --- Pickers (main_dialog_pickers.cpp)
  bool onPickerCommand(int command);
  void addOrEdit();
  void addAtSelected();
  void addItem(int kind, Role role);
  void addEntry();
  void editSelected();
  void openPicker(const Node& target, NodeContent present);
  DialogWindow& ownerWindow() override { return window(); }
  bool take(const NodeContent& content) override;
  std::vector<std::wstring> namesInSection(int section) const override;
  void releasePicker(PickerSlot slot) override;

  void closeWith(Closing closing);
  void tell(const std::wstring& text);
  // True when the answer is yes and the dialog is still there.
  bool agrees(const std::wstring& question);

  PickHandOver& pick_;
  Rect& place_;
  HostFileLookup findFile_;
  NativeWindow hostFrame_;

  std::wstring folder_;
  Specification specification_;
  bool isDefault_ = false;  // the specification is to be the one to start with
  ConversionOptions options_;
  Closing closing_ = Closing::kCancelled;
  Node target_;  // what the open picker's content is for
  std::array<std::unique_ptr<CSelBase>, static_cast<size_t>(PickerSlot::kCount)> pickers_;
  std::unique_ptr<CSelBase> releasedPicker_;  // the last one that went; without a window
};

}  // namespace kiv
