#pragma once
// Commands driven by a program. Tokens are what a user would type; "" is Enter. A sequence that ends
// while a command still asks leaves its prompt open; the next call goes on there, and a call without
// tokens closes it. RTNORM, or RTERROR when a command refused or is unknown.

#include "adsdef.h"

class AcApDocument;

// (type, value) pairs ended by RTNONE or 0: RTSTR with a text, RTREAL with a double, RTSHORT or RTLONG
// with an int, RT3DPOINT with an ads_point.
int acedCommandS(int type, ...);
int acedCommandS();
int acedCmdS(const resbuf* tokens, bool forFutureUse = false, AcApDocument* document = nullptr);
