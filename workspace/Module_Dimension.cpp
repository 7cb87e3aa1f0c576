#include "workspace/Module_Dimension.h"

#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "toolpath/Module_Transforme.h"

namespace ovelin {

namespace {

constexpr double Decimales = 1000;  // sizes show micrometres; limits are held against what they show

double Affichee(double mm) { return std::nearbyint(mm * Decimales) / Decimales; }

double Ecart(float debut, float fin) { return double{fin} - debut; }

double PlusLoin(float debut, float fin) { return std::max<double>(std::abs(debut), std::abs(fin)); }

AxeDimension Axe(double taille, double course, double loin) {
  AxeDimension axe;
  axe.initial = axe.resultat = taille;
  axe.course = course;
  axe.loin = loin;
  return axe;
}

void PoseRapport(AxeDimension& axe, double rapport) {
  axe.rapport = rapport;
  axe.resultat = axe.initial * rapport;
}

// What is stored in 32 bits must not become 0 or no number.
bool Nul(double rapport) {
  const auto r = static_cast<float>(std::clamp(rapport, -1e38, 1e38));
  return r == 0 || !std::isfinite(rapport);
}

bool Depasse(const AxeDimension& axe) {
  return Affichee(std::abs(axe.resultat)) > axe.course || std::abs(axe.rapport) * axe.loin > CoordonneeMax;
}

}  // namespace

ChampsDimension ChampsDe(const DemandeDimension& demande) {
  ChampsDimension champs;
  champs.axes[0] = Axe(demande.largeur, demande.courseX, PlusLoin(Xmin, Xmax));
  champs.axes[1] = Axe(demande.hauteur, demande.courseY, PlusLoin(Ymin, Ymax));
  return champs;
}

DemandeDimension DemandeDuDocument() {
  DemandeDimension demande;
  demande.largeur = Ecart(Xmin, Xmax);
  demande.hauteur = Ecart(Ymin, Ymax);
  demande.courseX = LimiteCourseX();
  demande.courseY = LimiteCourseY();
  return demande;
}

void EntreRapport(ChampsDimension& champs, std::size_t axe, double rapport) {
  PoseRapport(champs.axes[axe], rapport);
  if (champs.proportions) PoseRapport(champs.axes[1 - axe], rapport);
}

bool EntreResultat(ChampsDimension& champs, std::size_t axe, double resultat) {
  AxeDimension& a = champs.axes[axe];
  if (a.initial == 0) return false;
  EntreRapport(champs, axe, resultat / a.initial);
  a.resultat = resultat;  // as typed, not as the division gives it back
  return true;
}

void EntreProportions(ChampsDimension& champs, bool proportions) {
  champs.proportions = proportions;
  if (proportions) EntreRapport(champs, 0, champs.axes[0].rapport);
}

RefusDimension VerifieDimension(const ChampsDimension& champs) {
  for (std::size_t axe = 0; axe < champs.axes.size(); ++axe) {
    if (Nul(champs.axes[axe].rapport)) return {Textes::RapportNul, axe};
  }
  for (std::size_t axe = 0; axe < champs.axes.size(); ++axe) {
    if (Depasse(champs.axes[axe])) return {Textes::DimensionHorsCourse, axe};
  }
  return {};
}

std::string TexteTaille(double mm) { return Formate(mm, "0.0##"); }

std::string TexteRapport(double rapport) { return TexteNombre(EnFloat(rapport)); }

}  // namespace ovelin
