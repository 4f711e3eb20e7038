#include "cli/convert/drawing_conversion.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "base/files.h"
#include "base/paths.h"
#include "cli/console.h"
#include "cli/inspect/marks.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"
#include "cli/reports/change_text.h"
#include "cli/reports/thumbnail.h"
#include "embedded/formats/drawing_files.h"
#include "embedded/graphics/pictures/picture.h"

namespace kivcli {

cad::Handle handleOfText(std::wstring_view text) {
  cad::Handle handle = 0;
  for (const wchar_t c : text) {
    const bool isDigit = c >= L'0' && c <= L'9';
    const wchar_t upper = c >= L'a' && c <= L'f' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    if (!isDigit && !(upper >= L'A' && upper <= L'F')) return 0;
    handle = handle << 4 | static_cast<cad::Handle>(isDigit ? c - L'0' : upper - L'A' + 10);
  }
  return text.size() <= 16 ? handle : 0;
}

namespace {

using base::Failure;
using base::Status;

constexpr wchar_t kConversionCommand[] = L"KIV_TOACAD2";

std::wstring noteReason(int reason) {
  switch (reason) {
    case kKivNoSuchName:
      return tr(L"the drawing has nothing of this name");
    case kKivNotInThisVersion:
      return tr(L"a drawing of this version cannot hold it");
    case kKivBadValue:
      return tr(L"the value is out of limits or of another form");
    case kKivNotForObject:
      return tr(L"dimensions have no such variable");
    default:
      return tr(L"the host refused it");
  }
}

// PNG, with the fonts that are found for `file`; empty where nothing can be painted.
std::string pictureOf(const cad::Drawing& drawing, const std::wstring& file,
                      std::unordered_set<cad::RecordId> marked, std::size_t mostBytes,
                      std::vector<std::wstring>& remarks) {
  cad::PictureOptions options;
  options.width = kThumbnailWidth;
  options.fontFolders = fontFoldersOf(file);
  options.marked = std::move(marked);
  auto picture = cad::drawPicture(drawing, options);
  if (picture.ok() && picture.value().height > kMostThumbnailRows) {
    options.width =
        std::max(cad::kLeastPictureWidth, kThumbnailWidth * kMostThumbnailRows / picture.value().height);
    picture = cad::drawPicture(drawing, options);
  }
  if (!picture.ok()) return {};
  remarks.clear();
  for (const std::wstring& remark : picture.value().remarks) remarks.push_back(translated(remark));
  return thumbnail(picture.value(), mostBytes);
}

cad::formats::FileKind kindOf(SaveFormat format) {
  switch (format) {
    case SaveFormat::kDwg:
      return cad::formats::FileKind::kDwg;
    case SaveFormat::kDwt:
      return cad::formats::FileKind::kDwt;
    default:
      return cad::formats::FileKind::kDxf;
  }
}

// Empty, or why the drawing is not converted at all: what it becomes could not be saved.
std::wstring whyNotSavable(const cad::Drawing& drawing, const PlannedDrawing& planned) {
  const cad::formats::FileKind kind = kindOf(planned.format);
  if (planned.target.empty() || cad::formats::canSave(drawing, kind)) return {};
  return tr(L"not converted: a %1 drawing cannot be saved as %2",
            {std::wstring(drawing.format()), std::wstring(cad::formats::kindName(kind))});
}

std::wstring refuserText(const KivNote& note) {
  if (note.refuser == kKivDrawing) return tr(L"the drawing");
  const bool isLayers = note.refuser == kKivLayers;
  if (note.count == 1) return tr(isLayers ? L"1 layer" : L"1 object");
  return tr(isLayers ? L"%1 layers" : L"%1 objects", {std::to_wstring(note.count)});
}

std::wstring noteText(const KivNote& note) {
  const std::wstring item = std::wstring(note.kind) + L" = " + note.value;
  if (note.reason == kKivNoSuchFile)
    return tr(L"%1: there is no such file, and the host has nothing of this name", {item});
  return tr(L"%1 was refused by %2: %3", {item, refuserText(note), noteReason(note.reason)});
}

}  // namespace

DrawingConversion::DrawingConversion(Session& session, const Arguments& arguments, std::wstring logFile,
                                     bool withTests)
    : session_(session),
      arguments_(arguments),
      logFile_(std::move(logFile)),
      specification_(base::fullPath(arguments.specification)),
      facts_(session, withTests),
      run_(session.lastRunReport()) {}

DrawingReport DrawingConversion::run(PlannedDrawing drawing) {
  DrawingReport report;
  report.given = drawing.given;
  if (!drawing.refusal.empty()) {
    report.messages.push_back(drawing.given + L": " + drawing.refusal);
    return report;
  }
  cad::Host& host = session_.host();
  const std::size_t documentsBefore = host.documentCount();
  if (Status opened = host.openDocument(base::pathFromText(drawing.given)); !opened) {
    report.messages.push_back(complaintAbout(drawing.given, opened.failure()));
    return report;
  }
  if (drawing.keepsUnknownFormat && !cad::formats::canSave(host.currentDrawing(), kindOf(drawing.format)))
    setFormat(drawing, SaveFormat::kDwg);
  const std::vector<std::wstring> warnings = cad::formats::warningsAbout(host.currentDrawing());
  for (const std::wstring& warning : warnings)
    report.messages.push_back(drawing.given + L": " + translated(warning));
  const int runsBefore = run_.runs;
  const std::wstring notSavable = whyNotSavable(host.currentDrawing(), drawing);
  Status converted = notSavable.empty() ? convertOpen(drawing) : Failure{L"", notSavable};
  const bool hasRun = run_.runs != runsBefore;
  const bool clean = !hasRun || takeProblems(report);
  if (hasRun) report.logFailure = run_.logFailure;
  report.isDryRun = arguments_.isDryRun;
  if (hasRun) report.settings = facts_.settings();
  if (converted && arguments_.isDryRun) converted = compareUnsaved(drawing, report);
  // The run closes the drawing that it saved; one that it gave up is still open.
  Status closed;
  while (closed && host.documentCount() > documentsBefore) closed = host.closeDocument();

  if (!converted) {
    report.messages.push_back(complaintAbout(drawing.given, converted.failure()));
    return report;
  }
  if (!arguments_.isDryRun) {
    report.saved = base::pathText(drawing.target);
    if (Status compared = compareSaved(drawing, report); !compared)
      report.messages.push_back(complaintAbout(drawing.given, compared.failure()));
  }
  report.outcome = clean && warnings.empty() ? Outcome::kConverted : Outcome::kWithProblems;
  return report;
}

Status DrawingConversion::convertOpen(const PlannedDrawing& drawing) {
  KivConversion conversion{};
  conversion.specification = specification_.c_str();
  const std::wstring folder = base::fullPath(base::pathText(drawing.target.parent_path()));
  conversion.outputFolder = arguments_.isDryRun ? L"" : folder.c_str();
  conversion.saveFormat = static_cast<int>(drawing.format);
  conversion.blockScope = arguments_.blockScope;
  conversion.ignoreLocks = arguments_.ignoreLocks ? 1 : 0;
  conversion.logFile = arguments_.isDryRun ? L"" : logFile_.c_str();
  if (!session_.setConversion(conversion)) return Failure{L"", tr(L"the module refused the options")};

  const int runsBefore = run_.runs;
  facts_.begin(handleOfText(arguments_.entity));
  session_.host().beginRun();
  session_.takeOutput();
  const Status executed = session_.host().execute(kConversionCommand);
  run_ = session_.lastRunReport();
  if (run_.runs == runsBefore) {
    return Failure{L"", tr(L"the conversion did not run: %1", {session_.takeOutput()})};
  }
  if (Status ended = checkEnd(drawing); !ended) return ended;
  return executed;
}

Status DrawingConversion::checkEnd(const PlannedDrawing& drawing) {
  switch (run_.end) {
    case kKivConverted:
      break;
    case kKivEmptyDrawing:
      return Failure{L"", tr(L"not converted: the drawing has no entities")};
    case kKivSpecificationUnreadable:
      return Failure{L"", tr(L"not converted: %1 can no longer be read", {arguments_.specification})};
    default:
      return Failure{L"", tr(L"not converted: %1", {session_.takeOutput()})};
  }
  if (arguments_.isDryRun) return {};
  const std::optional<cad::SaveReport>& save = session_.host().lastSave();
  if (!save) return Failure{L"", tr(L"not saved: the host was not asked to")};
  if (!save->status) {
    return Failure{L"", tr(L"not saved: %1: %2",
                           {base::pathText(drawing.target), translated(save->status.failure().reason)})};
  }
  std::error_code error;
  if (run_.savedPath[0] == L'\0' || !std::filesystem::exists(drawing.target, error)) {
    return Failure{L"", tr(L"not saved: %1 is not there after saving", {base::pathText(drawing.target)})};
  }
  return {};
}

Status DrawingConversion::compareUnsaved(const PlannedDrawing& drawing, DrawingReport& report) const {
  const cad::Drawing& after = session_.host().currentDrawing();
  if (Status unchanged = after.storage().checkUnchanged(); !unchanged) return unchanged;
  return compareWith(drawing, after, report);
}

Status DrawingConversion::compareWith(const PlannedDrawing& drawing, const cad::Drawing& after,
                                      DrawingReport& report) const {
  const auto before = cad::formats::open(base::pathFromText(report.given));
  if (!before.ok()) return before.failure();
  cad::DrawingDifferences differences = cad::compareDrawings(*before.value(), after);
  report.counts = countsOf(differences);
  if (drawing.pictureBytes > 0)
    takePictures(*before.value(), after, differences, drawing.pictureBytes, report);
  if (arguments_.listsChanges) report.changes = std::move(differences);
  return {};
}

// Of drawings in which something is to be seen. One that cannot be painted is told by the page.
void DrawingConversion::takePictures(const cad::Drawing& before, const cad::Drawing& after,
                                     const cad::DrawingDifferences& differences, std::size_t mostBytes,
                                     DrawingReport& report) const {
  if (differences.empty() && report.messages.empty()) return;
  report.pictures.before =
      pictureOf(before, report.given, markedEntities(before, differences, DiffSide::kBefore), mostBytes,
                report.pictures.remarks);
  report.pictures.after = pictureOf(after, report.given, markedEntities(after, differences, DiffSide::kAfter),
                                    mostBytes, report.pictures.remarks);
}

Status DrawingConversion::compareSaved(const PlannedDrawing& drawing, DrawingReport& report) const {
  if (arguments_.reports.empty() && !arguments_.listsChanges) return {};
  const auto after = cad::formats::open(drawing.target);
  return after.ok() ? compareWith(drawing, *after.value(), report) : Status(after.failure());
}

bool DrawingConversion::takeProblems(DrawingReport& report) const {
  const auto add = [&](const std::wstring& text) { report.messages.push_back(report.given + L": " + text); };
  // The last problem of a drawing that was not saved says so without the host's reason.
  const bool isSaved = arguments_.isDryRun || run_.end != kKivConverted || run_.savedPath[0] != L'\0';
  const int told = isSaved ? run_.problemCount : run_.problemCount - 1;
  for (int i = 0; i < told; ++i) add(run_.problems[i]);
  for (int i = 0; i < run_.noteCount; ++i) add(noteText(run_.notes[i]));
  for (const Failure& remark : session_.host().takeRemarks()) {
    report.messages.push_back(complaintAbout(report.given, remark));
  }
  return run_.problemCount + run_.noteCount == 0;
}

}  // namespace kivcli
