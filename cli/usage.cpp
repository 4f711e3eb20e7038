#include "cli/usage.h"

namespace kivcli {

std::wstring usageText() {
  return LR"(kivcvt converts CAD drawings by the rules of a conversion specification (a CVT file).

  kivcvt convert --spec FILE.cvt --out DIR [OPTION...] DRAWING...
      converts every drawing into DIR, which is made when it is missing; a.dxf becomes DIR/a.DXF
      --format dxf|dwg|dwt   the format to save; without it a drawing keeps its own
      --block-scope 0|1|2    what to do with block references: 0 convert the references (default),
                             1 convert what their definitions hold, 2 both
      --ignore-locks         convert objects on locked layers too; the layers are locked again afterwards
      --log DIR              write the conversion log, a CSV file in code page 932, into DIR
      Text search lists and drawings of arrows are looked up beside the CVT file.

  kivcvt check FILE.cvt...
      says what the reader makes of a CVT file, and every line it drops, with line number and reason

  kivcvt info DRAWING...
      version, code page, and counts of entities by type, layers, linetypes, text styles, blocks

  kivcvt help, kivcvt --version

Exit status: 0 all done; 1 some drawing failed or had a problem, lines of the CVT file are dropped, or
the log or standard output cannot be written, each named on standard error; 2 the command line or the
CVT file is unusable. Drawings are read and written as DXF; DWG and DWT are refused for now.)";
}

std::wstring versionText() { return L"kivcvt " KIV_VERSION; }

}  // namespace kivcli
