#pragma once
// What a batch's results must not take the place of: one another, and the drawings that they are made from.

#include <string>

#include "base/save_format.h"
#include "host/conversion_context.h"

namespace kiv {

// Why a drawing is not converted, for a person; empty: it is, and its saved name is taken from now on.
std::wstring refusalOf(const BatchFile& file, const std::wstring& path, base::SaveFormat format,
                       base::SavedNames& saved);

// True when the chosen drawings of the context, saved into `folder`, would replace drawings of its list.
bool overwritesSources(const ConversionContext& context, const std::wstring& folder);

// Asks over the host's frame; "no" is the default.
bool isOverwritingAgreed();

}  // namespace kiv
