// Processor time, in which what the rest of the computer does is not counted.
#pragma once

#include <ctime>

namespace banc {

// ms of `horloge`: CLOCK_THREAD_CPUTIME_ID for this thread, CLOCK_PROCESS_CPUTIME_ID for all of this process.
inline double Horloge(clockid_t horloge) {
  timespec t{};
  clock_gettime(horloge, &t);
  return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) * 1e-6;
}

}  // namespace banc
