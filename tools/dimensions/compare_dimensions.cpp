// compare_dimensions [--least PERCENT] DRAWING|FOLDER...
// Draws every dimension of the drawings as it stands and compares the picture with the block that shows it.
// Prints how the two differ, dimension by dimension, and how many agree, by kind; blocks that the host keeps
// as they are (kinds that it does not draw, old files that do not tell the style) are counted apart. Exit
// status: 0, 1 fewer than PERCENT of those drawn agree, 2 there is nothing to compare or a drawing cannot be
// read.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/codepage.h"
#include "base/paths.h"
#include "embedded/formats/drawing_files.h"
#include "embedded/graphics/dimensions/compare.h"
#include "embedded/graphics/dimensions/entities.h"
#include "embedded/graphics/dimensions/redraw.h"

namespace {

namespace fs = std::filesystem;
using Kind = cad::DimensionGeometry::Kind;

// In the order of Kind.
constexpr const char* kKindNames[] = {"rotated", "aligned",   "angular, two lines", "angular, three points",
                                      "radial",  "diametric", "ordinate",           "arc length",
                                      "jogged",  "unknown"};

struct Count {
  int agree = 0, differ = 0, kept = 0;
};

struct Tally {
  std::array<Count, std::size(kKindNames)> kinds;
  int drawings = 0, unreadable = 0;
};

std::string utf8(std::wstring_view text) { return base::encode(text, base::kUtf8).bytes; }

bool isDimension(std::string_view type) { return type.ends_with("DIMENSION"); }

double textHeightOf(const std::vector<cad::BlockEntity>& entities) {
  for (const cad::BlockEntity& entity : entities) {
    if (const auto* text = std::get_if<cad::TextGeometry>(&entity.geometry.shape)) return text->height;
  }
  return 1;
}

// What changes when the text is a little wider and higher depends on the font.
std::vector<bool> movedByText(const std::vector<cad::BlockEntity>& drawn,
                              std::vector<cad::BlockEntity> wider) {
  std::vector<bool> moved(drawn.size(), true);
  if (wider.size() != drawn.size()) return moved;
  for (std::size_t i = 0; i < drawn.size(); ++i)
    moved[i] = !cad::differences({drawn[i]}, {wider[i]}, cad::PlaceTolerance{}).empty();
  return moved;
}

class DrawingCheck {
 public:
  DrawingCheck(cad::Drawing& drawing, Tally& tally)
      : drawing_(drawing), redraw_(drawing, {}), tally_(tally) {}

  void run() {
    for (cad::RecordId id = 0; id < drawing_.recordCount(); ++id) {
      const cad::Record& record = drawing_.record(id);
      if (record.kind == cad::RecordKind::kEntity && !record.erased() && isDimension(drawing_.typeName(id)))
        check(id);
    }
  }

 private:
  void check(cad::RecordId id) {
    const cad::Geometry geometry = drawing_.geometry(id);
    const auto kind = std::get<cad::DimensionGeometry>(geometry.shape).kind;
    Count& count = tally_.kinds[static_cast<std::size_t>(kind)];
    const cad::Record former = drawing_.record(id);
    const cad::DimRedraw::Result result = redraw_.picture(id, former);
    if (cad::keepsBlock(result.outcome)) {
      ++count.kept;
      return;
    }
    const std::vector<std::wstring> found = differencesOf(id, former, result.entities);
    ++(found.empty() ? count.agree : count.differ);
    if (found.empty()) return;
    std::printf("  %llX %s\n", static_cast<unsigned long long>(drawing_.handle(id).value_or(0)),
                kKindNames[static_cast<std::size_t>(kind)]);
    for (const std::wstring& line : found) std::printf("    %s\n", utf8(line).c_str());
  }

  // To a millionth of the picture's size; where the text's width counts to a twentieth of its height.
  std::vector<std::wstring> differencesOf(cad::RecordId id, const cad::Record& former,
                                          const std::vector<cad::BlockEntity>& drawn) {
    const auto kept = cad::blockEntities(drawing_, drawing_.reference(id, cad::Property::kDimBlock));
    cad::DimSource source;
    cad::gather(drawing_, id, former, kept, styles_, faces_, source);
    source.figure.box.width *= 1.01;
    source.figure.box.height *= 1.01;
    const auto wider = cad::pictureEntities(drawing_, id, source, cad::drawDimension(source.figure), kept);
    const double height = textHeightOf(kept);
    return cad::differences(drawn, kept, {1e-6 * std::max(height, 1e-9), height / 20},
                            movedByText(drawn, wider));
  }

  cad::Drawing& drawing_;
  cad::DimRedraw redraw_;
  cad::DimStyles styles_;
  cad::TextFaces faces_{{}};  // averages, the same on every machine
  Tally& tally_;
};

void checkFile(const fs::path& file, Tally& tally) {
  const auto opened = cad::formats::open(file);
  if (!opened.ok()) {
    std::fprintf(stderr, "compare_dimensions: %s\n", utf8(opened.failure().text()).c_str());
    ++tally.unreadable;
    return;
  }
  ++tally.drawings;
  std::printf("%s\n", utf8(base::pathText(file.filename())).c_str());
  DrawingCheck(*opened.value(), tally).run();
}

void checkAll(const fs::path& path, Tally& tally) {
  if (!fs::is_directory(path)) return checkFile(path, tally);
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(path)) {
    std::string extension = entry.path().extension().string();
    std::ranges::transform(extension, extension.begin(), [](char c) { return c | ' '; });
    if (extension == ".dxf") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  for (const fs::path& file : files) checkFile(file, tally);
}

// The share of agreement, in percent; absent when nothing was drawn.
std::optional<double> report(const Tally& tally) {
  Count all;
  std::printf("\n%-24s %6s %6s %6s\n", "kind", "agree", "differ", "kept");
  for (std::size_t kind = 0; kind < tally.kinds.size(); ++kind) {
    const Count& count = tally.kinds[kind];
    all.agree += count.agree, all.differ += count.differ, all.kept += count.kept;
    if (count.agree + count.differ + count.kept > 0)
      std::printf("%-24s %6d %6d %6d\n", kKindNames[kind], count.agree, count.differ, count.kept);
  }
  const int drawn = all.agree + all.differ;
  const double share = drawn > 0 ? 100.0 * all.agree / drawn : 0;
  std::printf("%-24s %6d %6d %6d  %.1f %% of %d drawings\n", "all", all.agree, all.differ, all.kept, share,
              tally.drawings);
  return drawn > 0 ? std::optional(share) : std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
  double least = 0;
  Tally tally;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--least" && i + 1 < argc)
      least = std::atof(argv[++i]);
    else
      checkAll(fs::path(argument), tally);
  }
  const std::optional<double> share = report(tally);
  if (!share || tally.unreadable > 0) return 2;
  return *share >= least ? 0 : 1;
}
