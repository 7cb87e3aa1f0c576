#include "base/RendMemoire.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace base {

void RendMemoire() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace base
