#pragma once
// A dialog's window in memory.

#include <memory>

#include "platform/dialog.h"
#include "platform/headless/controls.h"
#include "platform/headless/tree.h"

namespace kiv::headless {

struct MemoryControl {
  explicit MemoryControl(const ResourceControl& resource);

  bool isUsable() const { return visible && enabled; }
  bool isButton() const;  // of any kind that a click does something to
  bool isEditable() const;

  const ResourceControl* resource;  // lives as long as the program
  int id;
  ControlKind kind;
  bool visible;
  bool enabled;
  bool checked = false;
  unsigned edges = kLeftEdge | kTopEdge;  // that it keeps its distance from
  Field field;                            // the text of every kind
  std::unique_ptr<MemoryCombo> combo;
  std::unique_ptr<MemoryTree> tree;
  std::unique_ptr<MemoryList> list;
  std::unique_ptr<MemoryGrid> grid;
};

class MemoryWindow : public DialogWindow {
 public:
  MemoryWindow(Dialog& dialog, const DialogResource& resource, MemoryWindow* owner);

  int resource() const override { return resource_->id; }
  NativeWindow native() const override { return const_cast<MemoryWindow*>(this); }

  std::wstring title() const override { return title_; }
  void setTitle(std::wstring_view title) override { title_ = title; }
  void show(bool shown) override;
  bool isShown() const override { return shown_; }
  void enableWindow(bool enabled) override { enabled_ = enabled; }
  bool isWindowEnabled() const override { return enabled_; }
  void activate() override;
  Rect place() const override { return place_; }
  void setPlace(const Rect& place) override { place_ = place; }
  void moveTo(Place topLeft) override;
  void setSize(int width, int height) override;
  void holdTo(int id, unsigned edges) override;
  void post(int command) override;
  void setTimer(int milliseconds) override { hasTimer_ = milliseconds > 0; }

  Rect placeOf(int id) const override;
  Place menuPlace(int id) const override;
  std::wstring text(int id) const override;
  void setText(int id, std::wstring_view text) override;
  bool isEnabled(int id) const override;
  void enable(int id, bool enabled) override;
  bool isVisible(int id) const override;
  void showControl(int id, bool visible) override;
  void focus(int id) override;
  int focused() const override;
  bool isChecked(int id) const override;
  void check(int id, bool checked) override;
  void setPicture(int, int) override {}

  ComboBox& combo(int id) override;
  TreeView& tree(int id) override;
  ListView& list(int id) override;
  TextGrid& grid(int id) override;

  // --- For the backend
  Dialog* dialog() const { return dialog_; }  // null when the dialog has let go of the window
  MemoryWindow* owner() const { return owner_; }
  unsigned serial() const { return serial_; }  // of all windows that there have been
  void detach() { dialog_ = nullptr; }
  void forgetOwner() { owner_ = nullptr; }
  bool hasTimer() const { return hasTimer_; }
  bool takesInput() const { return dialog_ && shown_ && enabled_; }
  MemoryControl* find(int id);  // null: none; never one of the id -1
  const MemoryControl* find(int id) const;
  MemoryControl* findByAccessKey(wchar_t letter);
  MemoryControl* focusedControl() { return find(focus_); }
  MemoryControl* defaultButton();
  void focusFirst();
  void focusNext(bool backwards);
  // The radio button after (1) or before (-1) this one in its group, that can be chosen; itself when alone.
  MemoryControl* neighbourInGroup(MemoryControl& radio, int direction);

 private:
  std::pair<std::size_t, std::size_t> group(const MemoryControl& control) const;
  bool isTabStop(const MemoryControl& control) const;

  Dialog* dialog_;
  unsigned serial_;
  const DialogResource* resource_;
  MemoryWindow* owner_;
  std::wstring title_;
  bool shown_ = false;
  bool enabled_ = true;
  bool hasTimer_ = false;
  Rect place_;
  int focus_ = 0;
  std::vector<MemoryControl> controls_;
};

}  // namespace kiv::headless
