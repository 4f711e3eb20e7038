// Pictures of pixels by GDI+.

#include <windows.h>

// The system's header for GDI+ needs all of these; NOMINMAX takes its own two functions away.
#include <objidl.h>
#include <propidl.h>

#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/raster.h"

namespace base {
namespace {

namespace gdi = Gdiplus;

constexpr float kFull = 255;

bool startGdiPlus() {
  static ULONG_PTR token = 0;
  static const gdi::Status kStarted = [] {
    const gdi::GdiplusStartupInput input;
    return gdi::GdiplusStartup(&token, &input, nullptr);
  }();
  return kStarted == gdi::Ok;
}

bool findEncoder(const wchar_t* type, CLSID& found) {
  UINT count = 0, size = 0;
  if (gdi::GetImageEncodersSize(&count, &size) != gdi::Ok || size == 0) return false;
  std::vector<char> memory(size);
  auto* encoders = reinterpret_cast<gdi::ImageCodecInfo*>(memory.data());
  if (gdi::GetImageEncoders(count, size, encoders) != gdi::Ok) return false;
  for (UINT i = 0; i < count; ++i) {
    if (std::wstring_view(encoders[i].MimeType) != type) continue;
    found = encoders[i].Clsid;
    return true;
  }
  return false;
}

// What is painted on: the picture, or a sheet over it.
struct Sheet {
  Sheet(int width, int height) : bitmap(width, height, PixelFormat32bppPARGB), graphics(&bitmap) {
    graphics.SetSmoothingMode(gdi::SmoothingModeAntiAlias);
    graphics.SetPixelOffsetMode(gdi::PixelOffsetModeHalf);
  }
  bool isSound() { return bitmap.GetLastStatus() == gdi::Ok && graphics.GetLastStatus() == gdi::Ok; }
  gdi::Bitmap bitmap;
  gdi::Graphics graphics;
  std::vector<gdi::GraphicsState> states;  // before each clip
};

class GdiPlusRaster final : public Raster {
 public:
  GdiPlusRaster(int width, int height, std::uint32_t background)
      : width_(width), height_(height), picture_(width, height) {
    picture_.graphics.Clear(colorOf({background, 255}));
  }

  bool isSound() { return picture_.isSound(); }

  void fill(const RasterPath& path, RasterColor color, bool evenOdd) override {
    gdi::GraphicsPath traced(evenOdd ? gdi::FillModeAlternate : gdi::FillModeWinding);
    trace(path, traced);
    const gdi::SolidBrush brush(colorOf(color));
    sheet().graphics.FillPath(&brush, &traced);
  }

  // A dot is no line to GDI+.
  void stroke(const RasterPath& path, RasterColor color, float width) override {
    gdi::Pen pen(colorOf(color), width);
    pen.SetStartCap(gdi::LineCapRound);
    pen.SetEndCap(gdi::LineCapRound);
    pen.SetLineJoin(gdi::LineJoinRound);
    gdi::GraphicsPath traced;
    trace(path, traced);
    sheet().graphics.DrawPath(&pen, &traced);
    const gdi::SolidBrush brush(colorOf(color));
    for (const RasterRun& run : path.runs) {
      if (run.count != 1) continue;
      const RasterPoint& at = path.points[run.first];
      sheet().graphics.FillEllipse(&brush, at.x - width / 2, at.y - width / 2, width, width);
    }
  }

  void clip(const RasterPath& path) override {
    sheet().states.push_back(sheet().graphics.Save());
    gdi::GraphicsPath traced(gdi::FillModeAlternate);
    trace(path, traced);
    sheet().graphics.SetClip(&traced, gdi::CombineModeIntersect);
  }
  void unclip() override {
    sheet().graphics.Restore(sheet().states.back());
    sheet().states.pop_back();
  }

  void beginSheet() override { over_ = std::make_unique<Sheet>(width_, height_); }
  void endSheet(std::uint8_t opacity) override {
    gdi::ColorMatrix share = {{{1, 0, 0, 0, 0},
                               {0, 1, 0, 0, 0},
                               {0, 0, 1, 0, 0},
                               {0, 0, 0, static_cast<float>(opacity) / kFull, 0},
                               {0, 0, 0, 0, 1}}};
    gdi::ImageAttributes attributes;
    attributes.SetColorMatrix(&share);
    const std::unique_ptr<Sheet> over = std::move(over_);
    if (!over->isSound() ||
        picture_.graphics.DrawImage(&over->bitmap, gdi::Rect(0, 0, width_, height_), 0, 0, width_, height_,
                                    gdi::UnitPixel, &attributes) != gdi::Ok)
      failed_ = true;
  }

  Result<std::string> png() override {
    const Failure failure{{}, L"The picture cannot be painted: there is not enough memory"};
    CLSID encoder{};
    IStream* stream = nullptr;
    if (failed_ || !findEncoder(L"image/png", encoder) ||
        CreateStreamOnHGlobal(nullptr, TRUE, &stream) != S_OK)
      return failure;
    std::string bytes;
    HGLOBAL memory = nullptr;
    STATSTG facts{};
    if (picture_.bitmap.Save(stream, &encoder, nullptr) == gdi::Ok &&
        GetHGlobalFromStream(stream, &memory) == S_OK && stream->Stat(&facts, STATFLAG_NONAME) == S_OK) {
      bytes.assign(static_cast<const char*>(GlobalLock(memory)),
                   static_cast<std::size_t>(facts.cbSize.QuadPart));
      GlobalUnlock(memory);
    }
    stream->Release();
    if (bytes.empty()) return failure;
    return bytes;
  }

 private:
  Sheet& sheet() { return over_ ? *over_ : picture_; }

  static gdi::Color colorOf(RasterColor color) {
    const auto channel = [&](int shift) { return static_cast<BYTE>(color.rgb >> shift & 0xFF); };
    return {color.opacity, channel(16), channel(8), channel(0)};
  }

  static void trace(const RasterPath& path, gdi::GraphicsPath& to) {
    std::vector<gdi::PointF> points;
    for (const RasterRun& run : path.runs) {
      if (run.count < 2) continue;
      points.clear();
      for (const RasterPoint& at : path.points.subspan(run.first, run.count)) points.emplace_back(at.x, at.y);
      to.StartFigure();
      to.AddLines(points.data(), static_cast<INT>(points.size()));
      if (run.closed) to.CloseFigure();
    }
  }

  int width_, height_;
  Sheet picture_;
  std::unique_ptr<Sheet> over_;
  bool failed_ = false;
};

}  // namespace
}  // namespace base

extern "C" __declspec(dllexport) base::Raster* kivCreateRaster(int width, int height,
                                                               std::uint32_t background) {
  if (!base::startGdiPlus()) return nullptr;
  auto raster = std::make_unique<base::GdiPlusRaster>(width, height, background);
  return raster->isSound() ? raster.release() : nullptr;
}
