#include "cadhost/drawing_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "cadhost/paint.h"
#include "cadhost/resource.h"
#include "cadhost/window_support.h"

namespace cadhost {
namespace {

constexpr wchar_t kClass[] = L"CadhostView";
constexpr double kZoomStep = 1.25;
constexpr int kArrowStep = 60, kAperture = 5;  // pixels at 96 dots per inch
constexpr Rgb kPointerColor = 0xD0D8E0;

}  // namespace

bool DrawingView::create(HWND parent, Hands hands) {
  hands_ = std::move(hands);
  const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(parent, GWLP_HINSTANCE));
  if (!registerWindow<DrawingView>(instance, kClass, nullptr, nullptr, CS_DBLCLKS)) return false;
  CreateWindowExW(0, kClass, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent,
                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_DRAWING)), instance, this);
  return window_ != nullptr;
}

int DrawingView::aperture() const { return scaled(window_, kAperture); }

// --- What is shown ------------------------------------------------------------------------------------

void DrawingView::refresh() {
  const cad::DocumentInfo document = host_.currentDocument();
  if (document.number == 0) return;
  const bool other = document.number != document_;
  if (other) {
    remember();
    showDocument(document.number);
  }
  const bool changed = other || document.revision != revision_;
  if (changed) stale_ = true;
  if (changed || isCrosshair() != crosshairShown_) InvalidateRect(window_, nullptr, FALSE);
  revision_ = document.revision;
}

void DrawingView::remember() {
  const std::vector<cad::DocumentInfo> open = host_.documents();
  std::erase_if(remembered_, [&](const Remembered& each) {
    return each.document == document_ ||
           std::ranges::find(open, each.document, &cad::DocumentInfo::number) == open.end();
  });
  if (document_ != 0) remembered_.push_back({document_, view_, lossSaid_});
}

void DrawingView::showDocument(int number) {
  document_ = number;
  highlight_ = cad::kNoRecord;
  const auto found = std::ranges::find(remembered_, number, &Remembered::document);
  lossSaid_ = found != remembered_.end() && found->lossSaid;
  if (found == remembered_.end()) {
    zoomExtents();
    return;
  }
  const int width = view_.width(), height = view_.height();
  view_ = found->view;
  view_.setSize(width, height);
  viewChanged();
}

void DrawingView::zoomExtents() {
  view_.showAll(host_.scene().extents);
  viewChanged();
}

void DrawingView::zoomAt(double notches, POINT screen) {
  ScreenToClient(window_, &screen);
  view_.zoom(std::pow(kZoomStep, notches), {double(screen.x), double(screen.y)});
  viewChanged();
}

void DrawingView::setHighlight(cad::RecordId entity) {
  if (highlight_ == entity) return;
  highlight_ = entity;
  InvalidateRect(window_, nullptr, FALSE);
}

void DrawingView::viewChanged() {
  stale_ = true;
  input_.setPickRadius(aperture() / view_.pixelsPerUnit());
  InvalidateRect(window_, nullptr, FALSE);
}

void DrawingView::resize(int width, int height) {
  if (width <= 0 || height <= 0) return;  // minimised
  const bool first = view_.width() <= 1;
  view_.setSize(width, height);
  if (first && document_ != 0) view_.showAll(host_.scene().extents);
  viewChanged();
}

// The picture is moved and only what comes in is drawn anew.
void DrawingView::panBy(int dx, int dy) {
  view_.pan(dx, dy);
  if (stale_ || drawn_ == nullptr || std::abs(dx) >= drawn_->width() || std::abs(dy) >= drawn_->height()) {
    viewChanged();
    return;
  }
  const int width = drawn_->width(), height = drawn_->height();
  drawn_->scroll(dx, dy);
  if (dx != 0) render(dx > 0 ? PixelRect{0, 0, dx, height} : PixelRect{width + dx, 0, width, height});
  if (dy != 0) render(dy > 0 ? PixelRect{0, 0, width, dy} : PixelRect{0, height + dy, width, height});
  InvalidateRect(window_, nullptr, FALSE);
}

// --- Painting -----------------------------------------------------------------------------------------

bool DrawingView::preparePicture() {
  if (drawn_ == nullptr || composed_ == nullptr || drawn_->width() != view_.width() ||
      drawn_->height() != view_.height()) {
    drawn_ = Picture::create(view_.width(), view_.height());
    composed_ = Picture::create(view_.width(), view_.height());
    stale_ = true;
  }
  return drawn_ != nullptr && composed_ != nullptr;
}

void DrawingView::render(PixelRect part) {
  Canvas canvas = drawn_->canvas();
  canvas.setClip(part);
  canvas.clear(kBackground);
  const std::vector<VisibleText> texts = ScenePainter(canvas, view_).paint(host_.scene());
  texts_.paint(drawn_->dc(), texts, view_, canvas.clip());
}

void DrawingView::compose() {
  if (!preparePicture()) return;
  if (stale_) {
    render({0, 0, drawn_->width(), drawn_->height()});
    stale_ = false;
  }
  composed_->copyFrom(*drawn_);
  Canvas canvas = composed_->canvas();
  ScenePainter(canvas, view_).highlight(host_.scene(), highlight_);
  paintPointer();
}

