#include "base/files.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/drawing_summary.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host.h"

namespace kivcli {

int runInfo(const Arguments& arguments) {
  cad::Host& host = cad::Host::instance();
  host.start();
  int status = kAllDone;
  for (const std::wstring& file : arguments.files) {
    if (base::Status opened = host.openDocument(base::pathFromText(file)); !opened) {
      complainAbout(file, opened.failure());
      status = kSomeFailed;
      continue;
    }
    if (const std::wstring& warning = host.currentDrawing().facts().warning; !warning.empty()) {
      complain(file + L": " + warning);
      status = kSomeFailed;
    }
    printLine(file);
    for (const std::wstring& line : summaryLines(summarize(host.currentDrawing()))) printLine(line);
    if (base::Status closed = host.closeDocument(); !closed) {
      complainAbout(file, closed.failure());
      status = kSomeFailed;
    }
  }
  host.stop();
  return status;
}

}  // namespace kivcli
