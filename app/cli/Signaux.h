// Signals that end a run of the machine: they stop it as the stop button does.
#pragma once

#include <functional>

#include "base/SansCopie.h"
#include "core/Services.h"

namespace ovelin::cli {

// While one stands, SIGINT, SIGTERM and SIGHUP set StopDemande at the next look of the run, instead of ending the
// program over a machine that moves. `regard` runs at each look, too.
class EcouteSignaux : base::SansCopie {
 public:
  explicit EcouteSignaux(const std::function<void()>& regard = {});
  ~EcouteSignaux();

  // One came.
  [[nodiscard]] static bool Venu();

 private:
  std::function<void(Evenements)> avant_;
};

}  // namespace ovelin::cli
