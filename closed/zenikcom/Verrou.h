// A lock between programs: who holds it holds the board. It goes with the process, however that ends.
#pragma once

#include <string>
#include <utility>

namespace zenikcom {

class Verrou {
 public:
  Verrou() = default;
  ~Verrou();
  Verrou(Verrou&& autre) noexcept : fd_(std::exchange(autre.fd_, -1)) {}
  Verrou& operator=(Verrou&& autre) noexcept {
    std::swap(fd_, autre.fd_);
    return *this;
  }

  // False when somebody else holds it. A file that can't be made locks nothing and keeps nobody out: a board must
  // not be lost to a folder without write permission. An empty name is no lock.
  bool Prend(const std::string& fichier);

 private:
  int fd_ = -1;
};

}  // namespace zenikcom
