#include "base/RendMemoire.h"

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

namespace base {

void RendMemoire() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace base
