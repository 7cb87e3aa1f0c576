#include "app/cli/Signaux.h"

#include <csignal>

#include "core/RunCourant.h"

namespace ovelin::cli {

namespace {

volatile std::sig_atomic_t Signal = 0;

}  // namespace

EcouteSignaux::EcouteSignaux(const std::function<void()>& regard) : avant_(Svc.LaisseEvenements) {
  Signal = 0;
  for (const int numero : {SIGINT, SIGTERM, SIGHUP}) std::signal(numero, [](int n) { Signal = n; });
  Svc.LaisseEvenements = [avant = avant_, regard](Evenements mode) {
    if (Signal != 0) StopDemande = Vrai;
    if (regard) regard();
    if (avant) avant(mode);
  };
}

EcouteSignaux::~EcouteSignaux() {
  Svc.LaisseEvenements = avant_;
  for (const int numero : {SIGINT, SIGTERM, SIGHUP}) std::signal(numero, SIG_DFL);
}

bool EcouteSignaux::Venu() { return Signal != 0; }

}  // namespace ovelin::cli
