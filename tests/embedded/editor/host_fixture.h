#pragma once
// A started host over a folder of its own, with what it printed.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "acedads.h"
#include "base/files.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host.h"
#include "tests/embedded/memory/tested_storage.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_file.h"

namespace cad_test {

// The drawing of plan.dxf: layers 0, WALL-A, WALL-B and a locked LOCKED; a text style KANJI; a block DOOR; in
// model space, in this order: TEXT WALL-A colour 1, TEXT WALL-B in KANJI, LINE WALL-A, LINE LOCKED, INSERT of
// DOOR, CIRCLE 0 in paper space.
inline std::string drawingText() { return test_support::testFile("embedded/editor/plan.dxf"); }
// Its file in the storage that is tested.
inline std::string drawingFile() { return cad::testedFile(drawingText()); }

class HostTest : public test_support::TempFolder {
 protected:
  void SetUp() override {
    host().setOutput([this](std::wstring_view text) { printed_ += text; });
    host().start();
  }
  void TearDown() override {
    host().stop();
    host().setOutput(nullptr);
    host().setSupportPath({});
  }

  cad::Host& host() { return cad::Host::instance(); }
  cad::Drawing& drawing() { return host().currentDrawing(); }

  // The standard drawing, opened.
  std::filesystem::path open(const std::string& name = "plan.dxf") {
    const std::filesystem::path path = make(name, drawingFile());
    const base::Status opened = host().openDocument(path);
    EXPECT_TRUE(opened.ok()) << base::pathFromText(opened.ok() ? L"" : opened.failure().text());
    return path;
  }
  // What a save of the current drawing holds.
  std::string savedBytes() {
    const std::filesystem::path path = folder_ / "saved_for_comparison.dxf";
    EXPECT_TRUE(drawing().save(path).ok());
    return content(path);
  }
  std::wstring text(const std::filesystem::path& path) { return base::pathText(path); }
  bool exists(const std::string& name) { return std::filesystem::exists(folder_ / name); }
  bool printedHas(std::wstring_view part) { return printed_.find(part) != std::wstring::npos; }

  std::wstring printed_;
};

}  // namespace cad_test
