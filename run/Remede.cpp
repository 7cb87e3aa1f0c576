#include "run/Remede.h"

#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "run/Module_Fraisage.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/ProprietesSelection.h"

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
    case SorteRemede::Profondeur:
      return avec(Textes::RemedeProfondeur, "mm");
    case SorteRemede::Encoche:
      return avec(Textes::RemedeEncoche, "mm");
    case SorteRemede::Rayon:
      return Traduire(Textes::RemedeRayon);
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
    case SorteRemede::Profondeur:
      return LimiteProfondeur(NombreDuTexte(remede.valeur).value_or(0));
    case SorteRemede::Encoche:
      return EntreLargeurEncoche(remede.valeur);
    case SorteRemede::Rayon:
    case SorteRemede::Aucun:
      break;
  }
  return false;
}

const char* ChampDuRemede(const Remede& remede) {
  return remede.sorte == SorteRemede::Rayon ? "TB_RayonFraise" : nullptr;
}

}  // namespace ovelin
