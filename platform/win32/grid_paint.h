#pragma once

#include <string>

#include "platform/win32/grid_layout.h"
#include "platform/win32/grid_rows.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

struct GridLook {
  const GridLayout& layout;
  const GridRows& rows;
  const std::wstring& title;
  HFONT font;
  bool enabled;
};

// Draws the whole inner area.
void paintGrid(HDC canvas, const GridLook& look);

}  // namespace kiv::win32
