#pragma once
// Result buffers, entity and selection-set names, and the type codes that travel with them.

#include "adesk.h"

using ads_real = double;
using ads_point = ads_real[3];

// An entity: [0] is the value of its object id, [1] is 0. A selection set: [0] is the set's number, [1] is
// -1.
using ads_name = Adesk::IntPtr[2];

#define ads_name_clear(name) ((name)[0] = (name)[1] = 0)
#define ads_name_nil(name) ((name)[0] == 0 && (name)[1] == 0)
#define ads_name_equal(a, b) ((a)[0] == (b)[0] && (a)[1] == (b)[1])
#define ads_name_set(from, to) ((to)[0] = (from)[0], (to)[1] = (from)[1])

struct ads_binary {
  short clen;  // bytes
  char* buf;
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  ACHAR* rstring;  // owned by the buffer that acutRelRb releases
  Adesk::IntPtr rlname[2];
  Adesk::Int32 rlong;
  Adesk::Int64 mnInt64;
  struct ads_binary rbinary;
};

// One value of a chain. restype is a type code below (RT...) or a DXF group code.
struct resbuf {
  struct resbuf* rbnext;
  short restype;
  union ads_u_val resval;
};

// Value types
#define RTNONE 5000
#define RTREAL 5001
#define RTPOINT 5002
#define RTSHORT 5003
#define RTANG 5004
#define RTSTR 5005
#define RTENAME 5006
#define RTPICKS 5007
#define RTORINT 5008
#define RT3DPOINT 5009
#define RTLONG 5010
#define RTVOID 5014
#define RTLB 5016
#define RTLE 5017
#define RTDOTE 5018
#define RTNIL 5019
#define RTDXF0 5020
#define RTT 5021
#define RTRESBUF 5023
#define RTINT64 5031

// Outcomes of functions
#define RTNORM 5100
#define RTERROR (-5001)
#define RTCAN (-5002)
#define RTREJ (-5003)
#define RTFAIL (-5004)
#define RTKWORD (-5005)
