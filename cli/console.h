#pragma once
// The program's two outputs, as UTF-8: results on standard output, complaints on standard error. The bytes
// of a file name that is not UTF-8 come out as they came in.

#include <string>
#include <string_view>

#include "base/result.h"

namespace kivcli {

// Control characters, which names of files and layers may hold, are shown as "\x1b": they could move the
// cursor, hide what stands before them or have a line read as two.
void printLine(std::wstring_view text);
void complain(std::wstring_view text);

void printText(std::wstring_view text);  // of several lines, all the program's own

// The first failure of writing to standard output, which ends the printing; complaints go on.
const base::Status& printingStatus();

// A failure's place and reason, in the user's language.
std::wstring shown(const base::Failure& failure);
void complainOfProgram(const base::Failure& failure);

// A failure with a file, under the name that the user typed even when the failure tells another one; the
// reason is in the user's language.
std::wstring complaintAbout(const std::wstring& file, const base::Failure& failure);
void complainAbout(const std::wstring& file, const base::Failure& failure);

}  // namespace kivcli
