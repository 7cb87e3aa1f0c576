// Texts: which words stand where, as outlines.
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/Texte.h"
#include "closed/pathwerk/lecture/svg/Illustration.h"

namespace pathwerk::lecture::svg {

namespace {

constexpr std::size_t TravailMot = 2000;  // opening a font takes about a millisecond
constexpr std::size_t TravailLettre = 50;
constexpr std::size_t SubstitutionsDites = 3;
constexpr std::size_t LettresPlacees = 10'000;
constexpr double HauteurMax = 1e5;  // mm

// The length of the character at the front of UTF-8, 1 for what is none.
std::size_t LongueurLettre(std::string_view t) {
  std::size_t n = 1;
  while (n < t.size() && n < 4 && (base::Octet(t[n]) & 0xC0) == 0x80) ++n;
  return n;
}

bool Garde(pugi::xml_node element) {
  for (; element.type() == pugi::node_element; element = element.parent()) {
    if (const auto a = element.attribute("xml:space")) return std::string_view(a.value()) == "preserve";
  }
  return false;
}

}  // namespace

// A text on its way: the pen, and the words of the label that hasn't ended. All words from one place that is set to
// the next are a label, which stands at that place by its start, middle or end.
struct Illustration::Lettrage {
  struct Groupe {
    LigneLettres lettres;
    Vec2 origine;   // user units
    double mm = 1;  // mm of the letters to the user unit
    Apparence apparence;
  };
  Entourage cadre;  // of the element "text"
  pugi::xml_node element;
  Vec2 plume;
  Vec2 depart;  // of the label
  std::vector<Groupe> label;
  Apparence::Ancre ancre = Apparence::Ancre::Debut;
  // Places letter by letter, and the letter that comes next. The first place is that of the whole element.
  std::vector<double> x, y;
  std::size_t rang = 0;
  bool blanc = true;  // the last character was one, or there was none
};

void Illustration::Texte(pugi::xml_node element, const Entourage& ici) {
  if (!lettres_) return Ignore("text", 1, element);
  Lettrage lettrage;
  lettrage.cadre = ici;
  lettrage.element = element;
  lettrage.ancre = ici.apparence.ancre;
  Passage(element, ici, lettrage);
  Etiquette(lettrage);
}

// The words of an element and of those inside it.
void Illustration::Passage(pugi::xml_node element, const Entourage& ici, Lettrage& lettrage) {
  const double em = ici.apparence.corps;
  const auto premiere = [&](const char* nom, double tout) -> std::optional<double> {
    const std::string_view liste = element.attribute(nom).value();
    const std::string_view mot = base::SansBlancs(liste, EstBlancXml);
    const auto l = LitLongueur(mot.substr(0, mot.find_first_of(", \t\r\n")));
    if (!l) return std::nullopt;
    return EnPixels(*l, em, tout);
  };
  const auto x = premiere("x", ici.largeur);
  const auto y = premiere("y", ici.hauteur);
  if (x || y) {
    Etiquette(lettrage);
    lettrage.plume = {x.value_or(lettrage.plume.x), y.value_or(lettrage.plume.y)};
    lettrage.depart = lettrage.plume;
    lettrage.ancre = ici.apparence.ancre;
  }
  if (x || y) {
    lettrage.x = LitNombres(element.attribute("x").value(), LettresPlacees);
    lettrage.y = LitNombres(element.attribute("y").value(), LettresPlacees);
    lettrage.rang = 0;
  }
  lettrage.plume.x += premiere("dx", ici.largeur).value_or(0);
  lettrage.plume.y += premiere("dy", ici.hauteur).value_or(0);
  for (const pugi::xml_node enfant : element.children()) {
    if (lecture_.Refuse()) return;
    if (enfant.type() == pugi::node_pcdata || enfant.type() == pugi::node_cdata) {
      Mots(enfant.value(), ici, lettrage);
      continue;
    }
    if (enfant.type() != pugi::node_element || DitsDe(enfant).De(Propriete::Display) == "none") continue;
    const std::string_view nom = NomLocal(enfant);
    if (nom != "tspan" && nom != "a") {
      if (nom == "textPath" || nom == "tref") Ignore(nom);
      continue;
    }
    if (ici.profondeur >= 200) return Refuse(Erreur::Memoire, enfant);
    Entourage dedans = ici;
    ++dedans.profondeur;
    dedans.apparence = Herite(ici.apparence, DitsDe(enfant));
    Passage(enfant, dedans, lettrage);
  }
}

// One run of words in one style: blanks made one. Letters with places of their own are a label each.
void Illustration::Mots(std::string_view mots, const Entourage& ici, Lettrage& lettrage) {
  std::string texte;
  const bool garde = Garde(lettrage.element);
  for (const char c : mots) {
    const bool blanc = EstBlancXml(c);
    if (!blanc || garde || !lettrage.blanc) texte += blanc ? ' ' : c;
    lettrage.blanc = blanc;
  }
  std::size_t n = 0;
  while (n < texte.size() && lettrage.rang + 1 < std::max(lettrage.x.size(), lettrage.y.size())) {
    const std::size_t k = lettrage.rang++;
    if (k > 0) Etiquette(lettrage);
    if (k > 0 && k < lettrage.x.size()) lettrage.plume.x = lettrage.x[k];
    if (k > 0 && k < lettrage.y.size()) lettrage.plume.y = lettrage.y[k];
    if (k > 0) lettrage.depart = lettrage.plume;
    const std::size_t longueur = LongueurLettre(std::string_view(texte).substr(n));
    Lettres(texte.substr(n, longueur), ici, lettrage);
    n += longueur;
  }
  if (lettrage.rang > 0 && lettrage.rang < std::max(lettrage.x.size(), lettrage.y.size()) && n < texte.size()) {
    const std::size_t k = lettrage.rang++;
    Etiquette(lettrage);
    if (k < lettrage.x.size()) lettrage.plume.x = lettrage.x[k];
    if (k < lettrage.y.size()) lettrage.plume.y = lettrage.y[k];
    lettrage.depart = lettrage.plume;
  }
  if (n < texte.size()) Lettres(texte.substr(n), ici, lettrage);
}

// Letters at the pen.
void Illustration::Lettres(const std::string& texte, const Entourage& ici, Lettrage& lettrage) {
  const Apparence& a = ici.apparence;
  if (texte.empty() || !(a.corps > 0)) return;
  if (!Prend(TravailMot + TravailLettre * texte.size(), lettrage.element)) return;
  Lettrage::Groupe groupe;
  groupe.mm = lettrage.cadre.m.Agrandissement();
  groupe.apparence = a;
  groupe.origine = lettrage.plume;
  const StyleLettres style{a.familles, a.gras, a.italique, a.corps * groupe.mm, a.espace * groupe.mm, fleche_};
  if (!(style.hauteur > 0 && style.hauteur < HauteurMax)) return Ignore("text");
  if (!lettres_(style, texte, groupe.lettres)) return Ignore("text");
  if (groupe.lettres.absentes > 0) Ignore("glyph", groupe.lettres.absentes);
  if (!groupe.lettres.remplacee.empty()) {
    auto& suppose = lecture_.rapport.Suppose;
    const AvisLecture avis{Avis::PoliceRemplacee, groupe.lettres.remplacee.substr(0, 40)};
    const bool dit = std::find(suppose.begin(), suppose.end(), avis) != suppose.end();
    if (!dit && suppose.size() <= SubstitutionsDites) suppose.push_back(avis);
  }
  lettrage.plume.x += groupe.lettres.avance / groupe.mm;
  lettrage.label.push_back(std::move(groupe));
}

// Ends a label: its words go to their place.
void Illustration::Etiquette(Lettrage& lettrage) {
  std::vector<Lettrage::Groupe> label = std::exchange(lettrage.label, {});
  if (label.empty()) return;
  const double longueur = lettrage.plume.x - lettrage.depart.x;
  double recul = 0;
  if (lettrage.ancre == Apparence::Ancre::Milieu) recul = longueur / 2;
  if (lettrage.ancre == Apparence::Ancre::Fin) recul = longueur;
  for (const Lettrage::Groupe& g : label) {
    Apparence a = g.apparence;
    if (!a.visible || (!a.FondVisible() && !a.TraitVisible())) {
      Ignore("INVISIBLE");
      continue;
    }
    a.fond = a.fondOpaque = true;  // letters are outlines, whichever way they are painted
    Vide();
    Tache tache = TacheDe(lettrage.cadre, a, lettrage.element, PointsRestants());
    Plume& plume = tache.plume;
    for (const std::vector<Vec2>& contour : g.lettres.contours) {
      bool premier = true;
      for (const Vec2 p : contour) {
        const Vec2 q{g.origine.x - recul + p.x / g.mm, g.origine.y - p.y / g.mm};
        if (std::exchange(premier, false)) {
          plume.Va(q);
        } else {
          plume.Ligne(q);
        }
      }
      plume.Ferme();
      if (plume.Pleine()) break;
    }
    Emet(tache);
  }
  lettrage.plume.x -= recul;
}

}  // namespace pathwerk::lecture::svg
