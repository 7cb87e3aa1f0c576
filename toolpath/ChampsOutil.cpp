// What the fields of the tool panel do with their text when they are left. Each field has its own order of test and
// storing; a refused value may stand stored all the same.
#include "toolpath/ChampsOutil.h"

#include <cmath>
#include <limits>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/chemins/BoucleEntree.h"

namespace ovelin {

namespace {

bool RefuseNegatif() {
  MessageFixe("< 0 !", Icone::Exclamation);
  return false;
}

// Taken back, the value of before is in force again and the field shows it: nothing was refused.
void RecalculeTout(PasseTraces& passe) {
  if (passe.SuitTout() != IssuePasse::EnVigueur) return;
  Modifie = Vrai;
  Svc.Rafraichit();
}

constexpr LigneOutil Lignes[] = {
    {"TB_RayonFraise", "Lbl_RayonFraise", "Rayon de l'outil", "mm",
     "Rayon de la fraise : la moitié de son diamètre", EntreRayonFraise, [] { return TexteNombre(RayonFraise); },
     Textes::ChampNegatif},
    {"TB_LargeurEncoche", "Lbl_LargeurEncoche", "Largeur des encoches", "mm",
     "Largeur du pont de matière laissé à chaque point d'attache", EntreLargeurEncoche,
     [] { return TexteNombre(LargeurEncoche); }, Textes::ChampNul},
    {"TB_MiniEncoche", "Lbl_MiniEncoche", "Hauteur mini des encoches", "mm",
     "Hauteur du pont de matière au-dessus du fond de la coupe", EntreMiniEncoche,
     [] { return TexteNombre(MiniEncoche); }, Textes::ChampNegatif},
    {"TB_HautDeg", "Lbl_HautDeg", "Hauteur dégagement (mm)", "",
     "Hauteur de l'outil au-dessus de la matière pendant les déplacements", EntreHautDeg,
     [] { return TexteNombre(Regl.HautDeg); }, Textes::ChampNegatif},
    {"TB_PCPoche", "Lbl_PCPoche", "% recouvrement poches", "",
     "Part de la passe précédente que l'outil recouvre dans une poche", EntrePCPoche,
     [] { return TexteNombre(long{PCPoche}); }, std::nullopt},
    {"TB_ProfPasse", "Lbl_ProfPasse", "Profondeur de passe maxi", "mm",
     "Profondeur d'une passe, négative : -1 enlève 1 mm à chaque passe", EntreProfPasse,
     [] { return TexteNombre(ProfPasse); }, Textes::ProfondeurNonNegative},
    {"TB_AngleRampe", "Lbl_AngleRampe", "Angle de descente en rampe", "°",
     "0 : l'outil descend tout droit ; sinon il s'enfonce en suivant le contour fermé sous cet angle, 45° au plus",
     EntreAngleRampe, [] { return TexteNombre(AngleRampe); }, Textes::AngleRampeHors},
};

}  // namespace

std::span<const LigneOutil> LignesOutil() { return Lignes; }

IssueOutil EntreOutil(const LigneOutil& ligne, const std::string& texte) {
  const auto stocke = [&] { return NombreDuTexte(texte) == NombreDuTexte(ligne.valeur()); };
  if (ligne.entre == EntreHautDeg && !LaisseHautDeg(texte)) return {false, ligne.raison, stocke()};
  if (ligne.entre(texte)) return {true, std::nullopt, true};
  if (!EstNumerique(texte)) return {false, Textes::ChampNonNombre, false};
  return {false, ligne.raison, stocke()};
}

bool EntreRayonFraise(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  PasseTraces passe;
  RayonFraise = *v;
  if (*v < 0) return RefuseNegatif();
  RecalculeTout(passe);
  return true;
}

bool EntreLargeurEncoche(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v || *v == 0) return false;
  PasseTraces passe;
  LargeurEncoche = *v;
  EcritOutil();
  RecalculeTout(passe);
  return true;
}

bool EntreMiniEncoche(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  MiniEncoche = *v;
  if (*v < 0) return RefuseNegatif();
  Modifie = Vrai;
  EcritMateriau();
  return true;
}

// The test looks at the height in force, not at the entry: a negative one gets through, and the next is refused.
bool EntreHautDeg(const std::string& texte) {
  if (HautDeg < 0) return RefuseNegatif();
  const auto v = NombreDuTexte(texte);
  if (!v || std::abs(*v) > std::numeric_limits<float>::max()) return false;
  HautDeg = static_cast<float>(*v);
  Regl.HautDegSaisie = true;
  Modifie = Vrai;
  EcritMateriau();
  return true;
}

bool LaisseHautDeg(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (v && *v < 0) return false;
  if (HautDeg < 0) HautDeg = 0;
  return true;
}

bool EntrePCPoche(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  PasseTraces passe;
  PCPoche = Arrondi16(*v);
  EcritOptions();
  RecalculeTout(passe);
  return true;
}

bool EntreProfPasse(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  ProfPasse = *v;
  if (!(*v < 0)) {
    Message(Textes::ProfondeurNonNegative, Icone::Exclamation);
    return false;
  }
  Modifie = Vrai;
  EcritMateriau();
  if (EstRampe(AngleRampe)) Svc.Rafraichit();  // the picture shows the ramp of a pass
  return true;
}

bool EntreAngleRampe(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return false;
  if (*v != 0 && !EstRampe(*v)) {
    Message(Textes::AngleRampeHors, Icone::Exclamation);
    return false;
  }
  AngleRampe = *v;
  Modifie = Vrai;
  EcritRampe();
  Svc.Rafraichit();
  return true;
}

std::optional<double> RampeDePasse() {
  if (!EstRampe(AngleRampe) || !(ProfPasse < 0)) return std::nullopt;
  return LongueurRampe(-ProfPasse, AngleRampe);
}

}  // namespace ovelin
