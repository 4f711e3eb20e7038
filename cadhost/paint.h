#pragma once
// A scene into a picture: what is out of sight is skipped, what is smaller than a pixel becomes a dot.

#include <cstddef>
#include <vector>

#include "cadhost/canvas.h"
#include "cadhost/view_transform.h"
#include "embedded/graphics/scene.h"

namespace cadhost {

inline constexpr Rgb kBackground = 0x12161B;
inline constexpr Rgb kHighlight = 0xFFB000;

// A text that is large enough to be read, in the order of the scene.
struct VisibleText {
  const cad::SceneText* text = nullptr;
  Rgb color = 0;
};

class ScenePainter {
 public:
  ScenePainter(Canvas& canvas, const ViewTransform& view) : canvas_(canvas), view_(view) {}

  // Everything within the canvas's clip, except the texts that can be read: those are for the caller, who
  // has the fonts. They stay valid as long as the scene.
  std::vector<VisibleText> paint(const cad::Scene& scene);
  // The objects of one entity dashed; texts by their boxes.
  void highlight(const cad::Scene& scene, cad::RecordId entity);

 private:
  bool isVisible(const cad::SceneBox& box) const;
  bool isDot(const cad::SceneBox& box) const;
  void paintItem(const cad::Scene& scene, const cad::SceneItem& item);
  void paintTexts(const cad::Scene& scene, const cad::SceneItem& item, std::vector<VisibleText>& texts);
  void highlightItem(const cad::Scene& scene, const cad::SceneItem& item);
  // The loop's points in pixels_, appended; a closed loop ends with its first point.
  void addLoop(const cad::Scene& scene, const cad::SceneLoop& loop);
  void fillLoops(const cad::Scene& scene, const cad::SceneItem& item, Rgb color);
  template <class Draw>
  void eachLine(const cad::Scene& scene, const cad::SceneItem& item, Draw draw);

  Canvas& canvas_;
  const ViewTransform& view_;
  cad::SceneBox sight_;        // of the clip, drawing units
  std::vector<Pixel> pixels_;  // reused for every loop
  std::vector<std::size_t> ends_;
  std::vector<cad::ScenePoint> flat_;
};

// The corners of the text's box, from its origin against the clock.
struct TextCorners {
  Pixel corner[4];
};
TextCorners textCorners(const cad::SceneText& text, const ViewTransform& view);

}  // namespace cadhost
