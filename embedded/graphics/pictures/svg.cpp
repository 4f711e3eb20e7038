#include <cmath>
#include <string>

#include "embedded/graphics/pictures/picture.h"

namespace cad {
namespace {

// Numbers stand in hundredths of a pixel, as whole ones: no rounding adds up, and all systems write them
// alike.
long long hundredths(float value) { return std::llround(static_cast<double>(value) * 100); }

void appendNumber(std::string& to, long long value) {
  if (value < 0) {
    to += '-';
    value = -value;
  }
  const long long whole = value / 100, rest = value % 100;
  if (whole > 0 || rest == 0) to += std::to_string(whole);
  if (rest == 0) return;
  to += '.';
  to += static_cast<char>('0' + rest / 10);
  if (rest % 10 != 0) to += static_cast<char>('0' + rest % 10);
}

// Behind a number the sign is separator enough.
void appendPair(std::string& to, long long x, long long y, bool separated) {
  if (separated && x >= 0) to += ' ';
  appendNumber(to, x);
  if (y >= 0) to += ' ';
  appendNumber(to, y);
}

class SvgWriter {
 public:
  explicit SvgWriter(const Picture& picture) : picture_(picture) {}

  std::string text() {
    const std::string width = std::to_string(picture_.width), height = std::to_string(picture_.height);
    out_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\" viewBox=\"0 0 " + width + " " + height + "\">\n";
    writeClips();
    out_ += "<rect width=\"100%\" height=\"100%\" fill=\"" + color(picture_.background) +
            "\"/>\n<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    write(picture_.shapes);
    if (!picture_.halos.empty()) {
      out_ += "<g opacity=\"" + share(picture_.haloOpacity) + "\">\n";
      write(picture_.halos);
      out_ += "</g>\n";
      write(picture_.markedShapes);
    }
    return out_ + "</g>\n</svg>\n";
  }

 private:
  static std::string color(Rgb rgb) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[rgb >> shift & 15];
    return text;
  }

  static std::string share(std::uint8_t opacity) {
    std::string text;
    appendNumber(text, (opacity * 100 + 127) / 255);
    return text;
  }

  void writeClips() {
    if (picture_.clips.empty()) return;
    out_ += "<defs>\n";
    for (std::size_t i = 0; i < picture_.clips.size(); ++i) {
      out_ += "<clipPath id=\"c" + std::to_string(i) + "\"><path clip-rule=\"evenodd\" d=\"";
      writePath(picture_.clips[i]);
      out_ += "\"/></clipPath>\n";
    }
    out_ += "</defs>\n";
  }

  void write(const std::vector<PictureShape>& shapes) {
    std::uint32_t clip = kNoClip;
    const auto change = [&](std::uint32_t to) {
      if (clip == to) return;
      if (clip != kNoClip) out_ += "</g>\n";
      if (to != kNoClip) out_ += "<g clip-path=\"url(#c" + std::to_string(to) + ")\">\n";
      clip = to;
    };
    for (const PictureShape& shape : shapes) {
      if (shape.count == 0) continue;
      change(shape.clip);
      writeShape(shape);
    }
    change(kNoClip);
  }

  void writeShape(const PictureShape& shape) {
    if (shape.width > 0) {
      out_ += "<path stroke=\"" + color(shape.color) + "\" stroke-width=\"";
      appendNumber(out_, hundredths(shape.width));
      out_ += '"';
    } else {
      out_ += "<path fill=\"" + color(shape.color) + '"';
      if (shape.evenOdd) out_ += " fill-rule=\"evenodd\"";
    }
    if (shape.opacity < 255)
      out_ += (shape.width > 0 ? " stroke-opacity=\"" : " fill-opacity=\"") + share(shape.opacity) + '"';
    out_ += " d=\"";
    writePath(shape);
    out_ += "\"/>\n";
  }

  // The steps from point to point, behind the first.
  void writePath(const PictureShape& shape) {
    for (const PictureRun& run : picture_.runsOf(shape)) {
      long long x = 0, y = 0;
      bool isFirst = true, hasSteps = false;
      for (const PicturePoint& at : picture_.pointsOf(run)) {
        const long long toX = hundredths(at.x), toY = hundredths(at.y);
        if (isFirst) {
          out_ += 'M';
          appendPair(out_, toX, toY, false);
        } else if (toX != x || toY != y) {
          if (!hasSteps) out_ += 'l';
          appendPair(out_, toX - x, toY - y, hasSteps);
          hasSteps = true;
        }
        isFirst = false;
        x = toX, y = toY;
      }
      if (!hasSteps) out_ += "h0";  // a dot
      if (run.closed && hasSteps) out_ += 'z';
    }
  }

  const Picture& picture_;
  std::string out_;
};

}  // namespace

std::string svgText(const Picture& picture) { return SvgWriter(picture).text(); }

}  // namespace cad
