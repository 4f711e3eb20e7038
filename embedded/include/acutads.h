#pragma once
// Utility functions: result buffers, text output, wildcard match.

#include "AdAChar.h"
#include "acutmem.h"
#include "adsdef.h"

// A zeroed buffer of the type `restype`; release it with acutRelRb.
resbuf* acutNewRb(int restype);

// A chain from (type, value) pairs, ended by RTNONE or 0; an entity-type group is written RTDXF0. The
// C type of a value follows from its code:
//   const ACHAR*       RTSTR, RTDXF0, -4, 1..9, 100..102, 105, 300..309, 310..369 (as text), 390..399,
//                      410..419, 430..439, 470..479, 1000..1009
//   double             RTREAL, RTANG, RTORINT, 38..59, 140..149, 210..., 460..469, 1040..1042
//   const ads_real*    RT3DPOINT, RTPOINT, 10..18, 110..112, 210..219, 1010..1013 (x, y, z)
//   int                RTSHORT, RTLONG, 60..99, 160..179, 270..299, 370..389, 400..409, 420..429, ...
//   ads_name           RTENAME, RTPICKS, -1, -2
//   nothing            RTLB, RTLE, RTDOTE, RTNIL, RTT, RTVOID, -3
// Texts and points are copied. NULL for an unknown code. The caller releases the chain.
resbuf* acutBuildList(int restype, ...);

// Releases a buffer, everything after it, and the texts they hold. RTNORM.
int acutRelRb(resbuf* list);

// printf on the host's command line. RTERROR, and nothing is printed, for a text of more than 132 characters.
int acutPrintf(const ACHAR* format, ...);

// Matches the whole of `text` against a pattern: # a digit, @ a letter, . neither letter nor digit,
// * any characters, ? any one, ~ first: anything but, [..] one of, [~..] none of, - a range inside
// brackets, comma between alternatives, backquote before a character taken literally.
// RTNORM when it matches, RTERROR otherwise. Heeds case.
int acutWcMatch(const ACHAR* text, const ACHAR* pattern);
bool acutWcMatchEx(const ACHAR* text, const ACHAR* pattern, bool ignoreCase);
