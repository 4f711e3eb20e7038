#pragma once
// A batch: many drawings converted one after another, each by a conversion command of its own.

#include "host/conversion_context.h"

namespace kiv {

// Begins a batch with what the context holds. False: nothing was begun, and the main dialog is to be shown
// again.
bool startBatch();

// A drawing has been converted and closed. The last one brings the user back to where the batch began; the
// host may suspend the command that activates another document, so nothing is left to do after it.
void endBatchStep();

// The summary on the host's command line; nothing at all when no batch was prepared.
void printBatchReport(const std::optional<std::vector<BatchFile>>& files, const std::wstring& sourceFolder);

}  // namespace kiv
