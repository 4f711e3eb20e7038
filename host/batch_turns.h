#pragma once
// Which drawing of a batch has its turn. The script goes on when a drawing could not be opened, with that
// drawing's conversion command in whatever document is current then; so a command of a batch looks for the
// record that its document belongs to.

#include "host/conversion_context.h"

namespace kiv {

// The batch is under way from now on, with the pending records of the context. A script that stops at a
// drawing that cannot be opened is sent on meanwhile.
void beginBatch();

// Until the script has come to the last of its drawings, another has taken its place, or the batch is
// abandoned.
bool isBatchUnderWay();

// Whether the conversion command that runs is the script's. One that a person types while the script is
// suspended has no turn.
bool isScriptsTurn();

// The record of the current document, which the script has opened for it. Those before it that have not had
// their turn could not be opened, and so could not the next one when the document is of none of them, which
// gives null: they are told on the command line and in the log, and have failed. The record itself counts as
// failed until its drawing is saved. Null without a batch, too.
BatchFile* takeTurn();

// Behind each turn: when it was the last one, the interactive command is sent to where the batch began. The
// host may suspend the command that activates another document, so nothing is left to do afterwards.
void finishTurn();

// Nothing is converted as a part of the batch any more, and its records stay as they are. Nothing without
// one.
void abandonBatch();

}  // namespace kiv
