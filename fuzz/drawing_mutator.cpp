// Changes drawings group by group and record by record, so that most of what comes out is a drawing still and
// reaches the code behind the reader.

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/choice.h"
#include "fuzz/drawing_pieces.h"
#include "fuzz/input.h"

namespace fuzz {
namespace {

using cad::dxf::ValueType;
using cad::dxf::valueType;

struct CodeAndValue {
  int code;
  const char* value;
};

// What properties are read from, and what is around them.
constexpr CodeAndValue kGroups[] = {{8, "0"},
                                    {8, "A-壁"},
                                    {6, "CENTER"},
                                    {6, "ByBlock"},
                                    {62, "1"},
                                    {62, "256"},
                                    {62, "-7"},
                                    {62, "0"},
                                    {420, "16711680"},
                                    {430, "BOOK$RED"},
                                    {370, "25"},
                                    {370, "-1"},
                                    {440, "0"},
                                    {440, "33554559"},
                                    {48, "0.5"},
                                    {60, "1"},
                                    {67, "1"},
                                    {410, "Layout1"},
                                    {5, "20"},
                                    {5, "FFFFFFFF"},
                                    {330, "1F"},
                                    {7, "Standard"},
                                    {7, "ROMANS"},
                                    {40, "2.5"},
                                    {41, "0.8"},
                                    {50, "90"},
                                    {51, "15"},
                                    {1, "x"},
                                    {1, "%%c\\U+5BA4"},
                                    {2, "B"},
                                    {3, "STANDARD"},
                                    {3, "more"},
                                    {70, "1"},
                                    {66, "1"},
                                    {11, "1"},
                                    {21, "0"},
                                    {31, "0"},
                                    {53, "45"},
                                    {101, "Embedded Object"},
                                    {102, "{ACAD_REACTORS"},
                                    {102, "{ACAD_XDICTIONARY"},
                                    {102, "}"},
                                    {1001, "ACAD"},
                                    {1000, "DSTYLE"},
                                    {1002, "{"},
                                    {1002, "}"},
                                    {1070, "41"},
                                    {1040, "3"},
                                    {1071, "1"},
                                    {1003, "A-壁"},
                                    {1005, "20"},
                                    {1001, "AcCmTransparency"},
                                    {310, "00FF"},
                                    {290, "0"},
                                    {999, "comment"}};
constexpr const char* kMarkers[] = {"AcDbEntity",
                                    "AcDbLine",
                                    "AcDbText",
                                    "AcDbMText",
                                    "AcDbBlockReference",
                                    "AcDbDimension",
                                    "AcDbAlignedDimension",
                                    "AcDbLeader",
                                    "AcDbAttribute",
                                    "AcDbAttributeDefinition",
                                    "AcDbHatch",
                                    "AcDbSymbolTableRecord",
                                    "AcDbLayerTableRecord",
                                    "AcDbLinetypeTableRecord",
                                    "acdbentity",
                                    "AcDbUnknown"};
constexpr const char* kTypes[] = {"LINE",
                                  "TEXT",
                                  "MTEXT",
                                  "INSERT",
                                  "ATTRIB",
                                  "ATTDEF",
                                  "SEQEND",
                                  "DIMENSION",
                                  "LEADER",
                                  "TOLERANCE",
                                  "HATCH",
                                  "POLYLINE",
                                  "VERTEX",
                                  "LWPOLYLINE",
                                  "CIRCLE",
                                  "SPLINE",
                                  "VIEWPORT",
                                  "ACAD_TABLE",
                                  "ACAD_PROXY_ENTITY",
                                  "LAYER",
                                  "LTYPE",
                                  "STYLE",
                                  "DIMSTYLE",
                                  "APPID",
                                  "BLOCK_RECORD",
                                  "VPORT",
                                  "LAYOUT",
                                  "line",
                                  "UNHEARD"};
constexpr const char* kTexts[] = {"",
                                  " ",
                                  "0",
                                  "A-壁",
                                  "a-壁",
                                  "Standard",
                                  "ByLayer",
                                  "BYBLOCK",
                                  "Continuous",
                                  "*Model_Space",
                                  "*Paper_Space",
                                  "*D1",
                                  "B",
                                  "\\U+",
                                  "\\U+D800",
                                  "\\M+18140",
                                  "^",
                                  "^J",
                                  "%%",
                                  "\x95",
                                  "\x81\x5c",
                                  "}",
                                  "{",
                                  "\\P{\\fArial;x}",
                                  "AC1009",
                                  "AC1015",
                                  "AC1021",
                                  "AC1032",
                                  "ANSI_932",
                                  "ANSI_1252",
                                  "ansi_936",
                                  "utf-8",
                                  "HEADER",
                                  "LAYER"};
constexpr const char* kIntegers[] = {"0",   "1",   "-1",    "7",      "255",   "256",
                                     "257", "211", "32767", "-32768", "65535", "2147483647",
                                     "+1",  " 1 ", "",      "1.0",    "x"};
constexpr const char* kReals[] = {"0",
                                  "0.0",
                                  "-0.0",
                                  "1",
                                  "2.5",
                                  "-2.5",
                                  "90",
                                  "360",
                                  "1e300",
                                  "1E-320",
                                  "1.",
                                  ".5",
                                  "+3",
                                  "1e999",
                                  "nan",
                                  "",
                                  " 2.5 ",
                                  "1,5",
                                  "0.30000000000000004"};
constexpr const char* kHandles[] = {"0", "1", "20", "ff", "0020", "FFFFFFFFFFFFFFFF", "10000000000000000",
                                    "",  "g"};
constexpr const char* kVersions[] = {"AC1006", "AC1009", "AC1012", "AC1014", "AC1015", "AC1018", "AC1021",
                                     "AC1024", "AC1027", "AC1032", "AC1099", "",       "ac1015"};
constexpr CodeAndValue kVariables[] = {{8, "$CLAYER"},    {40, "$DIMASZ"},  {1, "$DIMBLK"},
                                       {2, "$DIMSTYLE"},  {5, "$HANDSEED"}, {3, "$DWGCODEPAGE"},
                                       {70, "$TILEMODE"}, {70, "$DIMLWD"},  {62, "$CECOLOR"},
                                       {40, "$LTSCALE"},  {1, "$ACADVER"},  {10, "$EXTMIN"}};

struct Work {
  DrawingPieces& drawing;
  Choice& choice;
  std::vector<Span> records = drawing.records();

