#include "base/Equipe.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace base {

Equipe::Equipe(unsigned fils, std::size_t n, std::function<void(std::size_t)> morceau, std::size_t avance)
    : morceau_(std::move(morceau)), faits_(n, 0), avance_(avance) {
  erreurs_.resize(n);
  const std::size_t nombre = std::min<std::size_t>(fils, n);
  fils_.reserve(nombre);
  try {
    while (fils_.size() < nombre) fils_.emplace_back([this] { Travaille(); });
  } catch (const std::system_error&) {  // those that there are
  }
}

Equipe::~Equipe() {
  prochain_ = faits_.size();
  {
    const std::lock_guard<std::mutex> tient(verrou_);
    fini_ = true;
  }
  signal_.notify_all();
  for (std::thread& fil : fils_) fil.join();
}

bool Equipe::Fait(std::size_t i) {
  const std::lock_guard<std::mutex> tient(verrou_);
  return faits_[i] != 0;
}

void Equipe::Attend(std::size_t i) {
  if (fils_.empty() && faits_[i] == 0) Fais(i);
  std::unique_lock<std::mutex> tient(verrou_);
  if (i >= attendus_) {
    attendus_ = i + 1;
    signal_.notify_all();
  }
  signal_.wait(tient, [&] { return faits_[i] != 0; });
  if (erreurs_[i]) std::rethrow_exception(erreurs_[i]);
}

void Equipe::Travaille() {
  for (;;) {
    const std::size_t i = prochain_++;
    if (i >= faits_.size() || !Permis(i)) return;
    Fais(i);
  }
}

bool Equipe::Permis(std::size_t i) {
  std::unique_lock<std::mutex> tient(verrou_);
  signal_.wait(tient, [&] { return fini_ || i < attendus_ || i - attendus_ < avance_; });
  return !fini_;
}

void Equipe::Fais(std::size_t i) {
  std::exception_ptr erreur;
  try {
    morceau_(i);
  } catch (...) {
    erreur = std::current_exception();
  }
  const std::lock_guard<std::mutex> tient(verrou_);
  erreurs_[i] = std::move(erreur);
  faits_[i] = 1;
  signal_.notify_all();
}

void FaitTout(unsigned fils, std::size_t n, const std::function<void(std::size_t)>& morceau) {
  if (fils < 2 || n < 2) {
    for (std::size_t i = 0; i < n; ++i) morceau(i);
    return;
  }
  Equipe equipe(fils, n, morceau);
  for (std::size_t i = 0; i < n; ++i) equipe.Attend(i);
}

void FaitParLots(unsigned fils, std::size_t n, const std::function<void(std::size_t, std::size_t)>& lot) {
  constexpr std::size_t LotsParFil = 8;
  const std::size_t lots = fils < 2 ? 1 : std::min(n, fils * LotsParFil);
  FaitTout(fils, n == 0 ? 0 : lots, [&](std::size_t i) { lot(n * i / lots, n * (i + 1) / lots); });
}

}  // namespace base
