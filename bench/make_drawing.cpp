// Generates the drawings that the benchmark converts, the same bytes for the same arguments:
//   make_drawing plan ENTITIES OUT.dxf          a floor plan of that many entities
//   make_drawing references COUNT SIZE OUT.dxf  COUNT references to one block of SIZE entities
//   make_drawing layers COUNT OUT.dxf           COUNT layers L-1, L-2, ... with a line on each
//   make_drawing dimensions COUNT OUT.dxf       COUNT dimensions, each with the block that shows it
// AC1015, code page 932, CR LF. Exit status 2: wrong arguments or the file cannot be written.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/codepage.h"

namespace {

std::string narrow(std::wstring_view text) { return base::encode(text, base::kJapanese).bytes; }

// Xorshift: a mix that does not depend on the standard library's version.
class Random {
 public:
  std::uint32_t below(std::uint32_t limit) {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<std::uint32_t>((state_ >> 11) % limit);
  }
  double length(std::uint32_t limit) { return below(limit * 1000) / 1000.0; }

 private:
  std::uint64_t state_ = 0x9E3779B97F4A7C15ULL;
};

class Writer {
 public:
  void text(int code, std::string_view value) {
    char head[16];
    const int size = std::snprintf(head, sizeof head, "%3d\r\n", code);
    out_.append(head, static_cast<std::size_t>(size));
    out_.append(value).append("\r\n");
  }
  void integer(int code, long value) {
    char number[24];
    std::snprintf(number, sizeof number, "%6ld", value);
    text(code, number);
  }
  void real(int code, double value) {
    char number[32];
    std::snprintf(number, sizeof number, "%.15g", value);
    std::string digits = number;
    if (digits.find_first_of(".e") == std::string::npos) digits += ".0";
    text(code, digits);
  }
  void point(int code, double x, double y) {
    real(code, x);
    real(code + 10, y);
    real(code + 20, 0);
  }
  void handle(int code, std::uint64_t value) {
    char number[24];
    std::snprintf(number, sizeof number, "%llX", static_cast<unsigned long long>(value));
    text(code, number);
  }
  void section(std::string_view name) {
    text(0, "SECTION");
    text(2, name);
  }
  std::uint64_t nextHandle() { return ++lastHandle_; }
  bool save(const char* path) const {
    std::FILE* file = std::fopen(path, "wb");
    if (file == nullptr) return false;
    const bool written = std::fwrite(out_.data(), 1, out_.size(), file) == out_.size();
    return std::fclose(file) == 0 && written;
  }

 private:
  std::string out_;
  std::uint64_t lastHandle_ = 0x100;
};

constexpr std::uint64_t kModelSpace = 0x1F, kPaperSpace = 0x1B, kFirstBlock = 0x40, kFirstDimBlock = 0x800000;
constexpr int kBlocks = 30;
constexpr double kDimScale = 100, kTextHeight = 2.5;  // of the dimensions

struct Names {
  std::vector<std::string> walls, fittings, services, texts, dimensions, hatches, others;
  std::vector<std::string> all() const {
    std::vector<std::string> result = {"0"};
    for (const auto* group : {&walls, &fittings, &services, &texts, &dimensions, &hatches, &others}) {
      result.insert(result.end(), group->begin(), group->end());
    }
    result.push_back("Defpoints");  // of the dimensions' blocks
    return result;
  }
};

std::vector<std::string> numbered(std::wstring_view prefix, int count) {
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) {
    names.push_back(narrow(prefix) + static_cast<char>('0' + i / 10) + static_cast<char>('0' + i % 10));
  }
  return names;
}

Names layerNames() {
  Names names;
  names.walls = numbered(L"A-壁", 10);
  names.fittings = numbered(L"A-建具", 6);
  names.services = numbered(L"S-設備", 10);
  names.texts = numbered(L"文字", 5);
  names.dimensions = numbered(L"寸法", 3);
  names.hatches = numbered(L"ﾊｯﾁﾝｸﾞ", 2);
  names.others = {narrow(L"通り芯"), narrow(L"家具"), narrow(L"図枠")};
  return names;
}

std::string blockName(int index) { return narrow(L"部品") + std::to_string(index); }
std::string dimBlockName(int index) { return "*D" + std::to_string(index + 1); }