void DrawingView::paint() {
  PAINTSTRUCT paint{};
  HDC dc = BeginPaint(window_, &paint);
  if (!isKept_) compose();
  if (composed_ != nullptr)
    BitBlt(dc, 0, 0, composed_->width(), composed_->height(), composed_->dc(), 0, 0, SRCCOPY);
  EndPaint(window_, &paint);
  if (!isKept_ && host_.scene().truncated && !std::exchange(lossSaid_, true)) hands_.incomplete();
}

void DrawingView::paintPointer() {
  crosshairShown_ = isCrosshair();
  if (!crosshairShown_) return;
  Canvas canvas = composed_->canvas();
  const double x = pointer_->x, y = pointer_->y, half = aperture();
  canvas.line({x, 0}, {x, y - half}, kPointerColor);
  canvas.line({x, y + half}, {x, double(composed_->height())}, kPointerColor);
  canvas.line({0, y}, {x - half, y}, kPointerColor);
  canvas.line({x + half, y}, {double(composed_->width()), y}, kPointerColor);
  const Pixel corners[] = {
      {x - half, y - half}, {x + half, y - half}, {x + half, y + half}, {x - half, y + half}};
  for (int i = 0; i < 4; ++i) canvas.line(corners[i], corners[(i + 1) % 4], kPointerColor);
}

// --- Mouse and keys -----------------------------------------------------------------------------------

LRESULT DrawingView::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      resize(LOWORD(lParam), HIWORD(lParam));
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) != HTCLIENT) break;
      SetCursor(isCrosshair() ? nullptr
                              : LoadCursorW(nullptr, drag_ || spaceDown_ ? IDC_SIZEALL : IDC_CROSS));
      return TRUE;
    case WM_MOUSEMOVE:
    case WM_MOUSELEAVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_CAPTURECHANGED:
      return handleMouse(message, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    case WM_MBUTTONDBLCLK:
      zoomExtents();
      return 0;
    case WM_MOUSEWHEEL:
      zoomAt(double(GET_WHEEL_DELTA_WPARAM(wParam)) / WHEEL_DELTA,
             {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_KILLFOCUS:
      return handleKey(message, wParam);
    case WM_CHAR:
      handleCharacter(static_cast<wchar_t>(wParam));
      return 0;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT DrawingView::handleMouse(UINT message, POINT at) {
  switch (message) {
    case WM_MOUSEMOVE:
      pointerMoved(at);
      break;
    case WM_MOUSELEAVE:
      pointer_.reset();
      InvalidateRect(window_, nullptr, FALSE);
      break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      SetFocus(window_);
      if (spaceDown_) {
        beginDrag(at);
      } else {
        const DrawingPoint point = view_.toDrawing({at.x + 0.5, at.y + 0.5});
        input_.click(point.x, point.y);
      }
      break;
    case WM_MBUTTONDOWN:
      beginDrag(at);
      break;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
      if (drag_) ReleaseCapture();
      break;
    case WM_CAPTURECHANGED:
      drag_.reset();
      break;
  }
  return 0;
}

void DrawingView::beginDrag(POINT at) {
  drag_ = at;
  spaceUsed_ = spaceDown_;
  SetCapture(window_);
  SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
}

void DrawingView::pointerMoved(POINT at) {
  if (!pointer_) {
    TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, window_, 0};
    TrackMouseEvent(&leave);
  }
  if (drag_) {
    panBy(at.x - drag_->x, at.y - drag_->y);
    drag_ = at;
  }
  pointer_ = at;
  if (host_.isPicking()) InvalidateRect(window_, nullptr, FALSE);
  const DrawingPoint point = view_.toDrawing({at.x + 0.5, at.y + 0.5});
  input_.moveTo(point.x, point.y);
  hands_.moved(point);
}

LRESULT DrawingView::handleKey(UINT message, WPARAM key) {
  const int step = scaled(window_, kArrowStep);
  if (message == WM_KILLFOCUS || (message == WM_KEYUP && key == VK_SPACE)) {
    // The key alone is a blank; with a drag it only moved the drawing.
    if (message == WM_KEYUP && spaceDown_ && !spaceUsed_) hands_.typed(L' ');
    spaceDown_ = spaceUsed_ = false;
  } else if (message == WM_KEYDOWN && key == VK_SPACE) {
    spaceDown_ = true;
  } else if (message == WM_KEYDOWN && key == VK_LEFT) {
    panBy(step, 0);
  } else if (message == WM_KEYDOWN && key == VK_RIGHT) {
    panBy(-step, 0);
  } else if (message == WM_KEYDOWN && key == VK_UP) {
    panBy(0, step);
  } else if (message == WM_KEYDOWN && key == VK_DOWN) {
    panBy(0, -step);
  }
  return 0;
}

void DrawingView::handleCharacter(wchar_t c) {
  if (c != L' ') hands_.typed(c);
}

}  // namespace cadhost
