#pragma once
// Texts as lines in the plan of their own system. Without a style the width of a text is an estimate: which
// font a window has is not known here.

#include <vector>

#include "embedded/drawing/geometry.h"
#include "embedded/graphics/scene.h"
#include "embedded/graphics/text_styles.h"

namespace cad {

std::vector<SceneText> layOut(const TextGeometry& text);
// As wide as the font of the style makes it.
std::vector<SceneText> layOut(const TextGeometry& text, const TextStyles::Style& style);

}  // namespace cad