void writeHeader(Writer& out) {
  out.section("HEADER");
  out.text(9, "$ACADVER");
  out.text(1, "AC1015");
  out.text(9, "$DWGCODEPAGE");
  out.text(3, "ANSI_932");
  out.text(9, "$HANDSEED");
  out.text(5, "FFFFFF");
  out.text(0, "ENDSEC");
}

void tableHead(Writer& out, std::string_view name, std::uint64_t handle, long count) {
  out.text(0, "TABLE");
  out.text(2, name);
  out.handle(5, handle);
  out.handle(330, 0);
  out.text(100, "AcDbSymbolTable");
  out.integer(70, count);
}

void tableRecord(Writer& out, std::string_view type, std::uint64_t table, std::string_view subclass,
                 std::uint64_t handle, std::string_view name) {
  out.text(0, type);
  out.handle(type == "DIMSTYLE" ? 105 : 5, handle);
  out.handle(330, table);
  out.text(100, "AcDbSymbolTableRecord");
  out.text(100, subclass);
  out.text(2, name);
}

void writeLinetypes(Writer& out) {
  tableHead(out, "LTYPE", 5, 3);
  std::uint64_t handle = 0x14;
  for (const char* name : {"ByBlock", "ByLayer", "Continuous"}) {
    tableRecord(out, "LTYPE", 5, "AcDbLinetypeTableRecord", handle++, name);
    out.integer(70, 0);
    out.text(3, "");
    out.integer(72, 65);
    out.integer(73, 0);
    out.real(40, 0);
  }
  out.text(0, "ENDTAB");
}

void writeLayers(Writer& out, const std::vector<std::string>& names) {
  tableHead(out, "LAYER", 2, static_cast<long>(names.size()));
  int color = 1;
  for (const std::string& name : names) {
    tableRecord(out, "LAYER", 2, "AcDbLayerTableRecord", out.nextHandle(), name);
    out.integer(70, 0);
    out.integer(62, color = color % 9 + 1);
    out.text(6, "Continuous");
    out.integer(370, -3);
  }
  out.text(0, "ENDTAB");
}

void writeStyles(Writer& out) {
  tableHead(out, "STYLE", 3, 1);
  tableRecord(out, "STYLE", 3, "AcDbTextStyleTableRecord", 0x11, "Standard");
  out.integer(70, 0);
  out.real(40, 0);
  out.real(41, 1);
  out.real(50, 0);
  out.integer(71, 0);
  out.real(42, 2.5);
  out.text(3, "romans.shx");
  out.text(4, "extfont2.shx");
  out.text(0, "ENDTAB");
  tableHead(out, "APPID", 9, 1);
  tableRecord(out, "APPID", 9, "AcDbRegAppTableRecord", 0x12, "ACAD");
  out.integer(70, 0);
  out.text(0, "ENDTAB");
  tableHead(out, "DIMSTYLE", 0xA, 1);
  tableRecord(out, "DIMSTYLE", 0xA, "AcDbDimStyleTableRecord", 0x27, "Standard");
  out.integer(70, 0);
  out.real(40, kDimScale);
  out.real(41, kTextHeight);
  out.real(42, 0.625);
  out.real(44, 1.25);
  out.integer(73, 0);
  out.integer(74, 0);
  out.integer(77, 1);
  out.integer(78, 8);
  out.real(140, kTextHeight);
  out.real(147, 0.625);
  out.integer(172, 1);
  out.integer(271, 0);
  out.integer(283, 0);
  out.text(0, "ENDTAB");
}

void blockRecord(Writer& out, std::uint64_t handle, std::string_view name) {
  tableRecord(out, "BLOCK_RECORD", 1, "AcDbBlockTableRecord", handle, name);
}

void entityHead(Writer& out, std::string_view type, std::uint64_t owner, std::string_view layer,
                int color = 256) {
  out.text(0, type);
  out.handle(5, out.nextHandle());
  out.handle(330, owner);
  out.text(100, "AcDbEntity");
  out.text(8, layer);
  if (color != 256) out.integer(62, color);
}

void beginBlock(Writer& out, std::uint64_t owner, std::string_view name) {
  entityHead(out, "BLOCK", owner, "0");
  out.text(100, "AcDbBlockBegin");
  out.text(2, name);
  out.integer(70, name.starts_with("*D") ? 1 : 0);
  out.point(10, 0, 0);
  out.text(3, name);
  out.text(1, "");
}

