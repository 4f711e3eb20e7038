#pragma once

namespace kiv {

// Begins a batch with what the context holds. False: nothing was begun, and the main dialog is to be shown
// again.
bool startBatch();

}  // namespace kiv
