// Holds other processes out while a file is read, changed and renamed.
#pragma once

#include <string>

#include "base/SansCopie.h"
#include "core/Fichiers.h"

namespace ovelin {

// The lock lies on the folder of the file: the file itself is another one behind each write, and a file of its own
// would stay behind. Where a file system knows no locks, nobody is held out.
class Verrou : base::SansCopie {
 public:
  Verrou() = default;
  ~Verrou();

  // Waits for `attente` seconds at most. "", or that another program holds the file.
  ErreurSysteme Prend(const std::string& chemin, double attente);

 private:
  int fd_ = -1;
};

}  // namespace ovelin