void endBlock(Writer& out, std::uint64_t owner) {
  entityHead(out, "ENDBLK", owner, "0");
  out.text(100, "AcDbBlockEnd");
}

// A horizontal dimension, which ends on a line above its two points.
struct Dimension {
  double left = 0, bottom = 0, size = 0;
  std::string layer;
  double right() const { return left + size; }
  double line() const { return bottom + 8 * kDimScale; }
};

class Plan {
 public:
  Plan(Writer& out, const Names& names) : out_(out), names_(names) {}
  const std::vector<Dimension>& dimensions() const { return dimensions_; }

  // One entity in the proportions of a building plan.
  void entity(std::uint64_t owner) {
    const std::uint32_t kind = random_.below(100);
    if (kind < 42)
      line(owner);
    else if (kind < 52)
      arc(owner);
    else if (kind < 58)
      circle(owner);
    else if (kind < 72)
      polyline(owner);
    else if (kind < 85)
      singleLineText(owner);
    else if (kind < 88)
      paragraph(owner);
    else if (kind < 94)
      reference(owner, pick(names_.services), random_.below(kBlocks));
    else if (kind < 97)
      dimension(owner);
    else
      hatch(owner);
  }
  void line(std::uint64_t owner) { line(owner, plainLayer()); }
  void line(std::uint64_t owner, const std::string& layer) {
    entityHead(out_, "LINE", owner, layer, color());
    out_.text(100, "AcDbLine");
    out_.point(10, x(), y());
    out_.point(11, x(), y());
  }
  void dimension(std::uint64_t owner) {
    dimensions_.push_back({x(), y(), (20 + random_.below(60)) * kDimScale, pick(names_.dimensions)});
    const Dimension& made = dimensions_.back();
    entityHead(out_, "DIMENSION", owner, made.layer, color());
    out_.text(100, "AcDbDimension");
    out_.text(2, dimBlockName(static_cast<int>(dimensions_.size()) - 1));
    out_.point(10, made.right(), made.line());
    out_.point(11, made.left + made.size / 2, made.line() + 1.875 * kDimScale);
    out_.integer(70, 32);
    out_.integer(71, 5);
    out_.real(42, made.size);
    out_.text(3, "Standard");
    out_.text(100, "AcDbAlignedDimension");
    out_.point(13, made.left, made.bottom);
    out_.point(14, made.right(), made.bottom);
    out_.text(100, "AcDbRotatedDimension");
  }
  void reference(std::uint64_t owner, const std::string& layer, std::uint32_t block) {
    entityHead(out_, "INSERT", owner, layer, color());
    out_.text(100, "AcDbBlockReference");
    out_.text(2, blockName(static_cast<int>(block)));
    out_.point(10, x(), y());
    out_.real(50, random_.below(4) * 90.0);
  }

