#include "core/ui/Ouvrier.h"

#include <system_error>

namespace ovelin {

Ouvrier::Ouvrier(const std::function<void()>& noyau) {
  try {
    fil_ = std::thread([this, &noyau] {
      std::exception_ptr erreur;
      try {
        noyau();
      } catch (...) {
        erreur = std::current_exception();
      }
      const std::lock_guard<std::mutex> tient(verrou_);
      erreur_ = erreur;
      fini_ = true;
      signal_.notify_one();
    });
  } catch (const std::system_error&) {
    noyau();
    fini_ = true;
  }
}

Ouvrier::~Ouvrier() {
  if (fil_.joinable()) fil_.join();
}

bool Ouvrier::Fini(std::chrono::milliseconds delai) {
  std::unique_lock<std::mutex> tient(verrou_);
  return signal_.wait_for(tient, delai, [this] { return fini_; });
}

void Ouvrier::Rend() {
  if (fil_.joinable()) fil_.join();
  if (erreur_) std::rethrow_exception(erreur_);
}

}  // namespace ovelin
