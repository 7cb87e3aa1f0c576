#include "run/Remede.h"

#include "core/Textes.h"
#include "core/Traduction.h"
#include "run/Module_Fraisage.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/Module_Transforme.h"

namespace ovelin {

std::string TexteRemede(const Remede& remede) {
  const auto avec = [&remede](CleTexte texte, const char* unite) {
    return Traduire(texte) + " " + remede.valeur + " " + unite;
  };
  switch (remede.sorte) {
    case SorteRemede::Coin:
      return Traduire(Textes::RemedeCoin);
    case SorteRemede::Vitesse:
      return avec(Textes::RemedeVitesse, "mm/s");
    case SorteRemede::Degagement:
      return avec(Textes::RemedeDegagement, "mm");
    case SorteRemede::Pont:
      return avec(Textes::RemedePont, "mm");
    case SorteRemede::Recouvrement:
      return avec(Textes::RemedeRecouvrement, "%");
    case SorteRemede::Aucun:
      break;
  }
  return "";
}

bool Remedie(const Remede& remede) {
  switch (remede.sorte) {
    case SorteRemede::Coin:
      return PlaceAuCoin();
    case SorteRemede::Vitesse:
      return !EntreVit_Mat_H(remede.valeur);
    case SorteRemede::Degagement:
      return LaisseHautDeg(remede.valeur) && EntreHautDeg(remede.valeur);
    case SorteRemede::Pont:
      return EntreMiniEncoche(remede.valeur);
    case SorteRemede::Recouvrement:
      return EntrePCPoche(remede.valeur);
    case SorteRemede::Aucun:
      break;
  }
  return false;
}

}  // namespace ovelin
