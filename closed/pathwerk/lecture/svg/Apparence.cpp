#include "closed/pathwerk/lecture/svg/Apparence.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Texte.h"
#include "closed/pathwerk/lecture/svg/Couleurs.h"
#include "closed/pathwerk/lecture/svg/Valeurs.h"

namespace pathwerk::lecture::svg {

namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(Propriete::Nombre)> Noms{
    "display",        "visibility",   "opacity",        "fill",        "fill-opacity",  "stroke",
    "stroke-opacity", "stroke-width", "stroke-linecap", "clip-path",   "mask",          "filter",
    "marker",         "marker-start", "marker-mid",     "marker-end",  "font",          "font-family",
    "font-size",      "font-weight",  "font-style",     "text-anchor", "letter-spacing"};

std::string_view SansBords(std::string_view t) { return base::SansBlancs(t, EstBlancXml); }

// A colour of which nothing is seen. Gradients and patterns are seen.
bool SansCouleur(std::string_view v) {
  if (v == "none" || v == "transparent") return true;
  if (v.size() == 9 && v[0] == '#') return v.ends_with("00");
  if (v.size() == 5 && v[0] == '#') return v[4] == '0';
  if (!v.starts_with("rgba(") || !v.ends_with(')')) return false;
  const std::size_t virgule = v.find_last_of(",/");
  if (virgule == std::string_view::npos) return false;
  const auto alpha = LitLongueur(v.substr(virgule + 1, v.size() - virgule - 2));
  return alpha && alpha->valeur == 0;
}

void PoseCouleur(std::string_view v, bool& peint, std::optional<std::uint32_t>& couleur) {
  peint = !SansCouleur(v);
  couleur = LitCouleur(v);
}

bool Opaque(std::string_view v) {
  const auto l = LitLongueur(v);
  return !l || l->valeur > 0;
}

bool Designe(std::string_view v) { return !v.empty() && v != "none"; }

bool EstGras(std::string_view v, bool dehors) {
  if (v == "bold" || v == "bolder") return true;
  if (v == "normal" || v == "lighter") return false;
  const auto poids = LitLongueur(v);
  return poids ? poids->valeur >= 600 : dehors;
}

void PoseCorps(Apparence& a, std::string_view v, double dehors) {
  if (const auto l = LitLongueur(v)) {
    const double corps = EnPixels(*l, dehors, dehors);
    if (corps >= 0 && std::isfinite(corps)) a.corps = corps;
    return;
  }
  constexpr std::array<std::pair<std::string_view, double>, 7> Mots{{{"xx-small", 9},
                                                                     {"x-small", 10},
                                                                     {"small", 13},
                                                                     {"medium", 16},
                                                                     {"large", 18},
                                                                     {"x-large", 24},
                                                                     {"xx-large", 32}}};
  for (const auto& [mot, corps] : Mots) {
    if (v == mot) a.corps = corps;
  }
}

// "italic bold 12px/1.2 Family": the size is the first word that begins as a number and is no weight; what stands
// behind it is the family.
void PosePolice(Apparence& a, std::string_view v, double dehors) {
  while (!v.empty()) {
    v = SansBords(v);
    const std::size_t fin = std::min(v.find_first_of(" \t\r\n"), v.size());
    const std::string_view mot = v.substr(0, fin);
    v.remove_prefix(fin);
    const auto l = LitLongueur(mot.substr(0, mot.find('/')));
    if (mot == "italic" || mot == "oblique") a.italique = true;
    if (mot == "bold" || mot == "bolder" || (l && l->unite == UniteLongueur::Aucune && l->valeur >= 600))
      a.gras = true;
    if (!l || l->unite == UniteLongueur::Aucune) continue;
    PoseCorps(a, mot.substr(0, mot.find('/')), dehors);
    if (!SansBords(v).empty()) a.familles = std::string(SansBords(v));
    return;
  }
}

void HeriteLettres(Apparence& a, const Dits& dits, const Apparence& dehors) {
  if (const auto v = dits.De(Propriete::Font); !v.empty()) {
    a.gras = a.italique = false;
    PosePolice(a, v, dehors.corps);
  }
  if (const auto v = dits.De(Propriete::FontFamily); !v.empty()) a.familles = std::string(v);
  if (const auto v = dits.De(Propriete::FontSize); !v.empty()) PoseCorps(a, v, dehors.corps);
  if (const auto v = dits.De(Propriete::FontWeight); !v.empty()) a.gras = EstGras(v, a.gras);
  if (const auto v = dits.De(Propriete::FontStyle); !v.empty()) a.italique = v != "normal";
  if (const auto v = dits.De(Propriete::TextAnchor); !v.empty()) {
    a.ancre = Apparence::Ancre::Debut;
    if (v == "middle") a.ancre = Apparence::Ancre::Milieu;
    if (v == "end") a.ancre = Apparence::Ancre::Fin;
  }
  if (const auto v = dits.De(Propriete::LetterSpacing); !v.empty()) {
    const auto l = LitLongueur(v);
    a.espace = l && std::isfinite(l->valeur) ? EnPixels(*l, a.corps, a.corps) : 0;
  }
}

}  // namespace

