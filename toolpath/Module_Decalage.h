// The tool path, in one include: one path of the drawing into its offset trace, all traces, the notches on them,
// and the entries that change them.
#pragma once

#include "toolpath/Attaches.h"
#include "toolpath/CalculDecalage.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/ProprietesSelection.h"
#include "toolpath/traces/Encoches.h"
