#pragma once
// The summary of a batch on the host's command line.

#include <optional>

#include "host/conversion_context.h"

namespace kiv {

// Nothing at all when no batch was prepared. Of a batch that was stopped it lists and counts what
// has had its turn, and then names the rest.
void printBatchReport(const std::optional<std::vector<BatchFile>>& files, const std::wstring& sourceFolder);

}  // namespace kiv
