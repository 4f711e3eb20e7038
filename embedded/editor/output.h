#pragma once
// Text to the host's command line.

#include <cstdarg>
#include <string>
#include <string_view>

#include "base/result.h"

namespace cad {

// printf in the host's wide manner on every system: %s takes a wide text, %S a narrow one.
std::wstring formatText(const wchar_t* format, va_list arguments);

void printText(std::wstring_view text);

// Prints a refusal on a line of its own and keeps it for the caller of Host::execute.
void report(const base::Failure& failure);

// Prints why a function, not a command, did not do all it was asked to, and keeps it for Host::takeRemarks.
void remark(const base::Failure& failure);

}  // namespace cad
