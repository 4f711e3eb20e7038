#pragma once
// What a message box says when the system refuses to write or to delete a file.

#include <string>

#include "base/result.h"

namespace kiv {

// `what` has failed; under it stand the path and the reason in the person's language, for an unusual one the
// system's own words.
std::wstring refusalText(const std::wstring& what, const base::Failure& failure);

}  // namespace kiv
