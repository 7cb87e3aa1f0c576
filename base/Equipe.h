// Work in independent pieces on several threads.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <limits>
#include <mutex>
#include <thread>
#include <vector>

#include "base/SansCopie.h"

namespace base {

// Pieces 0 to n - 1, each done once, begun in their order by whichever of the threads is free. The caller takes
// them in their order, too: it need not wait for the last one to use the first.
//
//     Equipe equipe(2, n, [&](std::size_t i) { issues[i] = Calcule(i); });
//     for (std::size_t i = 0; i < n; ++i) { equipe.Attend(i); Range(issues[i]); }
class Equipe : SansCopie {
 public:
  // `morceau` is called from several threads at once. Where the system has fewer threads it is done by those, by
  // none within `Attend`.
  // No piece is begun that lies `avance` or more behind the one that was waited for last, so that what the pieces
  // leave is not held all at once.
  Equipe(unsigned fils, std::size_t n, std::function<void(std::size_t)> morceau,
         std::size_t avance = std::numeric_limits<std::size_t>::max());
  // What has been begun is finished, what has not is left.
  ~Equipe();

  [[nodiscard]] bool Fait(std::size_t i);
  // Returns once the piece is done. What it has thrown is thrown here.
  void Attend(std::size_t i);

 private:
  void Travaille();
  void Fais(std::size_t i);
  // Returns once the piece may be begun; false when it is left.
  bool Permis(std::size_t i);

  std::function<void(std::size_t)> morceau_;
  std::atomic<std::size_t> prochain_{0};
  std::mutex verrou_;
  std::condition_variable signal_;
  // Under the lock.
  std::vector<char> faits_;
  std::vector<std::exception_ptr> erreurs_;
  std::size_t attendus_ = 0;  // behind the last piece that was waited for
  bool fini_ = false;

  std::size_t avance_;

  std::vector<std::thread> fils_;  // last: the threads see all of the above
};

// All pieces, on that many threads; in their order on the caller's own where it is one. What a piece has thrown is
// thrown here, that of the first one where several have.
void FaitTout(unsigned fils, std::size_t n, const std::function<void(std::size_t)>& morceau);
// The same for many small pieces: runs [debut, fin) of them, some for each thread.
void FaitParLots(unsigned fils, std::size_t n, const std::function<void(std::size_t debut, std::size_t fin)>& lot);

}  // namespace base
