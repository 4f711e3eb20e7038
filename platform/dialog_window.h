#pragma once
// A dialog on the screen and its controls, by id. One backend shows real windows, the other keeps the same
// controls in memory; both build them from the module's one resource script, and a dialog's behaviour
// (platform/dialog.h) cannot tell them apart.
//
// Indexes and rows count from 0; -1 means none. Places and sizes are pixels of the screen. A control asked
// for under an id or as a kind that the dialog does not have is a fault of the caller: texts are then empty,
// numbers 0, and changes do nothing.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kiv {

// A window of the system, for owners; null: none. The backend without windows has its own pointers.
using NativeWindow = void*;

struct Place {
  int x = 0, y = 0;
};

struct Rect {
  int left = 0, top = 0, right = 0, bottom = 0;
  bool isEmpty() const { return right <= left || bottom <= top; }
  bool operator==(const Rect&) const = default;
};

// A list from which one entry is chosen, with a field in which a text may be typed instead. The field is
// read and written by text() and setText() of the window; setting the text takes the selection away.
class ComboBox {
 public:
  virtual ~ComboBox() = default;
  virtual void clear() = 0;  // the entries; the field stays
  virtual void add(std::wstring_view entry) = 0;
  virtual std::vector<std::wstring> entries() const = 0;
  virtual int selected() const = 0;
  virtual void select(
      int entry) = 0;                // the field shows it; -1 takes the selection away and empties the field
  virtual void putCaretAtEnd() = 0;  // of the field
};

// A row of a tree, valid until it or one above it is removed; 0 is none.
using TreeItem = std::uintptr_t;

class TreeView {
 public:
  virtual ~TreeView() = default;
  // Under `parent` (0: at the top) at the place `position` among its children; -1: last.
  virtual TreeItem insert(TreeItem parent, int position, std::wstring_view text, int image,
                          std::uint32_t data) = 0;
  virtual void remove(TreeItem item) = 0;  // with everything under it; the selection moves to a neighbour
  virtual void clear() = 0;
  virtual std::wstring text(TreeItem item) const = 0;
  virtual void setText(TreeItem item, std::wstring_view text) = 0;
  virtual std::uint32_t data(TreeItem item) const = 0;
  virtual void setData(TreeItem item, std::uint32_t data) = 0;
  virtual TreeItem parent(TreeItem item) const = 0;
  virtual std::vector<TreeItem> children(TreeItem item) const = 0;  // 0: those at the top
  virtual TreeItem caret() const = 0;                               // the selected item
  virtual void select(TreeItem item) = 0;                           // opens what it is under
  virtual void expand(TreeItem item) = 0;
  virtual void collapse(TreeItem item) = 0;  // what was selected below it gives the selection to it
  virtual bool isExpanded(TreeItem item) const = 0;
  // Of an item with nothing under it: it can be opened all the same, so what it holds is asked for then
  // (Dialog::onOpening).
  virtual void setOpenable(TreeItem item, bool openable) = 0;
  virtual void setRedraw(bool on) = 0;
};

class ListView {
 public:
  struct Column {
    std::wstring title;
    int width = 0;             // pixels
    bool alignsRight = false;  // not the first one
  };
  virtual ~ListView() = default;
  virtual void setColumns(const std::vector<Column>& columns) = 0;
  virtual void clear() = 0;                                         // the rows
  virtual void addRow(const std::vector<std::wstring>& cells) = 0;  // missing cells are empty
  virtual int rowCount() const = 0;
  virtual std::wstring cell(int row, int column) const = 0;
  virtual void setCell(int row, int column, std::wstring_view text) = 0;
  virtual int selected() const = 0;  // the first one
  virtual void select(int row) = 0;  // no other row is then

  // Several rows can be selected at once, by Shift and Ctrl, unless the style LVS_SINGLESEL says otherwise.
  virtual int selectedCount() const = 0;
  virtual std::vector<int> selectedRows() const = 0;
  virtual void selectRows(const std::vector<int>& rows) = 0;  // no others are then
  // The row that the arrow keys and Shift go from, whether it is selected or not. Focusing one shows it.
  virtual int focused() const = 0;
  virtual void focus(int row) = 0;
  // The title shows by which column the rows are sorted.
  virtual void setSortMark(int column, bool ascending) = 0;
  virtual void setRedraw(bool on) = 0;
};

