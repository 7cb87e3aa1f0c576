// What can't be copied.
#pragma once

namespace base {

// Base of a class that stands for something outside itself: a lock, a file, a bar on the screen.
class SansCopie {
 public:
  SansCopie(const SansCopie&) = delete;
  SansCopie& operator=(const SansCopie&) = delete;

 protected:
  SansCopie() = default;
  ~SansCopie() = default;
};

}  // namespace base
