// A kernel on a thread of its own, and the wait for it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

#include "base/SansCopie.h"

namespace ovelin {

class Ouvrier : base::SansCopie {
 public:
  // Begins at once. Where the system has no thread left, `noyau` runs here and is done when this returns.
  explicit Ouvrier(const std::function<void()>& noyau);
  // Waits for the end of the kernel.
  ~Ouvrier();

  // Done, or done before that time is over.
  [[nodiscard]] bool Fini(std::chrono::milliseconds delai);
  // Once it is done: what the kernel has thrown is thrown here.
  void Rend();

 private:
  std::mutex verrou_;
  std::condition_variable signal_;
  bool fini_ = false;          // under the lock
  std::exception_ptr erreur_;  // likewise until it is done
  std::thread fil_;            // last: it works on the above
};

}  // namespace ovelin