// A column of texts under a title, with the row's number before each; every text is edited in place.
class TextGrid {
 public:
  virtual ~TextGrid() = default;
  virtual void setTitle(std::wstring_view title) = 0;
  virtual int rowCount() const = 0;
  virtual void setRowCount(int rows) = 0;        // new rows are empty
  virtual std::wstring text(int row) const = 0;  // what is being typed included
  virtual void setText(int row, std::wstring_view text) = 0;
  virtual int currentRow() const = 0;
  virtual void setCurrentRow(int row) = 0;
};

// The edges of a window, as bits.
enum Edges : unsigned { kLeftEdge = 1, kTopEdge = 2, kRightEdge = 4, kBottomEdge = 8 };

// Where a control goes that keeps its distance from these edges of a window that has grown by so much.
constexpr Rect movedWithEdges(const Rect& place, unsigned edges, Place grown) {
  const bool right = edges & kRightEdge, bottom = edges & kBottomEdge;
  return {place.left + (right && !(edges & kLeftEdge) ? grown.x : 0),
          place.top + (bottom && !(edges & kTopEdge) ? grown.y : 0), place.right + (right ? grown.x : 0),
          place.bottom + (bottom ? grown.y : 0)};
}

class DialogWindow {
 public:
  virtual ~DialogWindow() = default;

  virtual int resource() const = 0;  // id of the dialog in the resource script
  virtual NativeWindow native() const = 0;

  // --- The window
  virtual std::wstring title() const = 0;
  virtual void setTitle(std::wstring_view title) = 0;
  virtual void show(bool shown) = 0;
  virtual bool isShown() const = 0;
  virtual void enableWindow(bool enabled) = 0;  // disabled: no key or click reaches it
  virtual bool isWindowEnabled() const = 0;
  virtual void activate() = 0;  // brings it to the front and gives it the keyboard
  virtual Rect place() const = 0;
  virtual void setPlace(const Rect& place) = 0;  // moved and sized; its order among windows stays
  virtual void moveTo(Place topLeft) = 0;
  // About its middle; not smaller than in the resource script, and not larger than its monitor.
  virtual void setSize(int width, int height) = 0;
  // In a window whose frame can be dragged: the control's edges that keep their distance from the same edges
  // of the window; the others keep the control's size. Without a call it stays at the left and the top.
  virtual void holdTo(int id, unsigned edges) = 0;
  // Runs onCommand(id) after the handler at work has returned; nothing when the window is gone by then.
  virtual void post(int command) = 0;
  // From now on Dialog::onTimer() runs about so often, while no handler is at work; 0: not any more.
  virtual void setTimer(int milliseconds) = 0;

  // --- Any control
  virtual Rect placeOf(int id) const = 0;  // pixels of the screen; empty: there is no such control
  // Where a menu opens that a key asks for: under the selected row of a tree, list or grid.
  virtual Place menuPlace(int id) const = 0;
  virtual std::wstring text(int id) const = 0;
  virtual void setText(int id, std::wstring_view text) = 0;
  virtual bool isEnabled(int id) const = 0;
  virtual void enable(int id, bool enabled) = 0;
  virtual bool isVisible(int id) const = 0;
  virtual void showControl(int id, bool visible) = 0;
  virtual void focus(int id) = 0;                // an edit's text becomes selected
  virtual int focused() const = 0;               // 0: no control of this dialog
  virtual bool isChecked(int id) const = 0;      // check boxes and radio buttons
  virtual void check(int id, bool checked) = 0;  // a radio button takes the mark from the others of its group
  // An owner-drawn button shows this icon before its caption, one of the style BS_ICON instead of it; a label
  // of the style SS_BITMAP this bitmap, as large as the label.
  virtual void setPicture(int id, int resource) = 0;

  // --- Controls with content
  virtual ComboBox& combo(int id) = 0;
  virtual TreeView& tree(int id) = 0;
  virtual ListView& list(int id) = 0;
  virtual TextGrid& grid(int id) = 0;
};

}  // namespace kiv