 private:
  double x() { return random_.length(90000); }
  double y() { return random_.length(60000); }
  int color() { return random_.below(4) == 0 ? static_cast<int>(random_.below(9)) + 1 : 256; }
  const std::string& pick(const std::vector<std::string>& from) {
    return from[random_.below(static_cast<std::uint32_t>(from.size()))];
  }
  const std::string& plainLayer() {
    const std::uint32_t kind = random_.below(100);
    if (kind < 60) return pick(names_.walls);
    if (kind < 75) return pick(names_.fittings);
    return kind < 92 ? pick(names_.services) : pick(names_.others);
  }
  void circle(std::uint64_t owner) {
    entityHead(out_, "CIRCLE", owner, plainLayer(), color());
    out_.text(100, "AcDbCircle");
    out_.point(10, x(), y());
    out_.real(40, random_.length(900) + 1);
  }
  void arc(std::uint64_t owner) {
    entityHead(out_, "ARC", owner, plainLayer(), color());
    out_.text(100, "AcDbCircle");
    out_.point(10, x(), y());
    out_.real(40, random_.length(900) + 1);
    out_.text(100, "AcDbArc");
    out_.real(50, random_.below(180));
    out_.real(51, 180.0 + random_.below(180));
  }
  void polyline(std::uint64_t owner) {
    entityHead(out_, "LWPOLYLINE", owner, plainLayer(), color());
    out_.text(100, "AcDbPolyline");
    const long vertices = 3 + random_.below(6);
    out_.integer(90, vertices);
    out_.integer(70, 1);
    out_.real(43, 0);
    for (long i = 0; i < vertices; ++i) {
      out_.real(10, x());
      out_.real(20, y());
    }
  }
  void singleLineText(std::uint64_t owner) {
    static const std::vector<std::string> words = {narrow(L"会議室"),       narrow(L"機械室"),
                                                   narrow(L"PS･EPS"),       narrow(L"FL+150"),
                                                   narrow(L"ｽﾁｰﾙﾄﾞｱ SD-1"), narrow(L"天井高 CH=2,700")};
    entityHead(out_, "TEXT", owner, pick(names_.texts), color());
    out_.text(100, "AcDbText");
    out_.point(10, x(), y());
    out_.real(40, 100.0 * (1 + random_.below(4)));
    out_.text(1, pick(words));
    if (random_.below(3) == 0) out_.real(50, 90);
    if (random_.below(3) == 0) out_.real(41, 0.8);
    out_.text(100, "AcDbText");
  }
  void paragraph(std::uint64_t owner) {
    static const std::string words =
        narrow(L"{\\H1.2x;特記}\\P耐火被覆は\\C1;ﾛｯｸｳｰﾙ\\C256;吹付 25mm とし、\\P仕様書による。");
    entityHead(out_, "MTEXT", owner, pick(names_.texts), color());
    out_.text(100, "AcDbMText");
    out_.point(10, x(), y());
    out_.real(40, 100.0 * (1 + random_.below(4)));
    out_.real(41, 3000);
    out_.integer(71, 1);
    out_.integer(72, 5);
    out_.text(1, words);
    out_.text(7, "Standard");
  }
  void hatch(std::uint64_t owner) {
    entityHead(out_, "HATCH", owner, pick(names_.hatches), color());
    out_.text(100, "AcDbHatch");
    out_.point(10, 0, 0);
    out_.real(210, 0);
    out_.real(220, 0);
    out_.real(230, 1);
    out_.text(2, "SOLID");
    out_.integer(70, 1);
    out_.integer(71, 0);
    out_.integer(91, 1);
    out_.integer(92, 3);
    out_.integer(72, 0);
    out_.integer(73, 1);
    out_.integer(93, 4);
    for (int i = 0; i < 4; ++i) {
      out_.real(10, x());
      out_.real(20, y());
    }
    out_.integer(97, 0);
    out_.integer(75, 0);
    out_.integer(76, 1);
    out_.integer(98, 0);
  }

  Writer& out_;
  Random random_;
  const Names& names_;
  std::vector<Dimension> dimensions_;
};

void dimensionBlock(Writer& out, std::uint64_t owner, const Dimension& shown) {
  const auto line = [&](double x1, double y1, double x2, double y2) {
    entityHead(out, "LINE", owner, shown.layer, 0);
    out.text(100, "AcDbLine");
    out.point(10, x1, y1);
    out.point(11, x2, y2);
  };
  const double arrow = kTextHeight * kDimScale;
  const auto head = [&](double tip, double base) {
    entityHead(out, "SOLID", owner, shown.layer, 0);
    out.text(100, "AcDbTrace");
    out.point(10, base, shown.line() + arrow / 6);
    out.point(11, base, shown.line() - arrow / 6);
    out.point(12, tip, shown.line());
    out.point(13, tip, shown.line());
  };
  const auto point = [&](double x, double y) {
    entityHead(out, "POINT", owner, "Defpoints", 0);
    out.text(100, "AcDbPoint");
    out.point(10, x, y);
  };
  const double from = shown.bottom + 0.625 * kDimScale, to = shown.line() + 1.25 * kDimScale;
  line(shown.left, from, shown.left, to);
  line(shown.right(), from, shown.right(), to);
  line(shown.left + arrow, shown.line(), shown.right() - arrow, shown.line());
  head(shown.left, shown.left + arrow);
  head(shown.right(), shown.right() - arrow);
  entityHead(out, "MTEXT", owner, shown.layer, 0);
  out.text(100, "AcDbMText");
  out.point(10, shown.left + shown.size / 2, shown.line() + 1.875 * kDimScale);
  out.real(40, arrow);
  out.real(41, 0);
  out.integer(71, 5);
  out.integer(72, 1);
  out.text(1, std::to_string(static_cast<long>(shown.size)));
  out.integer(73, 1);
  out.real(44, 1);
  point(shown.left, shown.bottom);
  point(shown.right(), shown.bottom);
  point(shown.right(), shown.line());
}

