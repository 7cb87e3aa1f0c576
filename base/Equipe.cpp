#include "base/Equipe.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace base {

Equipe::Equipe(unsigned fils, std::size_t n, std::function<void(std::size_t)> morceau)
    : morceau_(std::move(morceau)), faits_(n, 0) {
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
  for (std::thread& fil : fils_) fil.join();
}

bool Equipe::Fait(std::size_t i) {
  const std::lock_guard<std::mutex> tient(verrou_);
  return faits_[i] != 0;
}

void Equipe::Attend(std::size_t i) {
  if (fils_.empty() && faits_[i] == 0) Fais(i);
  std::unique_lock<std::mutex> tient(verrou_);
  signal_.wait(tient, [&] { return faits_[i] != 0; });
  if (erreurs_[i]) std::rethrow_exception(erreurs_[i]);
}

void Equipe::Travaille() {
  for (;;) {
    const std::size_t i = prochain_++;
    if (i >= faits_.size()) return;
    Fais(i);
  }
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

}  // namespace base
