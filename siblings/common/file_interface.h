#pragma once
// What KivFile.arx and the modules that load it agree on: choosing drawings, and telling the version of one.
// Plain functions, found by their names; nothing is thrown. Host's main thread only.

struct resbuf;

namespace kiv {

// dll_kiv_openmulti: lets the user choose drawings of one folder and the format to save them in. `owner` is
// the window that the dialog lies over (a window of the system; null: the host's frame), `title` its caption.
// Null: nothing was chosen. Otherwise a list that the caller releases with acutRelRb:
//   RTSHORT  the number N of chosen drawings, 1 and more
//   RTLONG   the save format, a number of base::SaveFormat
//   RTLONG   a second choice, carried unchanged; 0
//   RTSTR    the folder, with or without a separator at its end
//   RTSTR    N names with their extensions, without the folder, in the order in which they were listed
using OpenMulti = resbuf*(void* owner, const wchar_t* title);

// dll_kiv_GetAcadFileVer: the version of the drawing at `path`, 1 and more in the order of the releases; of a
// DXF file or a template too. One that is newer than all known ones has the highest in an exchange file.
// Below 1: no drawing, of a version that nobody knows, or not readable (missing, a folder, empty, locked by
// another process). Reads the beginning of the file only.
using GetDrawingFileVersion = int(const wchar_t* path);

}  // namespace kiv
