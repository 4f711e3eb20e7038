#pragma once
// Commands driven by a program. Tokens are what a user would type; "" is Enter. A sequence is complete within
// its call: a command that still asks when the tokens end is cancelled. A call without tokens does nothing
// then. RTNORM, or RTERROR when a command refused, was cancelled or is unknown, and outside a running command
// of a document: the application's own context runs no commands.

#include "adsdef.h"

class AcApDocument;

// (type, value) pairs ended by RTNONE or 0: RTSTR with a text, RTREAL with a double, RTSHORT or RTLONG
// with an int, RT3DPOINT with an ads_point.
int acedCommandS(int type, ...);
int acedCommandS();
int acedCmdS(const resbuf* tokens, bool forFutureUse = false, AcApDocument* document = nullptr);
