// What is asked of drawings: kivcvt info, explain, diff and picture.

#include "cli/commands.h"
#include "cli/language/language.h"
#include "cli/options/calls.h"
#include "cli/options/takes.h"
#include "embedded/graphics/pictures/picture.h"

namespace kivcli {
namespace {

using base::Failure;
using base::Status;

constexpr const wchar_t* kInfoExamples[] = {L"kivcvt info plan.dxf"};

Status checkDrawings(const Arguments& arguments) {
  if (arguments.files.empty()) return Failure{L"", tr(L"please name the drawings")};
  return {};
}

Status takePictureFile(Arguments& arguments, const std::wstring& value) {
  if (!cad::isSvgName(value) && !cad::isPngName(value))
    return Failure{L"", tr(L"a picture is a file *.svg or *.png")};
  arguments.pictureFile = value;
  return {};
}

constexpr OptionRow kPictureOptions[] = {
    {L"--out", L"FILE.svg|FILE.png", L"the picture; its extension tells which kind it becomes",
     takePictureFile},
    {L"--layout", L"NAME",
     L"the layout to show, Model for model space; without it the space that is current in the drawing",
     takeText<&Arguments::layout>},
    {L"--width", L"PX", L"the width in pixels, 16 to 20000, without it 1600; the height follows",
     takeNumber<&Arguments::pictureWidth, cad::kLeastPictureWidth, cad::kMostPictureWidth>},
    {L"--changed", L"OTHER", L"mark what is not as it is in the drawing OTHER",
     takeText<&Arguments::changedFrom>},
};

constexpr const wchar_t* kPictureExamples[] = {
    L"kivcvt picture plan.dxf --out plan.svg",
    L"kivcvt picture plan.dxf --layout A3 --width 800 --out plan.png",
    L"kivcvt picture converted/plan.DXF --changed plan.dxf --out changes.png",
};

Status checkPicture(const Arguments& arguments) {
  if (arguments.files.size() != 1) return Failure{L"", tr(L"please name one drawing")};
  if (arguments.pictureFile.empty())
    return Failure{L"--out", tr(L"please name the picture: --out FILE.svg or --out FILE.png")};
  return {};
}

Status takeHandle(Arguments& arguments, const std::wstring& value) {
  const bool isHandle =
      value.size() <= 16 && value.find_first_not_of(L"0123456789abcdefABCDEF") == value.npos;
  if (!isHandle || value.find_first_not_of(L'0') == value.npos)
    return Failure{L"", tr(L"a handle is a hexadecimal number, such as 1A3F")};
  arguments.entity = value;
  return {};
}

Status checkExplain(const Arguments& arguments) {
  if (arguments.specification.empty())
    return Failure{L"--spec", tr(L"please name the conversion specification: --spec FILE.cvt")};
  return checkDrawings(arguments);
}

Status checkTwo(const Arguments& arguments) {
  if (arguments.files.size() == 2) return {};
  return Failure{L"", tr(L"please name two drawings, the one before and the one after")};
}

constexpr const wchar_t* kExplainExamples[] = {L"kivcvt explain --spec office.cvt plan.dxf",
                                               L"kivcvt explain --spec office.cvt --entity 1A3F plan.dxf"};
constexpr const wchar_t* kDiffExamples[] = {L"kivcvt diff plan.dxf converted/plan.DXF",
                                            L"kivcvt diff --json before.dxf after.dxf"};

constexpr OptionRow kExplainOptions[] = {
    {L"--spec", L"FILE.cvt", L"the conversion specification", takeText<&Arguments::specification>},
    {L"--entity", L"HANDLE", L"tell of this entity alone: which condition of which setting it failed",
     takeHandle},
    {L"--block-scope", L"0|1|2", L"what to do with block references, as in convert", takeBlockScope},
    {L"--ignore-locks", L"", L"as in convert", takeSwitch<&Arguments::ignoreLocks>},
    {L"--json", L"", L"write the facts as JSON", takeSwitch<&Arguments::asJson>},
};
constexpr OptionRow kDiffOptions[] = {
    {L"--json", L"", L"write the differences as JSON", takeSwitch<&Arguments::asJson>},
};

constexpr CallRow kCalls[] = {
    {L"info",
     L"DRAWING...",
     L"tells version, code page, and counts of entities by type, layers, linetypes, text styles, blocks",
     L"",
     {},
     kInfoExamples,
     checkDrawings,
     runInfo},
    {L"picture", L"DRAWING --out FILE.svg|FILE.png [OPTION...]",
     L"writes a picture of a drawing, with lineweights, linetypes, fonts, hatch patterns and viewports",
     L"What the picture does not show is told on standard error. Fonts and files of shapes are looked for "
     L"beside "
     L"the drawing, in the folders that KIV_SUPPORT_PATH in the environment lists, in the program's own, and "
     L"among "
     L"the system's fonts.",
     kPictureOptions, kPictureExamples, checkPicture, runPicture},
    {L"explain", L"--spec FILE.cvt [OPTION...] DRAWING...",
     L"tells of each setting how many entities its conditions let pass and what its results change", L"",
     kExplainOptions, kExplainExamples, checkExplain, runExplain},
    {L"diff", L"[--json] BEFORE AFTER", L"tells how two drawings differ, entity by entity",
     L"The exit status is 0 when they do not differ, 1 when they do, 2 when one cannot be read.",
     kDiffOptions, kDiffExamples, checkTwo, runDiff},
};

}  // namespace

std::span<const CallRow> inspectCalls() { return kCalls; }

}  // namespace kivcli