  std::vector<Piece>& pieces() { return drawing.pieces; }
  auto at(std::size_t index) { return pieces().begin() + static_cast<std::ptrdiff_t>(index); }
  const Span& anyRecord() { return choice.of(records); }
  // Not the group that begins the record, unless there is no other.
  std::size_t groupOf(const Span& record) {
    return std::min(choice.between(record.begin + 1, record.end), record.end - 1);
  }
  const Span* anyContent() {  // a record that is no frame
    for (int tries = 0; tries < 8; ++tries) {
      const Span& record = anyRecord();
      if (!record.frame) return &record;
    }
    return nullptr;
  }
  std::string textFor(int code) {
    switch (valueType(code)) {
      case ValueType::kReal:
        return choice.of(kReals);
      case ValueType::kHandle:
        return choice.of(kHandles);
      case ValueType::kText:
      case ValueType::kChunk:
        return code == 100 ? choice.of(kMarkers) : choice.of(kTexts);
      default:
        return choice.of(kIntegers);
    }
  }
};

// --- Groups --------------------------------------------------------------------------------------------

void swapGroups(Work& work) {
  const Span& record = work.anyRecord();
  if (record.end - record.begin < 3) return;
  std::swap(work.pieces()[work.groupOf(record)], work.pieces()[work.groupOf(record)]);
}

void duplicateGroup(Work& work) {
  const Span& record = work.anyRecord();
  const Piece copy = work.pieces()[work.groupOf(record)];
  if (copy.code == 0) return;
  work.pieces().insert(work.at(work.choice.between(record.begin + 1, record.end)), copy);
}

void deleteGroup(Work& work) {
  const std::size_t index = work.groupOf(work.anyRecord());
  if (work.pieces()[index].code != 0) work.pieces().erase(work.at(index));
}

void addGroup(Work& work) {
  const Span& record = work.anyRecord();
  const CodeAndValue& group = work.choice.of(kGroups);
  work.pieces().insert(work.at(work.choice.between(record.begin + 1, record.end)),
                       work.drawing.make(group.code, group.value));
}

void addMarker(Work& work) {
  const Span& record = work.anyRecord();
  work.pieces().insert(work.at(work.choice.between(record.begin + 1, record.end)),
                       work.drawing.make(100, work.choice.of(kMarkers)));
}

void moveBehindMarker(Work& work) {
  const Span& record = work.anyRecord();
  std::vector<std::size_t> markers;
  for (std::size_t i = record.begin; i < record.end; ++i) {
    if (work.pieces()[i].code == 100) markers.push_back(i);
  }
  if (markers.empty()) return addMarker(work);
  const std::size_t from = work.groupOf(record), to = work.choice.of(markers) + 1;
  const auto first = work.at(from), place = work.at(to);
  if (from < to) {
    std::rotate(first, first + 1, place);
  } else {
    std::rotate(place, first, first + 1);
  }
}

void addComment(Work& work) {
  const std::size_t place = work.choice.below(work.pieces().size() + 1);
  work.pieces().insert(work.at(place), work.drawing.make(999, work.choice.of(kTexts)));
}

// --- Values --------------------------------------------------------------------------------------------

void changeValue(Work& work) {
  Piece& piece = work.pieces()[work.groupOf(work.anyRecord())];
  if (piece.code != 0) work.drawing.setValue(piece, work.textFor(piece.code));
}

void borrowValue(Work& work) {
  Piece& piece = work.pieces()[work.groupOf(work.anyRecord())];
  const Piece& other = work.choice.of(work.pieces());
  const bool movable = piece.code != 0 && other.code != 0;
  if (movable && valueType(piece.code) == valueType(other.code)) piece.value = std::string(other.value);
}

// What libFuzzer makes of the value, within its line and its length.
void changeBytes(Work& work) {
  Piece& piece = work.pieces()[work.groupOf(work.anyRecord())];
  if (piece.code == 0) return;
  std::string value = piece.value;
  const std::size_t size = value.size();
  const bool grows = !work.drawing.binary() || valueType(piece.code) == ValueType::kText;
  value.resize(size + (grows ? 16 : 0));
  value.resize(LLVMFuzzerMutate(reinterpret_cast<unsigned char*>(value.data()), size, value.size()));
  if (!grows) value.resize(size);
  if (grows && value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos) return;
  piece.value = value;
}

void changeCode(Work& work) {
  Piece& piece = work.pieces()[work.groupOf(work.anyRecord())];
  const CodeAndValue& other = work.choice.of(kGroups);
  if (piece.code == 0 || valueType(piece.code) != valueType(other.code)) return;
  const std::string value = piece.value;
  piece = work.drawing.make(other.code, {});
  piece.value = value;
}

void changeCase(Work& work) {
  Piece& piece = work.pieces()[work.choice.below(work.pieces().size())];
  if (valueType(piece.code) != ValueType::kText && valueType(piece.code) != ValueType::kHandle) return;
  for (char& c : piece.value) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalpha(byte) != 0 && byte < 0x80) c = static_cast<char>(c ^ 0x20);
  }
}

