#include "app/ovelin/Signaux.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace ovelin {

namespace {

volatile std::sig_atomic_t Bout = -1;  // where the handler writes

void Note(int signal) {
  const int avant = errno;
  const auto octet = static_cast<unsigned char>(signal);
  [[maybe_unused]] const ssize_t n = write(static_cast<int>(Bout), &octet, 1);
  errno = avant;
}

}  // namespace

Signaux::Signaux(std::function<void(int signal)> recu) {
  if (pipe2(tuyau_.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  Bout = tuyau_[1];
  avis_ = std::make_unique<QSocketNotifier>(tuyau_[0], QSocketNotifier::Read);
  QObject::connect(avis_.get(), &QSocketNotifier::activated, avis_.get(),
                   [lit = tuyau_[0], recu = std::move(recu)] {
                     unsigned char octet = 0;
                     if (read(lit, &octet, 1) == 1) recu(octet);
                   });
  struct sigaction action {};
  action.sa_handler = Note;
  action.sa_flags = static_cast<int>(static_cast<unsigned>(SA_RESTART) | static_cast<unsigned>(SA_RESETHAND));
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < Ecoutes.size(); ++i) {
    sigaction(Ecoutes[i], nullptr, &avant_[i]);
    if (avant_[i].sa_handler != SIG_IGN) sigaction(Ecoutes[i], &action, nullptr);
  }
}

Signaux::~Signaux() {
  if (tuyau_[0] < 0) return;
  for (std::size_t i = 0; i < Ecoutes.size(); ++i) sigaction(Ecoutes[i], &avant_[i], nullptr);
  Bout = -1;
  avis_.reset();
  close(tuyau_[0]);
  close(tuyau_[1]);
}

}  // namespace ovelin
