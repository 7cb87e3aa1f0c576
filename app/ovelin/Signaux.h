// Signals that end the program, as events of its loop: a handler may do next to nothing, so it writes one byte into
// a pipe to itself.
#pragma once

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <functional>
#include <memory>

#include "base/SansCopie.h"

namespace ovelin {

class Signaux : base::SansCopie {
 public:
  // SIGINT, SIGTERM and SIGHUP from now on. A second one of the same kind ends the program at once, as if nobody
  // listened. One that the program was started to ignore (nohup) stays ignored.
  explicit Signaux(std::function<void(int signal)> recu);
  ~Signaux();

  static constexpr std::array<int, 3> Ecoutes{SIGINT, SIGTERM, SIGHUP};

 private:
  std::array<int, 2> tuyau_{-1, -1};
  std::array<struct sigaction, 3> avant_{};
  std::unique_ptr<QSocketNotifier> avis_;
};

}  // namespace ovelin