void addBlanks(Work& work) {
  if (work.drawing.binary()) return;
  Piece& piece = work.pieces()[work.choice.below(work.pieces().size())];
  const char* const blanks = work.choice.of({" ", "  ", "\t", "      "});
  std::string& line = work.choice.oneIn(3) ? piece.value : piece.codeLine;
  line = work.choice.oneIn(2) ? blanks + line : line + blanks;
}

void rewriteCodes(Work& work) {
  if (work.drawing.binary()) return;
  const std::size_t width = work.choice.of({0, 1, 3, 6, 9});
  for (Piece& piece : work.pieces()) {
    const std::string digits = std::to_string(piece.code);
    piece.codeLine = std::string(width > digits.size() ? width - digits.size() : 0, ' ') + digits;
  }
}

void changeLineEnds(Work& work) {
  const char* const end = work.choice.of({"\n", "\r\n", "\r"});
  const bool mixed = work.choice.oneIn(2);
  if (work.drawing.binary()) return;
  for (Piece& piece : work.pieces()) {
    if (!mixed || work.choice.oneIn(8)) piece.codeEnd = end;
    if (!mixed || work.choice.oneIn(8)) piece.valueEnd = end;
  }
}

// --- Records -------------------------------------------------------------------------------------------

std::vector<Piece> taken(Work& work, const Span& record) {
  return std::vector<Piece>(work.at(record.begin), work.at(record.end));
}

// Before another record of its section, or behind it.
void copyRecord(Work& work) {
  const Span* record = work.anyContent();
  const Span* neighbour = work.anyContent();
  if (record == nullptr || neighbour == nullptr || record->section != neighbour->section) return;
  const std::vector<Piece> copy = taken(work, *record);
  const std::size_t place = work.choice.oneIn(2) ? neighbour->begin : neighbour->end;
  work.pieces().insert(work.at(place), copy.begin(), copy.end());
}

void swapRecords(Work& work) {
  const Span *first = work.anyContent(), *second = work.anyContent();
  if (first == nullptr || second == nullptr || first->section != second->section) return;
  if (first->begin == second->begin) return;
  if (second->begin < first->begin) std::swap(first, second);
  std::vector<Piece> all = taken(work, *second);
  all.insert(all.end(), work.at(first->end), work.at(second->begin));
  const std::vector<Piece> moved = taken(work, *first);
  all.insert(all.end(), moved.begin(), moved.end());
  std::ranges::move(all, work.at(first->begin));
}

void deleteRecord(Work& work) {
  if (const Span* record = work.anyContent())
    work.pieces().erase(work.at(record->begin), work.at(record->end));
}

void changeType(Work& work) {
  if (const Span* record = work.anyContent())
    work.drawing.setValue(work.pieces()[record->begin], work.choice.of(kTypes));
}

