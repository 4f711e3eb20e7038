#include "cli/specifications/drawing_names.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/file_errors.h"
#include "base/files.h"
#include "cli/drawing_folders.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;

constexpr cad::Table kTables[] = {cad::Table::kLayer, cad::Table::kLinetype, cad::Table::kTextStyle};

}  // namespace

base::Status NamesOfDrawings::take(const std::wstring& drawingOrFolder) {
  std::error_code error;
  const fs::path path = base::pathFromText(drawingOrFolder);
  if (!fs::is_directory(path, error)) return takeDrawing(drawingOrFolder);
  std::vector<fs::path> files;
  for (fs::recursive_directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
    std::error_code unknown;  // a link that leads nowhere
    if (at->is_regular_file(unknown) && hasNameOfDrawing(at->path())) files.push_back(at->path());
  }
  if (error) return base::Failure{drawingOrFolder, translated(base::fileFailure(path, error).reason)};
  if (files.empty()) return base::Failure{drawingOrFolder, tr(L"no drawing stands in this folder")};
  std::ranges::sort(files);
  const std::size_t unread = unreadable_.size();
  for (const fs::path& file : files) {
    if (base::Status taken = takeDrawing(base::pathText(file)); !taken)
      unreadable_.push_back(taken.failure());
  }
  if (unreadable_.size() - unread < files.size()) return {};
  base::Failure first = unreadable_[unread];
  unreadable_.resize(unread);
  return first;
}

base::Status NamesOfDrawings::takeDrawing(const std::wstring& file) {
  const auto opened = cad::formats::open(base::pathFromText(file));
  if (!opened) return base::Failure{file, translated(opened.failure().reason)};
  const cad::Drawing& drawing = *opened.value();
  warnAbout(file, drawing);
  Names names{file, {}, {}};
  const auto text = [&](cad::NameId name) {
    return name == cad::kNoName ? L"" : drawing.names().folded(name);
  };
  for (std::size_t table = 0; table < std::size(kTables); ++table) {
    for (const cad::RecordId id : drawing.tableRecords(kTables[table]))
      names.has[table].insert(text(drawing.recordName(id)));
  }
  for (const cad::RecordId block : drawing.tableRecords(cad::Table::kBlock)) {
    for (const cad::RecordId entity : drawing.entitiesOf(block)) {
      if (drawing.record(entity).erased()) continue;
      const cad::Signature& signature = drawing.signature(drawing.record(entity).signature);
      names.used[0].insert(text(signature.layer));
      names.used[1].insert(text(signature.linetype));
      if (signature.style != cad::kNoName) names.used[2].insert(text(signature.style));
    }
  }
  drawings_.push_back(std::move(names));
  return {};
}

KivNames NamesOfDrawings::pointTo(const std::set<std::wstring>& names) {
  std::vector<const wchar_t*>& list = lists_.emplace_back();
  for (const std::wstring& name : names) list.push_back(name.c_str());
  return {static_cast<int>(list.size()), list.data()};
}

const std::vector<KivDrawingNames>& NamesOfDrawings::given() {
  lists_.clear();
  given_.clear();
  for (const Names& names : drawings_) {
    KivDrawingNames row{names.drawing.c_str(), {}, {}};
    for (std::size_t table = 0; table < std::size(kTables); ++table) {
      row.has[table] = pointTo(names.has[table]);
      row.used[table] = pointTo(names.used[table]);
    }
    given_.push_back(row);
  }
  return given_;
}

}  // namespace kivcli
