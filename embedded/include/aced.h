#pragma once
// The editor.

#include "acadstrc.h"
#include "accmd.h"
#include "acdb.h"
#include "acdocman.h"
#include "acedCmdNF.h"
#include "acedads.h"
#include "rxregsvc.h"
