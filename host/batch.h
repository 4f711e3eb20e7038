#pragma once
// A batch: many drawings converted one after another, each by a conversion command of its own, which a script
// of the host gives after it has opened the drawing.

namespace kiv {

// Asks for the drawings and the folder of the results, and hands the script to the host, which runs it when
// the command has ended. A choice of nothing types the interactive command, which shows the main dialog
// again. A batch that gets no script leaves the dialog hidden until that command is typed.
void startBatch();

}  // namespace kiv
