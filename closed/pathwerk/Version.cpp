#include "closed/Pathwerk.h"

namespace pathwerk {

int Version() { return 62; }

}  // namespace pathwerk
