// Pictures of pixels by the system's library for vector graphics.

#include <cairo.h>

#include <memory>

#include "base/raster.h"

namespace base {
namespace {

constexpr double kFull = 255;

class CairoRaster final : public Raster {
 public:
  CairoRaster(int width, int height, std::uint32_t background)
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
        context_(cairo_create(surface_)) {
    cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
    setColor({background, 255});
    cairo_paint(context_);
  }
  ~CairoRaster() override {
    cairo_destroy(context_);
    cairo_surface_destroy(surface_);
  }
  CairoRaster(const CairoRaster&) = delete;
  CairoRaster& operator=(const CairoRaster&) = delete;

  bool isSound() const { return cairo_status(context_) == CAIRO_STATUS_SUCCESS; }

  void fill(const RasterPath& path, RasterColor color, bool evenOdd) override {
    trace(path);
    setColor(color);
    cairo_set_fill_rule(context_, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_fill(context_);
  }

  // A run at a time: where runs of one path lie close together, joining them costs more than painting them.
  // What is not opaque would show the overlaps.
  void stroke(const RasterPath& path, RasterColor color, float width) override {
    setColor(color);
    cairo_set_line_width(context_, static_cast<double>(width));
    if (color.opacity < 255) {
      trace(path);
      cairo_stroke(context_);
      return;
    }
    for (const RasterRun& run : path.runs) {
      trace({{&run, 1}, path.points});
      cairo_stroke(context_);
    }
  }

  void clip(const RasterPath& path) override {
    cairo_save(context_);
    trace(path);
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(context_);
  }
  void unclip() override { cairo_restore(context_); }

  void beginSheet() override { cairo_push_group(context_); }
  void endSheet(std::uint8_t opacity) override {
    cairo_pop_group_to_source(context_);
    cairo_paint_with_alpha(context_, opacity / kFull);
  }

  Result<std::string> png() override {
    std::string bytes;
    const auto append = [](void* to, const unsigned char* data, unsigned int length) {
      static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
      return CAIRO_STATUS_SUCCESS;
    };
    cairo_status_t status = cairo_status(context_);
    if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_write_to_png_stream(surface_, append, &bytes);
    if (status == CAIRO_STATUS_SUCCESS) return bytes;
    const std::string reason = cairo_status_to_string(status);
    return Failure{{}, L"The picture cannot be painted: " + std::wstring(reason.begin(), reason.end())};
  }

 private:
  void setColor(RasterColor color) {
    const auto channel = [&](int shift) { return (color.rgb >> shift & 0xFF) / kFull; };
    cairo_set_source_rgba(context_, channel(16), channel(8), channel(0), color.opacity / kFull);
  }

  void trace(const RasterPath& path) {
    cairo_new_path(context_);
    for (const RasterRun& run : path.runs) {
      cairo_new_sub_path(context_);
      for (const RasterPoint& at : path.points.subspan(run.first, run.count))
        cairo_line_to(context_, static_cast<double>(at.x), static_cast<double>(at.y));
      if (run.closed || run.count == 1) cairo_close_path(context_);  // of one point: a dot
    }
  }

  cairo_surface_t* surface_;
  cairo_t* context_;
};

}  // namespace
}  // namespace base

extern "C" base::Raster* kivCreateRaster(int width, int height, std::uint32_t background) {
  auto raster = std::make_unique<base::CairoRaster>(width, height, background);
  return raster->isSound() ? raster.release() : nullptr;
}
