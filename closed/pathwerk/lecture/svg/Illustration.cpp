#include "closed/pathwerk/lecture/svg/Illustration.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Indices.h"
#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::lecture::svg {

namespace {

constexpr double MmParPixel = 25.4 / 96;
constexpr int ProfondeurMax = 200;
constexpr std::size_t GenresMax = 100;  // kinds told apart in the report
// How many points a file of this size may give, at some 45 bytes of memory each, with a constant for figures that a
// few bytes describe.
std::size_t PointsMax(std::size_t octets) { return 900'000 + octets * 13 / 10; }
// Elements that refer to elements take no memory but all the time. One unit is about a microsecond.
std::size_t TravailMax(std::size_t octets) { return 20'000'000 + 100 * octets; }
constexpr std::size_t TravailElement = 4;

// Nothing of these is drawn where it stands.
constexpr auto Muets = std::to_array<std::string_view>(
    {"defs",           "symbol",       "clipPath",   "mask",      "marker", "pattern",       "linearGradient",
     "radialGradient", "meshgradient", "filter",     "metadata",  "title",  "desc",          "style",
     "view",           "cursor",       "font",       "font-face", "glyph",  "missing-glyph", "hkern",
     "color-profile",  "hatch",        "solidcolor", "solidColor"});

constexpr auto Dessines = std::to_array<std::string_view>(
    {"path", "rect", "circle", "ellipse", "line", "polyline", "polygon", "text", "use", "image", "flowRoot"});

template <std::size_t N>
bool Parmi(const std::array<std::string_view, N>& noms, std::string_view nom) {
  return std::find(noms.begin(), noms.end(), nom) != noms.end();
}

// Of the name of an element, with its colon; "" when it has none.
std::string_view Prefixe(pugi::xml_node element) {
  const std::string_view nom = element.name();
  return nom.substr(0, nom.find(':') + 1);
}

bool EstCalque(pugi::xml_node element) {
  return std::string_view(element.attribute("inkscape:groupmode").value()) == "layer";
}

// As the user calls it, or else as the program does.
std::string_view NomDuCalque(pugi::xml_node element) {
  const std::string_view nom = element.attribute("inkscape:label").value();
  return (nom.empty() ? std::string_view(element.attribute("id").value()) : nom).substr(0, NomCalqueMax);
}

// What would be drawn of an element that isn't.
struct Compteur : pugi::xml_tree_walker {
  long nombre = 0;
  std::size_t noeuds = 0;  // gone through
  bool for_each(pugi::xml_node& n) override {
    ++noeuds;
    if (n.type() == pugi::node_element && Parmi(Dessines, NomLocal(n))) ++nombre;
    return true;
  }
};

std::string_view Cible(pugi::xml_node element) {
  const auto lien = element.attribute("href") ? element.attribute("href") : element.attribute("xlink:href");
  return lien.value();
}

}  // namespace

// Elements by their identity, the first of two with the same, and the style sheets.
struct Illustration::Inventaire : pugi::xml_tree_walker {
  explicit Inventaire(Illustration& i) : illustration(i) {}
  bool for_each(pugi::xml_node& n) override {
    if (n.type() != pugi::node_element) return true;
    if (const auto id = n.attribute("id")) illustration.parIdentite_.emplace(id.value(), n);
    const std::string_view type = n.attribute("type").value();
    if (NomLocal(n) == "style" && (type.empty() || type == "text/css")) {
      std::string feuille;
      for (const pugi::xml_node t : n.children()) feuille += t.value();
      illustration.regles_.Ajoute(feuille);
    }
    return true;
  }
  Illustration& illustration;
};

Illustration::Illustration(const pugi::xml_document& document, std::string_view texte,
                           const OptionsLecture& options, const TraceLettres& lettres, Lecture& lecture,
                           Partage partage)
    : document_(document),
      options_(options),
      lettres_(lettres),
      lecture_(lecture),
      fleche_(options.Fleche > 1e-6 ? options.Fleche : 1e-6),
      partage_(partage) {
  for (std::size_t i = texte.find('\n'); i != std::string_view::npos; i = texte.find('\n', i + 1)) {
    finsDeLigne_.push_back(i);
  }
}

void Illustration::Dessine(pugi::xml_node racine, std::size_t octets) {
  pointsMax_ = PointsMax(octets);
  travailMax_ = TravailMax(octets);
  Inventaire inventaire(*this);
  pugi::xml_node tout = document_;
  tout.traverse(inventaire);
  prefixe_ = Prefixe(racine);
  if (regles_.Ecartes() > 0) Ignore("CSS", regles_.Ecartes());

  const auto vue = LitViewBox(racine.attribute("viewBox").value());
  const TailleDessin taille = TailleDe(racine.attribute("width").value(), racine.attribute("height").value(), vue);
  double mm = MmParPixel;
  if (!taille.dite && options_.UniteSupposee > 0) mm = options_.UniteSupposee;
  if (!taille.dite && !(options_.UniteSupposee > 0)) {
    lecture_.rapport.Suppose.push_back(
        {Avis::SansUniteSvg, EnTexte(taille.largeur) + " x " + EnTexte(taille.hauteur)});
  }
  Entourage autour;
  autour.m = Matrice{mm, 0, 0, -mm, 0, mm * taille.hauteur};
  autour.largeur = taille.largeur;
  autour.hauteur = taille.hauteur;
  const Dits dits = DitsDe(racine);
  if (!EnsembleDe(dits).montre) return Ignore("INVISIBLE");
  autour.apparence = Herite(autour.apparence, dits);
  Fragment(racine, autour, taille.largeur, taille.hauteur);
  Vide();
  if (!lecture_.Refuse()) Releve(taille);
}

bool Illustration::Douteux() const {
  return partage_.octets > 0 && (lecture_.Refuse() || lecture_.rapport.Ignores.size() >= GenresMax);
}

// A drawing that says nothing of its size has no lower edge to measure from: its own lowest place is 0.
void Illustration::Releve(const TailleDessin& taille) {
  if (taille.hauteur > 0) return;
  double bas = 0;
  bool premier = true;
  for (const Trait& t : lecture_.traits) {
    for (const Vec2 p : t.points) {
      if (premier || p.y < bas) bas = p.y;
      premier = false;
    }
  }
  for (Trait& t : lecture_.traits) {
    for (Vec2& p : t.points) p.y -= bas;
  }
}

void Illustration::Enfants(pugi::xml_node element, const Entourage& autour) {
  for (const pugi::xml_node enfant : element.children()) {
    if (lecture_.Refuse()) return;
    if (enfant.type() == pugi::node_element) Element(enfant, autour);
  }
}

void Illustration::Element(pugi::xml_node element, const Entourage& autour) {
  if (autour.profondeur >= ProfondeurMax) return Refuse(Erreur::Memoire, element);
  if (!Prend(TravailElement, element)) return;
  const std::string_view nom = NomLocal(element);
  if (Parmi(Muets, nom) || Prefixe(element) != prefixe_) return;
  const Dits dits = DitsDe(element);
  const Ensemble ensemble = EnsembleDe(dits);
  if (!ensemble.montre) {
    Compteur compteur;
    compteur.for_each(element);  // the walk begins below it
    element.traverse(compteur);
    // A hidden group that is referred to is counted each time, but not for ever.
    if (!Prend(compteur.noeuds, element) || compteur.nombre == 0) return;
    return Ignore(EstCalque(element) ? "LAYER" : "INVISIBLE", compteur.nombre, element);
  }
  if (ensemble.decoupe) Ignore("clip-path", 1, element);
  if (ensemble.masque) Ignore("mask", 1, element);
  if (ensemble.filtre) Ignore("filter", 1, element);
  Entourage ici = autour;
  ++ici.profondeur;
  ici.apparence = Herite(autour.apparence, dits);
  if (EstCalque(element)) ici.calque = NomDuCalque(element);
  if (const auto t = element.attribute("transform")) {
    if (const auto m = LitTransformation(t.value())) ici.m = autour.m * *m;
  }
  Contenu(element, nom, ici);
}

void Illustration::Contenu(pugi::xml_node element, std::string_view nom, const Entourage& ici) {
  if (Forme(element, nom, ici)) return;
  if (nom == "g" || nom == "a") return Enfants(element, ici);
  if (nom == "use") return Reference(element, ici);
  if (nom == "svg") return FragmentDe(element, ici, element);
  if (nom == "switch") return Choix(element, ici);
  if (nom == "text") return Texte(element, ici);
  Absent(element, nom);
}

// An element that is no path, by its name.
void Illustration::Absent(pugi::xml_node element, std::string_view nom) {
  Vide();  // it may be called as what a shape is told by, and a kind is told by its first line
  std::string propre(nom.substr(0, 32));
  for (char& c : propre) {
    if (c < ' ' || c > '~') c = '?';
  }
  Ignore(propre, 1, element);
}

// The first that asks for nothing which isn't here.
void Illustration::Choix(pugi::xml_node element, const Entourage& ici) {
  for (const pugi::xml_node enfant : element.children()) {
    if (enfant.type() != pugi::node_element) continue;
    if (enfant.attribute("requiredExtensions") || enfant.attribute("systemLanguage")) continue;
    return Element(enfant, ici);
  }
}

// Another element of the same file, drawn here. One that contains its own reference is left out.
void Illustration::Reference(pugi::xml_node element, const Entourage& ici) {
  const std::string_view lien = Cible(element);
  const auto trouve = lien.starts_with('#') ? parIdentite_.find(lien.substr(1)) : parIdentite_.end();
  if (trouve == parIdentite_.end() ||
      std::find(ouvertes_.begin(), ouvertes_.end(), trouve->second) != ouvertes_.end()) {
    return Ignore("use", 1, element);
  }
  const pugi::xml_node cible = trouve->second;
  Entourage la = ici;
  const double em = ici.apparence.corps;
  la.m =
      ici.m * Translation(Longueur(element, "x", em, ici.largeur, 0), Longueur(element, "y", em, ici.hauteur, 0));
  ouvertes_.push_back(cible);
  const std::string_view nom = NomLocal(cible);
  if (nom == "symbol" || nom == "svg") {
    const Dits dits = DitsDe(cible);
    if (EnsembleDe(dits).montre) {
      ++la.profondeur;
      la.apparence = Herite(ici.apparence, dits);
      FragmentDe(cible, la, element);
    }
  } else {
    Element(cible, la);
  }
  ouvertes_.pop_back();
}

// A symbol or a nested drawing, whose size the element `place` may give.
void Illustration::FragmentDe(pugi::xml_node element, const Entourage& ici, pugi::xml_node place) {
  if (ici.profondeur >= ProfondeurMax) return Refuse(Erreur::Memoire, element);
  const double em = ici.apparence.corps;
  Entourage la = ici;
  if (place == element) {
    la.m =
        ici.m * Translation(Longueur(element, "x", em, ici.largeur, 0), Longueur(element, "y", em, ici.hauteur, 0));
  }
  const double largeur = Longueur(element, "width", em, ici.largeur, ici.largeur);
  const double hauteur = Longueur(element, "height", em, ici.hauteur, ici.hauteur);
  Fragment(element, la, Longueur(place, "width", em, ici.largeur, largeur),
           Longueur(place, "height", em, ici.hauteur, hauteur));
}

// What is in a viewport of this size at (0, 0).
void Illustration::Fragment(pugi::xml_node element, const Entourage& ici, double largeur, double hauteur) {
  Entourage la = ici;
  la.largeur = largeur;
  la.hauteur = hauteur;
  const auto vue = LitViewBox(element.attribute("viewBox").value());
  if (vue && largeur > 0 && hauteur > 0) {
    la.m = ici.m * CadreVue(*vue, largeur, hauteur, element.attribute("preserveAspectRatio").value());
    la.largeur = vue->largeur;
    la.hauteur = vue->hauteur;
  }
  Enfants(element, la);
}

// Attributes, then sheets by the weight of their selectors, then what the element says itself; important words win.
Dits Illustration::DitsDe(pugi::xml_node element) {
  Dits dits;
  for (const pugi::xml_attribute a : element.attributes()) {
    if (const auto p = ProprieteDe(a.name())) dits.Pose(*p, a.value());
  }
  if (!regles_.Vide()) regles_.Applique(element, dits, travail_, travailMax_);
  if (const auto style = element.attribute("style")) {
    const std::string_view texte = style.value();
    travail_ += texte.size() / 64;
    dits.PoseListe(texte);
  }
  return dits;
}

double Illustration::Longueur(pugi::xml_node element, const char* nom, double em, double tout, double sinon) {
  const auto l = LitLongueur(element.attribute(nom).value());
  return l ? EnPixels(*l, em, tout) : sinon;
}

bool Illustration::Prend(std::size_t travail, pugi::xml_node element) {
  travail_ += travail;
  if (travail_ <= travailMax_) return true;
  Refuse(Erreur::Memoire, element);
  return false;
}

void Illustration::Refuse(Erreur numero, pugi::xml_node element) {
  if (lecture_.Refuse()) return;
  lecture_.traits.clear();
  lecture_.Refuse(numero, LigneDe(element), NomLocal(element));
}

void Illustration::Ignore(std::string_view genre, long nombre, pugi::xml_node element) {
  const auto& ignores = lecture_.rapport.Ignores;
  const bool neuf = !ignores.contains(std::string(genre));
  lecture_.Ignore(neuf && ignores.size() >= GenresMax ? "..." : genre, nombre, LigneDe(element));
}

long Illustration::LigneDe(pugi::xml_node element) const {
  const std::ptrdiff_t place = element.offset_debug();
  if (place < 0 || finsDeLigne_.empty()) return 0;
  const auto i = std::lower_bound(finsDeLigne_.begin(), finsDeLigne_.end(), base::Indice(place));
  return 1 + (i - finsDeLigne_.begin());
}

}  // namespace pathwerk::lecture::svg
