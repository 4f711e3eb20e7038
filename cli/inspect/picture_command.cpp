// kivcvt picture: a drawing as an image, with what differs from another one marked.

#include "base/files.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/inspect/marks.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"
#include "embedded/graphics/pictures/picture.h"

namespace kivcli {
namespace {

base::Result<std::string> imageBytes(const cad::Picture& picture, const std::wstring& file) {
  if (cad::isPngName(file)) return cad::pngBytes(picture);
  return cad::svgText(picture);
}

}  // namespace

int runPicture(const Arguments& arguments) {
  const std::wstring& file = arguments.files.front();
  const std::unique_ptr<cad::Drawing> drawing = openDrawing(file);
  if (drawing == nullptr) return kSomeFailed;
  cad::PictureOptions options;
  options.layout = arguments.layout;
  options.width = arguments.pictureWidth;
  options.fontFolders = fontFoldersOf(file);
  if (!arguments.changedFrom.empty()) {
    const std::unique_ptr<cad::Drawing> other = openDrawing(arguments.changedFrom);
    if (other == nullptr) return kSomeFailed;
    options.marked = markedEntities(*drawing, cad::compareDrawings(*other, *drawing), DiffSide::kAfter);
  }
  const base::Result<cad::Picture> picture = cad::drawPicture(*drawing, options);
  if (!picture) {
    complainAbout(file, picture.failure());
    return kSomeFailed;
  }
  if (const base::Status unchanged = drawing->storage().checkUnchanged(); !unchanged) {
    complainAbout(file, unchanged.failure());
    return kSomeFailed;
  }
  for (const std::wstring& remark : picture.value().remarks) complain(file + L": " + translated(remark));
  const base::Result<std::string> bytes = imageBytes(picture.value(), arguments.pictureFile);
  const base::Status written =
      bytes ? base::writeFileAtomically(base::pathFromText(arguments.pictureFile), bytes.value())
            : base::Status(bytes.failure());
  if (!written) {
    complainAbout(arguments.pictureFile, written.failure());
    return kSomeFailed;
  }
  printLine(file + L" -> " + arguments.pictureFile);
  return kAllDone;
}

}  // namespace kivcli
