#pragma once
// Scenes of small drawings.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

#include "embedded/graphics/hit_test.h"
#include "embedded/graphics/scene.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/memory/tested_storage.h"

namespace cad {

// Layers WALL (colour 1), DOOR (colour 3), OFF (colour 5, off) and ICE (colour 6, frozen); `blocks` between
// BLOCKS and its end, `entities` in the space.
inline std::unique_ptr<Drawing> drawingOf(std::string_view entities, std::string_view blocks = {},
                                          std::string_view version = "AC1009") {
  std::string text = "0 SECTION|2 HEADER|9 $ACADVER|1 ";
  text.append(version).append(
      "|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LAYER|70 5|0 LAYER|2 0|70 0|62 7|6 CONTINUOUS|0 LAYER|2 "
      "WALL|70 "
      "0|62 1|6 CONTINUOUS|0 LAYER|2 DOOR|70 0|62 3|6 CONTINUOUS|0 LAYER|2 OFF|70 0|62 -5|6 CONTINUOUS|0 "
      "LAYER|2 ICE|70 1|62 6|6 CONTINUOUS|0 ENDTAB|0 ENDSEC");
  if (!blocks.empty()) text.append("|0 SECTION|2 BLOCKS|").append(blocks).append("|0 ENDSEC");
  text.append("|0 SECTION|2 ENTITIES");
  if (!entities.empty()) text.append("|").append(entities);
  text.append("|0 ENDSEC|0 EOF");
  return tested(dxf::read(dxf::groups(text)));
}

// A block whose base point is the origin.
inline std::string block(const std::string& name, const std::string& entities, int baseX = 0, int baseY = 0) {
  return "0 BLOCK|8 0|2 " + name + "|70 0|10 " + std::to_string(baseX) + "|20 " + std::to_string(baseY) +
         "|30 0|3 " + name + "|1 |" + entities + "|0 ENDBLK|8 0";
}

inline Scene sceneOf(std::string_view entities, std::string_view blocks = {}) {
  const auto drawing = drawingOf(entities, blocks);
  EXPECT_NE(drawing, nullptr);
  return drawing ? buildScene(*drawing) : Scene{};
}

// "left,bottom right,top", rounded to hundredths.
inline std::string text(const SceneBox& box) {
  char buffer[120];
  const auto rounded = [](double value) { return std::round(value * 100) / 100 + 0.0; };
  std::snprintf(buffer, sizeof buffer, "%g,%g %g,%g", rounded(box.left), rounded(box.bottom),
                rounded(box.right), rounded(box.top));
  return buffer;
}

}  // namespace cad