void deleteSection(Work& work) {
  const std::string section = work.anyRecord().section;
  const auto in = [&](const Span& record) { return record.section == section; };
  const auto first = std::ranges::find_if(work.records, in);
  const auto end = std::find_if_not(first, work.records.end(), in);
  if (end == work.records.end()) return;  // EOF counts as part of the last one
  work.pieces().erase(work.at(first->begin), work.at(end->begin));
}

// --- The file ------------------------------------------------------------------------------------------

void changeVariable(Work& work) {
  std::vector<std::size_t> names;
  for (std::size_t i = 0; i + 1 < work.pieces().size(); ++i) {
    if (work.pieces()[i].code == 9) names.push_back(i);
  }
  if (names.empty()) return;
  const std::size_t at = work.choice.of(names);
  if (work.pieces()[at].value == "$ACADVER" || work.choice.oneIn(4)) {
    Piece& value = work.pieces()[at + 1];
    if (value.code != 0)
      work.drawing.setValue(value, value.code == 1 ? work.choice.of(kVersions) : work.textFor(value.code));
    return;
  }
  const CodeAndValue& variable = work.choice.of(kVariables);
  const Piece added[] = {work.drawing.make(9, variable.value),
                         work.drawing.make(variable.code, work.textFor(variable.code))};
  work.pieces().insert(work.at(at), std::begin(added), std::end(added));
}

void cutOff(Work& work) {
  work.drawing.rest.clear();
  // Mostly only the EOF, which some programs leave out.
  const std::size_t left = work.pieces().size() - 1;
  work.pieces().resize(work.choice.oneIn(4) ? work.choice.below(left) + 1 : left);
}

struct Mutation {
  void (*change)(Work&);
  std::size_t weight;
};
constexpr Mutation kMutations[] = {
    {swapGroups, 4},     {duplicateGroup, 4}, {deleteGroup, 4},  {addGroup, 8},         {addMarker, 2},
    {changeValue, 10},   {borrowValue, 4},    {changeBytes, 4},  {moveBehindMarker, 6}, {addComment, 4},
    {changeCode, 3},     {changeCase, 2},     {addBlanks, 3},    {rewriteCodes, 1},     {changeLineEnds, 1},
    {copyRecord, 5},     {swapRecords, 3},    {deleteRecord, 4}, {changeType, 4},       {deleteSection, 1},
    {changeVariable, 4}, {cutOff, 1}};

void mutateOnce(DrawingPieces& drawing, Choice& choice) {
  Work work{drawing, choice};
  if (work.records.empty()) return;
  std::size_t total = 0;
  for (const Mutation& mutation : kMutations) total += mutation.weight;
  std::size_t chosen = choice.below(total);
  for (const Mutation& mutation : kMutations) {
    if (chosen < mutation.weight) return mutation.change(work);
    chosen -= mutation.weight;
  }
}

// Leaves records out until the drawing fits; 0 when it does not.
std::size_t write(DrawingPieces& drawing, Choice& choice, std::uint8_t* out, std::size_t most) {
  std::string bytes = drawing.bytes();
  for (int tries = 0; bytes.size() > most && tries < 32; ++tries) {
    Work work{drawing, choice};
    if (work.records.empty()) return 0;
    deleteRecord(work);
    bytes = drawing.bytes();
  }
  if (bytes.size() > most) return 0;
  return store(bytes, out);
}

}  // namespace
}  // namespace fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most,
                                               unsigned seed) {
  fuzz::Choice choice(seed);
  fuzz::DrawingPieces drawing(fuzz::view(data, size));
  if (drawing.pieces.empty() || choice.oneIn(64)) return LLVMFuzzerMutate(data, size, most);
  for (std::size_t left = choice.between(1, 4); left > 0; --left) fuzz::mutateOnce(drawing, choice);
  const std::size_t written = fuzz::write(drawing, choice, data, most);
  return written > 0 ? written : std::min(size, most);
}

// The first drawing with some records of the second among its own of the same section.
extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t most, unsigned seed) {
  fuzz::Choice choice(seed);
  fuzz::DrawingPieces drawing(fuzz::view(first, firstSize)), other(fuzz::view(second, secondSize));
  if (drawing.sameForm(other) && !drawing.pieces.empty() && !other.pieces.empty()) {
    fuzz::Work to{drawing, choice}, from{other, choice};
    const fuzz::Span* place = to.records.empty() ? nullptr : to.anyContent();
    const fuzz::Span* record = from.records.empty() ? nullptr : from.anyContent();
    if (place != nullptr && record != nullptr && place->section == record->section) {
      const std::vector<fuzz::Piece> copy = fuzz::taken(from, *record);
      drawing.pieces.insert(to.at(place->end), copy.begin(), copy.end());
    }
  }
  return fuzz::write(drawing, choice, out, most);
}
