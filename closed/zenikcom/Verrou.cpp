#include "closed/zenikcom/Verrou.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace zenikcom {

Verrou::~Verrou() {
  if (fd_ >= 0) close(fd_);
}

bool Verrou::Prend(const std::string& fichier) {
  if (fichier.empty() || fd_ >= 0) return true;
  // Locks of flock() belong to the open file: two links of one process keep each other out as two programs do.
  fd_ = open(fichier.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (fd_ < 0) return true;
  int r = 0;
  do r = flock(fd_, LOCK_EX | LOCK_NB);
  while (r != 0 && errno == EINTR);
  if (r == 0 || errno != EWOULDBLOCK) return true;
  close(fd_);
  fd_ = -1;
  return false;
}

}  // namespace zenikcom
