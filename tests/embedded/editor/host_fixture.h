#pragma once
// A started host over a folder of its own, with what it printed.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "acedads.h"
#include "base/files.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host.h"
#include "tests/support/temp_path.h"

namespace cad_test {

inline std::string groups(std::initializer_list<std::pair<int, const char*>> list) {
  std::string out;
  for (const auto& [code, value] : list) {
    std::string number = std::to_string(code);
    out += std::string(number.size() < 3 ? 3 - number.size() : 0, ' ') + number + "\r\n" + value + "\r\n";
  }
  return out;
}

// Layers 0, WALL-A, WALL-B and a locked LOCKED; a text style KANJI; a block DOOR; in model space, in this
// order: TEXT WALL-A colour 1, TEXT WALL-B in KANJI, LINE WALL-A, LINE LOCKED, INSERT of DOOR, CIRCLE 0 in
// paper space.
inline std::string drawingText(const char* extraEntity = "") {
  std::string out =
      groups({{0, "SECTION"},  {2, "HEADER"},   {9, "$ACADVER"}, {1, "AC1009"},     {9, "$DWGCODEPAGE"},
              {3, "ANSI_932"}, {9, "$LTSCALE"}, {40, "1.0"},     {9, "$DIMSCALE"},  {40, "1.0"},
              {9, "$DIMBLK"},  {1, ""},         {9, "$DIMTAD"},  {70, "0"},         {9, "$CLAYER"},
              {8, "0"},        {9, "$CECOLOR"}, {62, "256"},     {9, "$TEXTSTYLE"}, {7, "STANDARD"},
              {9, "$USERR1"},  {40, "0.0"},     {0, "ENDSEC"}});
  out += groups({{0, "SECTION"},    {2, "TABLES"},     {0, "TABLE"},  {2, "LTYPE"},      {70, "1"},
                 {0, "LTYPE"},      {2, "CONTINUOUS"}, {70, "0"},     {3, "Solid line"}, {72, "65"},
                 {73, "0"},         {40, "0.0"},       {0, "ENDTAB"}, {0, "TABLE"},      {2, "LAYER"},
                 {70, "4"},         {0, "LAYER"},      {2, "0"},      {70, "0"},         {62, "7"},
                 {6, "CONTINUOUS"}, {0, "LAYER"},      {2, "WALL-A"}, {70, "0"},         {62, "1"},
                 {6, "CONTINUOUS"}, {0, "LAYER"},      {2, "WALL-B"}, {70, "0"},         {62, "2"},
                 {6, "CONTINUOUS"}, {0, "LAYER"},      {2, "LOCKED"}, {70, "4"},         {62, "3"},
                 {6, "CONTINUOUS"}, {0, "LAYER"},      {2, "FROZEN"}, {70, "1"},         {62, "3"},
                 {6, "CONTINUOUS"}, {0, "ENDTAB"},     {0, "TABLE"},  {2, "STYLE"},      {70, "2"},
                 {0, "STYLE"},      {2, "STANDARD"},   {70, "0"},     {40, "0.0"},       {41, "1.0"},
                 {50, "0.0"},       {71, "0"},         {42, "2.5"},   {3, "txt"},        {4, ""},
                 {0, "STYLE"},      {2, "KANJI"},      {70, "0"},     {40, "0.0"},       {41, "0.8"},
                 {50, "0.0"},       {71, "0"},         {42, "2.5"},   {3, "txt.shx"},    {4, "bigfont.shx"},
                 {0, "ENDTAB"},     {0, "ENDSEC"}});
  out += groups({{0, "SECTION"},
                 {2, "BLOCKS"},
                 {0, "BLOCK"},
                 {8, "0"},
                 {2, "DOOR"},
                 {70, "0"},
                 {10, "0.0"},
                 {20, "0.0"},
                 {30, "0.0"},
                 {3, "DOOR"},
                 {0, "LINE"},
                 {8, "WALL-A"},
                 {10, "0.0"},
                 {20, "0.0"},
                 {11, "1.0"},
                 {21, "0.0"},
                 {0, "ENDBLK"},
                 {8, "0"},
                 {0, "ENDSEC"}});
  out += groups({{0, "SECTION"}, {2, "ENTITIES"}, {0, "TEXT"}, {8, "WALL-A"}, {62, "1"},     {10, "0.0"},
                 {20, "0.0"},    {40, "2.5"},     {1, "ONE"},  {0, "TEXT"},   {8, "WALL-B"}, {10, "0.0"},
                 {20, "5.0"},    {40, "3.5"},     {1, "TWO"},  {7, "KANJI"},  {0, "LINE"},   {8, "WALL-A"},
                 {10, "0.0"},    {20, "0.0"},     {11, "1.0"}, {21, "0.0"},   {0, "LINE"},   {8, "LOCKED"},
                 {62, "5"},      {10, "0.0"},     {20, "0.0"}, {11, "1.0"},   {21, "0.0"},   {0, "INSERT"},
                 {8, "WALL-B"},  {2, "DOOR"},     {10, "3.0"}, {20, "3.0"},   {0, "CIRCLE"}, {67, "1"},
                 {8, "0"},       {10, "0.0"},     {20, "0.0"}, {40, "1.0"}});
  out += extraEntity;
  return out + groups({{0, "ENDSEC"}, {0, "EOF"}});
}

class HostTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    folder_ = test_support::tempPath("editor_test_" + name);
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    host().setOutput([this](std::wstring_view text) { printed_ += text; });
    host().start();
  }
  void TearDown() override {
    host().stop();
    host().setOutput(nullptr);
    host().setSupportPath({});
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  cad::Host& host() { return cad::Host::instance(); }
  cad::Drawing& drawing() { return host().currentDrawing(); }

  std::filesystem::path write(const std::filesystem::path& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }
  std::string read(const std::filesystem::path& path) {
    std::ostringstream out;
    out << std::ifstream(path, std::ios::binary).rdbuf();
    return out.str();
  }
  // The standard drawing, opened.
  std::filesystem::path open(const std::string& name = "plan.dxf") {
    const std::filesystem::path path = write(name, drawingText());
    const base::Status opened = host().openDocument(path);
    EXPECT_TRUE(opened.ok()) << base::pathFromText(opened.ok() ? L"" : opened.failure().text());
    return path;
  }
  // What a save of the current drawing holds.
  std::string savedBytes() {
    const std::filesystem::path path = folder_ / "saved_for_comparison.dxf";
    EXPECT_TRUE(drawing().save(path).ok());
    return read(path);
  }
  std::wstring text(const std::filesystem::path& path) { return base::pathText(path); }
  bool exists(const std::string& name) { return std::filesystem::exists(folder_ / name); }
  bool printedHas(std::wstring_view part) { return printed_.find(part) != std::wstring::npos; }

  std::filesystem::path folder_;
  std::wstring printed_;
};

}  // namespace cad_test
