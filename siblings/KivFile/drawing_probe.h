#pragma once
// Which drawings there are in a file, by its beginning alone: a folder on a slow network is told in seconds.

#include <filesystem>
#include <string>

namespace kiv {

// The number of a release: 1 for the first one known, more for each later one; the highest for an exchange
// file that is newer than all of them, which is read by the newest rules. 0: no drawing, of a version that
// nobody knows, or not readable. May be called on any thread.
using DrawingRelease = int;
inline constexpr DrawingRelease kNoDrawing = 0;

DrawingRelease probeDrawing(const std::filesystem::path& file);

// As the programs that write it call it: "R12", "2018"; "2018より後" of a newer one, "-" of kNoDrawing.
std::wstring releaseText(DrawingRelease release);

}  // namespace kiv
