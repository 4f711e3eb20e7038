#pragma once
// The drawing: painted, zoomed, moved, and pointed at.

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cadhost/input_queue.h"
#include "cadhost/picture.h"
#include "cadhost/text_painter.h"
#include "cadhost/view_transform.h"
#include "embedded/editor/host.h"

namespace cad {
class Document;
}

namespace cadhost {

class DrawingView {
 public:
  struct Hands {
    std::function<void(DrawingPoint)> moved;  // the pointer
    std::function<void(wchar_t)> typed;       // a character, Enter and Esc included
    std::function<void()> incomplete;         // the drawing has more than is shown; once for each drawing
  };

  DrawingView(cad::Host& host, InputQueue& input) : host_(host), input_(input) {}
  bool create(HWND parent, Hands hands);
  HWND window() const { return window_; }

  // To be called when a command has ended or waits: another drawing, or another state of it, is shown.
  void refresh();
  // While a script opens one drawing after the other: what was shown last stays. Some take longer to show
  // than to convert.
  void keepPicture(bool keep) { isKept_ = keep; }
  void zoomExtents();
  void zoomAt(double notches, POINT screen);  // of the wheel, touchpads give shares; above 0 enlarges
  void setHighlight(cad::RecordId entity);
  double pixelsPerUnit() const { return view_.pixelsPerUnit(); }

  void attach(HWND window) { window_ = window; }
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  // What a drawing was last seen at.
  struct Remembered {
    int document = 0;
    ViewTransform view;
    bool lossSaid = false;
  };

  LRESULT handleMouse(UINT message, POINT at);
  LRESULT handleKey(UINT message, WPARAM key);
  void handleCharacter(wchar_t c);
  void pointerMoved(POINT at);
  void beginDrag(POINT at);
  void panBy(int dx, int dy);
  void viewChanged();
  void resize(int width, int height);
  void showDocument(int number);
  void remember();
  bool preparePicture();
  void render(PixelRect part);
  void compose();
  void paint();
  void paintPointer();
  bool isCrosshair() const { return pointer_ && !drag_ && host_.isPicking(); }
  int aperture() const;  // half of the pick box, pixels

  cad::Host& host_;
  InputQueue& input_;
  Hands hands_;
  HWND window_ = nullptr;
  ViewTransform view_;
  int document_ = 0;  // the number of the one that is shown
  std::uint64_t revision_ = 0;
  bool lossSaid_ = false;  // that not all of document_ is shown
  std::vector<Remembered> remembered_;
  std::unique_ptr<Picture> drawn_, composed_;  // the scene; the same with what moves over it
  bool stale_ = true;                          // drawn_ is not what the view shows
  bool isKept_ = false;
  TextPainter texts_;
  cad::RecordId highlight_ = cad::kNoRecord;
  std::optional<POINT> pointer_, drag_;
  bool spaceDown_ = false, spaceUsed_ = false, crosshairShown_ = false;
};

}  // namespace cadhost
