// The wish that work ends soon, told from one thread to another.
#pragma once

#include <atomic>
#include <utility>

#include "base/SansCopie.h"

namespace base {

class Arret : SansCopie {
 public:
  Arret() = default;
  virtual ~Arret() = default;

  void Demande() { demande_.store(true, std::memory_order_relaxed); }
  void Leve() { demande_.store(false, std::memory_order_relaxed); }
  // Another class may tell it at a certain look.
  [[nodiscard]] virtual bool Demandee() const { return demande_.load(std::memory_order_relaxed); }

 private:
  std::atomic<bool> demande_{false};
};

// The one that this thread works under; null: its work runs to its end. A thread that hands a part of its work to
// another one hands this along.
inline constinit thread_local const Arret* ArretDuFil = nullptr;

// While it stands, the thread works under that wish.
class SousArret : SansCopie {
 public:
  explicit SousArret(const Arret* arret) : avant_(std::exchange(ArretDuFil, arret)) {}
  ~SousArret() { ArretDuFil = avant_; }

 private:
  const Arret* avant_;
};

// Looked at in long loops, every few hundred short steps. Who sees it leaves as soon as he can, with whatever he
// has: who has asked takes nothing of what comes back.
inline bool ArretDemande() { return ArretDuFil != nullptr && ArretDuFil->Demandee(); }

}  // namespace base
