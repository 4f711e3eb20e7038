#pragma once
// A drawing with one entity of every sort that conditions and results tell apart, open in the host, and
// conversion runs on it.

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/drawing/drawing.h"
#include "embedded/editor/host.h"
#include "engine/conversion_run.h"
#include "tests/embedded/memory/tested_storage.h"
#include "tests/support/temp_folder.h"

namespace engine_test {

// One group a line, "8 WALL", as DXF text.
std::string dxf(std::string_view groups);

// The sample drawing with other entities, and with `blocks` besides its own; both in the form of dxf().
std::string drawing(std::string_view entities, std::string_view blocks = "");

using Note = kiv::RefusalNote;

class Problems : public kiv::ProblemSink {
 public:
  void addToLog(const std::wstring& text) override { problems.push_back(text); }
  void addToReport(const std::wstring& text) override { reported.push_back(text); }
  void addNote(const Note& note) override { notes.push_back(note); }
  std::vector<std::wstring> problems, reported;
  std::vector<Note> notes;
};

// Handles of the entities of the sample drawing. All stand on the layer ALL, have the linetype DASHED, colour
// 2, lineweight 0.25 mm, 30 % transparency and linetype scale 2. Texts have the style KANJI, the height 3.5
// and the angle 90 degrees; the dimension and the leader get these from their dimension style, with DIMTAD 1.
// Width factor 0.8 where there is one. The texts read ROOM 101, the dimension's override reads ROOM 102.
inline constexpr std::uint64_t kText = 0xA1, kMText = 0xA2, kAttdef = 0xA3, kDimension = 0xA4, kLeader = 0xA5,
                               kHatch = 0xA6, kInsert = 0xA7, kLine = 0xA8;
std::string sampleDrawing();
inline constexpr std::string_view kNoDwg = "AC1009";  // a version of which no DWG drawings are read

class RunTest : public test_support::TempFolder {
 protected:
  void SetUp() override;
  void TearDown() override;

  void open(const std::string& bytes);
  // Writes the specification beside the drawing and runs it. Sections are named by their header lines.
  kiv::RunOutcome run(const std::map<std::wstring, std::wstring>& sections);
  // The same setting in the four sections of entities.
  kiv::RunOutcome runOnAll(const std::wstring& setting);
  void set(const wchar_t* setting, int value);  // a common setting

  cad::Drawing& drawing() { return cad::Host::instance().currentDrawing(); }
  cad::RecordId entity(std::uint64_t handle) { return drawing().findHandle(handle); }
  std::int64_t integer(std::uint64_t handle, cad::Property property);
  double real(std::uint64_t handle, cad::Property property);
  std::wstring name(std::uint64_t handle, cad::Property property);
  std::int64_t color(std::uint64_t handle) { return integer(handle, cad::Property::kColorIndex); }
  cad::RecordId layer(const wchar_t* layerName) { return drawing().find(cad::Table::kLayer, layerName); }
  std::string savedBytes();
  void undo();

  kiv::RunParameters parameters_;
  Problems sink_;
  std::wstring printed_;
};

// Conversions of the sample drawing that one UNDO takes back, to the byte.
class UndoneRunTest : public RunTest {
 protected:
  void SetUp() override;
  void TearDown() override;
  std::int64_t layerInteger(const wchar_t* layerName, cad::Property property) {
    return drawing().integer(layer(layerName), property).value_or(-999);
  }

  std::string before_;
};

}  // namespace engine_test
