#include "workspace/Module_Demarrage.h"

#include "base/SansCopie.h"
#include "core/Cles.h"
#include "workspace/Module_Cycle.h"

namespace ovelin {

namespace {

// Leaves the settings file open to writes where the start has just made it.
class EcritureNeuve : base::SansCopie {
 public:
  explicit EcritureNeuve(bool neuf) : avant_(Magasin.EcrireIni) { Magasin.EcrireIni = avant_ || neuf; }
  ~EcritureNeuve() { Magasin.EcrireIni = avant_; }

 private:
  bool avant_;
};

}  // namespace

std::string DemarreProgramme(const OptionsDemarrage& options) {
  CrochetsDemarrage crochets;
  crochets.AutreCopie = [] { return false; };        // a call beside a window
  crochets.DossierTemporaire = [] { return true; };  // no undo, no snapshots
  const ResultatDemarrage r = DemarreCycle(options, crochets);
  const EcritureNeuve ecriture(r.neuf);
  ChargeTableEtFiches(options.table);
  return r.raison;
}

}  // namespace ovelin