std::optional<Propriete> ProprieteDe(std::string_view nom) {
  const auto i = std::find(Noms.begin(), Noms.end(), nom);
  if (i == Noms.end()) return std::nullopt;
  return static_cast<Propriete>(i - Noms.begin());
}

void Dits::Pose(Propriete p, std::string_view valeur, bool important) {
  valeur = SansBords(valeur);
  Dit& dit = dits_[static_cast<std::size_t>(p)];
  if (valeur.empty() || (dit.important && !important)) return;
  if (valeur == "inherit" || valeur == "unset") valeur = {};
  dit = {valeur, important};
}

void Dits::PoseListe(std::string_view declarations) {
  while (!declarations.empty()) {
    const std::size_t fin = std::min(declarations.find(';'), declarations.size());
    const std::string_view une = declarations.substr(0, fin);
    declarations.remove_prefix(std::min(fin + 1, declarations.size()));
    const std::size_t deux = une.find(':');
    if (deux == std::string_view::npos) continue;
    const auto p = ProprieteDe(SansBords(une.substr(0, deux)));
    if (!p) continue;
    const std::string_view valeur = une.substr(deux + 1);
    const std::size_t cri = valeur.find('!');
    Pose(*p, valeur.substr(0, cri),
         cri != std::string_view::npos && valeur.substr(cri).find("important") != std::string_view::npos);
  }
}

Apparence Herite(const Apparence& dehors, const Dits& dits) {
  Apparence a = dehors;
  if (const auto v = dits.De(Propriete::Fill); !v.empty()) PoseCouleur(v, a.fond, a.couleurFond);
  if (const auto v = dits.De(Propriete::Stroke); !v.empty()) PoseCouleur(v, a.trait, a.couleurTrait);
  if (const auto v = dits.De(Propriete::FillOpacity); !v.empty()) a.fondOpaque = Opaque(v);
  if (const auto v = dits.De(Propriete::StrokeOpacity); !v.empty()) a.traitOpaque = Opaque(v);
  if (const auto v = dits.De(Propriete::StrokeWidth); !v.empty()) {
    if (const auto l = LitLongueur(v)) a.largeurTrait = l->valeur;
  }
  if (const auto v = dits.De(Propriete::StrokeLinecap); !v.empty()) a.boutRond = v != "butt";
  if (const auto v = dits.De(Propriete::Visibility); !v.empty()) a.visible = v == "visible";
  for (const Propriete p :
       {Propriete::Marker, Propriete::MarkerStart, Propriete::MarkerMid, Propriete::MarkerEnd}) {
    if (const auto v = dits.De(p); !v.empty()) a.marques = Designe(v);
  }
  HeriteLettres(a, dits, dehors);
  return a;
}

Ensemble EnsembleDe(const Dits& dits) {
  Ensemble e;
  const auto opacite = dits.De(Propriete::Opacity);
  e.montre = dits.De(Propriete::Display) != "none" && (opacite.empty() || Opaque(opacite));
  e.decoupe = Designe(dits.De(Propriete::ClipPath));
  e.masque = Designe(dits.De(Propriete::Mask));
  e.filtre = Designe(dits.De(Propriete::Filter));
  return e;
}

}  // namespace pathwerk::lecture::svg