std::uint64_t dimensionBlockHandle(std::size_t index) { return kFirstDimBlock + index; }

void writeTables(Writer& out, const Names& names, std::size_t dimensions) {
  out.section("TABLES");
  writeLinetypes(out);
  writeLayers(out, names.all());
  writeStyles(out);
  tableHead(out, "BLOCK_RECORD", 1, 2 + kBlocks + static_cast<long>(dimensions));
  blockRecord(out, kModelSpace, "*Model_Space");
  blockRecord(out, kPaperSpace, "*Paper_Space");
  for (int i = 0; i < kBlocks; ++i) blockRecord(out, kFirstBlock + static_cast<unsigned>(i), blockName(i));
  for (std::size_t i = 0; i < dimensions; ++i)
    blockRecord(out, dimensionBlockHandle(i), dimBlockName(static_cast<int>(i)));
  out.text(0, "ENDTAB");
  out.text(0, "ENDSEC");
}

void writeBlocks(Writer& out, Plan& plan, int entitiesPerBlock, const std::vector<Dimension>& dimensions) {
  out.section("BLOCKS");
  const auto block = [&](std::uint64_t owner, const std::string& name, int entities) {
    beginBlock(out, owner, name);
    for (int i = 0; i < entities; ++i) plan.line(owner);
    endBlock(out, owner);
  };
  block(kModelSpace, "*Model_Space", 0);
  block(kPaperSpace, "*Paper_Space", 0);
  for (int i = 0; i < kBlocks; ++i)
    block(kFirstBlock + static_cast<unsigned>(i), blockName(i), entitiesPerBlock);
  for (std::size_t i = 0; i < dimensions.size(); ++i) {
    beginBlock(out, dimensionBlockHandle(i), dimBlockName(static_cast<int>(i)));
    dimensionBlock(out, dimensionBlockHandle(i), dimensions[i]);
    endBlock(out, dimensionBlockHandle(i));
  }
  out.text(0, "ENDSEC");
}

void writeObjects(Writer& out) {
  out.section("OBJECTS");
  out.text(0, "DICTIONARY");
  out.handle(5, 0xC);
  out.handle(330, 0);
  out.text(100, "AcDbDictionary");
  out.integer(281, 1);
  out.text(0, "ENDSEC");
  out.text(0, "EOF");
}

// `entities` is called to fill model space, once before to see which dimensions come.
template <class Entities>
Writer drawing(int entitiesPerBlock, const Names& names, Entities entities) {
  Writer tried, out;
  Plan trial(tried, names), content(out, names), plan(out, names);
  entities(trial);
  writeHeader(out);
  writeTables(out, names, trial.dimensions().size());
  writeBlocks(out, content, entitiesPerBlock, trial.dimensions());
  out.section("ENTITIES");
  entities(plan);
  out.text(0, "ENDSEC");
  writeObjects(out);
  return out;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view mode = argc > 1 ? argv[1] : "";
  bool saved = false;
  const int count = argc > 2 ? std::atoi(argv[2]) : 0;
  Names names = layerNames();
  if (mode == "plan" && argc == 4) {
    const auto fill = [count](Plan& plan) {
      for (int i = 0; i < count; ++i) plan.entity(kModelSpace);
    };
    saved = drawing(10, names, fill).save(argv[3]);
  } else if (mode == "references" && argc == 5) {
    const auto fill = [count](Plan& plan) {
      for (int i = 0; i < count; ++i) plan.reference(kModelSpace, "0", 0);
    };
    saved = drawing(std::atoi(argv[3]), names, fill).save(argv[4]);
  } else if (mode == "dimensions" && argc == 4) {
    const auto fill = [count](Plan& plan) {
      for (int i = 0; i < count; ++i) plan.dimension(kModelSpace);
    };
    saved = drawing(10, names, fill).save(argv[3]);
  } else if (mode == "layers" && argc == 4) {
    std::vector<std::string> layers;
    for (int i = 1; i <= count; ++i) layers.push_back("L-" + std::to_string(i));
    names.others.insert(names.others.end(), layers.begin(), layers.end());
    const auto fill = [&layers](Plan& plan) {
      for (const std::string& layer : layers) plan.line(kModelSpace, layer);
    };
    saved = drawing(10, names, fill).save(argv[3]);
  }
  if (!saved) std::fprintf(stderr, "make_drawing: wrong arguments, or the file cannot be written\n");
  return saved ? 0 : 2;
}
