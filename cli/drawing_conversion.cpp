#include "cli/drawing_conversion.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "base/files.h"
#include "base/paths.h"
#include "cli/console.h"
#include "cli/specification_check.h"
#include "embedded/formats/drawing_files.h"

namespace kivcli {
namespace {

using base::Failure;
using base::Status;

constexpr wchar_t kConversionCommand[] = L"KIV_TOACAD2";

const wchar_t* noteReason(int reason) {
  switch (reason) {
    case kKivNoSuchName:
      return L"the drawing has nothing of this name";
    case kKivNotInThisVersion:
      return L"a drawing of this version cannot hold it";
    case kKivBadValue:
      return L"the value is out of limits or of another form";
    case kKivNotForObject:
      return L"dimensions have no such variable";
    default:
      return L"the host refused it";
  }
}

std::wstring refuserText(const KivNote& note) {
  if (note.refuser == kKivDrawing) return L"the drawing";
  return std::to_wstring(note.count) + (note.refuser == kKivLayers ? L" layer" : L" object") +
         (note.count == 1 ? L"" : L"s");
}

std::wstring noteText(const KivNote& note) {
  const std::wstring item = std::wstring(note.kind) + L" = " + note.value;
  if (note.reason == kKivNoSuchFile)
    return item + L": there is no such file, and the host has nothing of this name";
  return item + L" was refused by " + refuserText(note) + L": " + noteReason(note.reason);
}

}  // namespace

DrawingConversion::DrawingConversion(Session& session, const Arguments& arguments, std::wstring logFile)
    : session_(session),
      arguments_(arguments),
      logFile_(std::move(logFile)),
      specification_(base::fullPath(arguments.specification)),
      outputFolder_(base::fullPath(arguments.outputFolder)),
      report_(session.lastRunReport()) {}

Outcome DrawingConversion::run(const PlannedDrawing& drawing) {
  if (!drawing.refusal.empty()) {
    complain(drawing.given + L": " + drawing.refusal);
    return Outcome::kNotConverted;
  }
  cad::Host& host = session_.host();
  const std::size_t documentsBefore = host.documentCount();
  if (Status opened = host.openDocument(base::pathFromText(drawing.given)); !opened) {
    complainAbout(drawing.given, opened.failure());
    return Outcome::kNotConverted;
  }
  const std::wstring warning = cad::formats::warningAbout(host.currentDrawing());
  if (!warning.empty()) complain(drawing.given + L": " + warning);
  const int runsBefore = report_.runs;
  const Status converted = convertOpen(drawing);
  const bool hasRun = report_.runs != runsBefore;
  const bool clean = !hasRun || reportProblems(drawing);
  if (hasRun) reportLog();
  // The run closes the drawing that it saved; one that it gave up is still open.
  Status closed;
  while (closed && host.documentCount() > documentsBefore) closed = host.closeDocument();

  if (!converted) {
    complainAbout(drawing.given, converted.failure());
    return Outcome::kNotConverted;
  }
  printLine(drawing.given + L" -> " + base::pathText(drawing.target));
  return clean && warning.empty() ? Outcome::kConverted : Outcome::kWithProblems;
}

Status DrawingConversion::convertOpen(const PlannedDrawing& drawing) {
  KivConversion conversion{};
  conversion.specification = specification_.c_str();
  conversion.outputFolder = outputFolder_.c_str();
  conversion.saveFormat = static_cast<int>(drawing.format);
  conversion.blockScope = arguments_.blockScope;
  conversion.ignoreLocks = arguments_.ignoreLocks ? 1 : 0;
  conversion.logFile = logFile_.c_str();
  if (!session_.setConversion(conversion)) return Failure{L"", L"the module refused the options"};

  const int runsBefore = report_.runs;
  session_.host().beginRun();
  session_.takeOutput();
  const Status executed = session_.host().execute(kConversionCommand);
  report_ = session_.lastRunReport();
  if (report_.runs == runsBefore) {
    return Failure{L"", L"the conversion did not run: " + session_.takeOutput()};
  }
  if (Status ended = checkEnd(drawing); !ended) return ended;
  return executed;
}

Status DrawingConversion::checkEnd(const PlannedDrawing& drawing) {
  switch (report_.end) {
    case kKivConverted:
      break;
    case kKivEmptyDrawing:
      return Failure{L"", L"not converted: the drawing has no entities"};
    case kKivSpecificationUnreadable:
      return Failure{L"", L"not converted: " + arguments_.specification + L" can no longer be read"};
    default:
      return Failure{L"", L"not converted: " + session_.takeOutput()};
  }
  const std::optional<cad::SaveReport>& save = session_.host().lastSave();
  if (!save) return Failure{L"", L"not saved: the host was not asked to"};
  if (!save->status) {
    return Failure{L"",
                   L"not saved: " + base::pathText(drawing.target) + L": " + save->status.failure().reason};
  }
  std::error_code error;
  if (report_.savedPath[0] == L'\0' || !std::filesystem::exists(drawing.target, error)) {
    return Failure{L"", L"not saved: " + base::pathText(drawing.target) + L" is not there after saving"};
  }
  return {};
}

bool DrawingConversion::reportProblems(const PlannedDrawing& drawing) const {
  // The last problem of a drawing that was not saved says so without the host's reason.
  const bool isSaved = report_.end != kKivConverted || report_.savedPath[0] != L'\0';
  const int told = isSaved ? report_.problemCount : report_.problemCount - 1;
  for (int i = 0; i < told; ++i) complain(drawing.given + L": " + report_.problems[i]);
  for (int i = 0; i < report_.noteCount; ++i) complain(drawing.given + L": " + noteText(report_.notes[i]));
  for (const Failure& remark : session_.host().takeRemarks()) complain(drawing.given + L": " + remark.text());
  return report_.problemCount + report_.noteCount == 0;
}

void DrawingConversion::reportLog() {
  if (report_.logFailure[0] == L'\0' || !isLogComplete_) return;
  isLogComplete_ = false;
  complain(L"kivcvt: the log cannot be written: " + std::wstring(report_.logFailure));
}

}  // namespace kivcli
