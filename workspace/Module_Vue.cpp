#include "workspace/Module_Vue.h"

#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Services.h"
#include "core/Textes.h"

namespace ovelin {

constinit EtatVue Vue;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Vue = EtatVue{}; });

constexpr double FacteurPlus = 1.1;
constexpr double FacteurMoins = 0.9;
constexpr double FacteurFleche = 1.1;
constexpr double FacteurCran = 1.1;
constexpr double CransMax = 100;  // of one turn of the wheel

bool Multiplie(double facteur) {
  Zoom = BorneZoom(Zoom * facteur);
  return true;
}

bool SansEtendue() { return Xmax == Xmin && Ymax == Ymin; }

float AjusteDocument(const TailleImage& taille) { return ZoomAjuste(Xmin, Xmax, Ymin, Ymax, taille, MargeVue); }

}  // namespace

bool MetEnPageVue(const TailleImage& taille) {
  OrigineEcranX = taille.largeur / 2;
  OrigineEcranY = taille.hauteur / 2;
  if (TraceInitial.empty()) return false;
  if (SansEtendue()) {
    Message(Textes::DessinSansEtendue, Icone::Critique);
    return false;
  }
  const float rapport = Vue.DernierAjuste > 0 ? Zoom / Vue.DernierAjuste : 1.0F;
  Vue.DernierAjuste = AjusteDocument(taille);
  Zoom = BorneZoom(double{Vue.DernierAjuste} * rapport);
  return true;
}

bool mnu_Zoom1(const TailleImage& taille) {
  Zoom = AjusteDocument(taille);
  Vue.DernierAjuste = Zoom;
  OrigineDessinX = (Xmin + Xmax) / 2;
  OrigineDessinY = (Ymin + Ymax) / 2;
  return MetEnPageVue(taille);
}

bool mnu_ZoomPlus() { return Multiplie(FacteurPlus); }

bool mnu_ZoomMoins() { return Multiplie(FacteurMoins); }

bool Combo_Zoom(std::string_view choix) {
  if (choix == "+") return mnu_ZoomPlus();
  if (choix == "-") return mnu_ZoomMoins();
  return false;
}

bool Combo_ZoomFleche(PasZoom pas) { return Multiplie(pas == PasZoom::Plus ? FacteurFleche : 1 / FacteurFleche); }

bool MoletteVue(const TailleImage& taille, float x, float y, double crans) {
  if (crans == 0 || std::isnan(crans)) return false;
  const double facteur = std::pow(FacteurCran, std::clamp(crans, -CransMax, CransMax));
  Vue = ZoomeAuPoint(Vue, taille.hauteur, x, y, static_cast<float>(facteur));
  return true;
}

}  // namespace ovelin
