#include "run/TexteDialecte.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>
#include <variant>

#include "base/Texte.h"
#include "core/Nombres.h"
#include "core/Texte8.h"
#include "run/Dialectes.h"
#include "run/LigneDialecte.h"

namespace ovelin {

namespace {

constexpr std::size_t LongueurMot = 120;  // characters of a line at most
constexpr std::size_t LongueurTitre = 60;
constexpr std::size_t LongueurExtension = 8;
constexpr std::size_t LignesMaxi = 40;
constexpr double DixiemesMicron = 10'000;  // in a millimetre: to these the difference of radii is held

// --- kinds of values

struct Titre {
  std::string Dialecte::*place;
};
struct Extension {
  std::string Dialecte::*place;
};
// A line of the file with what may stand in braces in it; `vide`: it may be none.
struct Ligne {
  std::string Dialecte::*place;
  bool vide = true;
  std::string_view accolades;
};
struct Lignes {
  std::vector<std::string> Dialecte::*place;
};
struct OuiNon {
  bool Dialecte::*place;
};
struct Entier {
  int Dialecte::*place;
  int min = 0, max = 0;
  bool ouZero = false;  // 0 may stand for none
};
struct Millimetres {
  double Dialecte::*place;
  double min = 0, max = 0;
};
struct Formes {
  FormeCommentaire Dialecte::*place;
};
struct Jeux {
  JeuCommentaire Dialecte::*place;
};

constexpr std::array<std::string_view, 3> NomsFormes{"parentheses", "point-virgule", "aucun"};
constexpr std::array<std::string_view, 2> NomsJeux{"ascii", "windows-1252"};

struct Champ {
  std::string_view cle;
  std::variant<Titre, Extension, Ligne, Lignes, OuiNon, Entier, Millimetres, Formes, Jeux> genre;
};

const std::array<Champ, 21>& Champs() {
  static const std::array<Champ, 21> Tous{{
      {"titre", Titre{&Dialecte::titre}},
      {"extension", Extension{&Dialecte::extension}},
      {"pourcent", OuiNon{&Dialecte::pourcent}},
      {"unites", Ligne{&Dialecte::unites, false, {}}},
      {"debut", Lignes{&Dialecte::debut}},
      {"outil", Lignes{&Dialecte::outil}},
      {"broche", Ligne{&Dialecte::broche, true, "{S}"}},
      {"attente", Ligne{&Dialecte::attente, true, "{s}{ms}"}},
      {"arret", Ligne{&Dialecte::arret, true, {}}},
      {"fin", Lignes{&Dialecte::fin}},
      {"commentaires", Formes{&Dialecte::commentaires}},
      {"jeu", Jeux{&Dialecte::jeu}},
      {"mots_longs", OuiNon{&Dialecte::motsLongs}},
      {"repete", OuiNon{&Dialecte::repete}},
      {"decimales", Entier{&Dialecte::decimales, 2, 6}},
      {"decimales_avance", Entier{&Dialecte::decimalesAvance, 0, 6}},
      {"avance_seule", OuiNon{&Dialecte::avanceSeule}},
      {"numeros", Entier{&Dialecte::numeros, 0, 1000}},
      {"longueur", Entier{&Dialecte::longueur, 80, 1000, true}},
      {"arcs", OuiNon{&Dialecte::arcs}},
      {"ecart_rayons", Millimetres{&Dialecte::ecartRayons, 0.0005, 0.1}},
  }};
  return Tous;
}

// --- reading

// The letters of words outside comments, with the number behind each, must not make another file of it: lengths
// are written in millimetres and places absolute.
bool DitAutreChose(std::string_view ligne) {
  for (std::size_t i = 0; i < ligne.size(); ++i) {
    if (ligne[i] != 'G' && ligne[i] != 'g') continue;
    const double numero = ValeurDebut(ligne.substr(i + 1));
    if (numero == 20 || numero == 70 || numero == 91) return true;
  }
  return false;
}

// Printable ASCII, braces for what is filled in alone.
bool EstLigne(std::string_view valeur, std::string_view accolades) {
  if (valeur.size() > LongueurMot || DitAutreChose(valeur)) return false;
  for (std::size_t i = 0; i < valeur.size(); ++i) {
    const auto c = base::Octet(valeur[i]);
    if (c < 32 || c > 126 || c == '}') return false;
    if (c != '{') continue;
    const std::size_t fin = valeur.find('}', i);
    if (fin == std::string_view::npos || accolades.find(valeur.substr(i, fin - i + 1)) == std::string_view::npos) {
      return false;
    }
    i = fin;
  }
  return true;
}

// "G21" and "G71" are the words for millimetres.
bool EstUnites(std::string_view valeur) { return valeur == "G21" || valeur == "G71"; }

template <std::size_t N>
std::optional<std::size_t> RangDe(const std::array<std::string_view, N>& noms, std::string_view valeur) {
  const auto* nom = std::ranges::find(noms, valeur);
  return nom == noms.end() ? std::nullopt : std::optional(static_cast<std::size_t>(nom - noms.begin()));
}

// Puts a value where it belongs; false where it can't be taken.
struct Pose {
  Dialecte& d;
  std::string_view valeur;
  bool premiere;  // of its key

  bool operator()(const Titre& g) const {
    const std::string texte = DeTexte8(valeur);
    if (valeur.empty() || valeur.size() > LongueurTitre) return false;
    if (std::ranges::any_of(texte, [](char c) { return base::Octet(c) < 32 || c == 127; })) return false;
    d.*g.place = texte;
    return true;
  }
  bool operator()(const Extension& g) const {
    if (valeur.empty() || valeur.size() > LongueurExtension) return false;
    const bool bonne =
        std::ranges::all_of(valeur, [](char c) { return base::EstChiffre(c) || (c >= 'a' && c <= 'z'); });
    if (bonne) d.*g.place = valeur;
    return bonne;
  }
  bool operator()(const Ligne& g) const {
    if (!EstLigne(valeur, g.accolades) || (!g.vide && !EstUnites(valeur))) return false;
    d.*g.place = valeur;
    return true;
  }
  bool operator()(const Lignes& g) const {
    std::vector<std::string>& lignes = d.*g.place;
    if (premiere) lignes.clear();
    if (valeur.empty()) return premiere;
    if (!EstLigne(valeur, {}) || lignes.size() >= LignesMaxi) return false;
    lignes.emplace_back(valeur);
    return true;
  }
  bool operator()(const OuiNon& g) const {
    if (valeur != "oui" && valeur != "non") return false;
    d.*g.place = valeur == "oui";
    return true;
  }
  bool operator()(const Entier& g) const {
    const auto v = NombreDuTexte(valeur);
    if (!v || *v != std::floor(*v)) return false;
    const bool bon = (*v >= g.min && *v <= g.max) || (g.ouZero && *v == 0);
    if (bon) d.*g.place = static_cast<int>(*v);
    return bon;
  }
  bool operator()(const Millimetres& g) const {
    const auto v = NombreDuTexte(valeur);
    if (!v || *v < g.min || *v > g.max) return false;
    d.*g.place = std::round(*v * DixiemesMicron) / DixiemesMicron;
    return true;
  }
  bool operator()(const Formes& g) const {
    const auto rang = RangDe(NomsFormes, valeur);
    if (rang) d.*g.place = static_cast<FormeCommentaire>(*rang);
    return rang.has_value();
  }
  bool operator()(const Jeux& g) const {
    const auto rang = RangDe(NomsJeux, valeur);
    if (rang) d.*g.place = static_cast<JeuCommentaire>(*rang);
    return rang.has_value();
  }
};

const Champ* ChampDe(std::string_view cle) {
  const auto* champ = std::ranges::find(Champs(), cle, &Champ::cle);
  return champ == Champs().end() ? nullptr : champ;
}

class Lecteur {
 public:
  explicit Lecteur(std::string_view nom) {
    lu_.dialecte = *DialecteDeTable("iso");
    lu_.dialecte.nom = lu_.dialecte.titre = nom;
  }

  DialecteLu Lit(std::string_view octets) {
    base::Lignes lignes(octets);
    for (std::string_view ligne; !lu_.refus && lignes.Suivante(ligne);) {
      ligne = base::SansBlancs(ligne);
      if (ligne.empty() || ligne[0] == '#' || ligne[0] == ';') continue;
      if (const auto faute = Prend(ligne, lignes.Numero())) Refuse(*faute, lignes.Numero(), ligne);
    }
    if (!lu_.refus) JugeEnsemble();
    return std::move(lu_);
  }

 private:
  void Refuse(FauteDialecte faute, long ligne, std::string_view texte) {
    lu_.refus = RefusDialecte{faute, ligne, DeTexte8(texte.substr(0, LongueurMot))};
  }

  std::optional<FauteDialecte> Prend(std::string_view ligne, long numero) {
    const std::size_t egal = ligne.find('=');
    if (egal == std::string_view::npos) return FauteDialecte::Forme;
    const std::string_view cle = base::SansBlancs(ligne.substr(0, egal));
    const std::string_view valeur = base::SansBlancs(ligne.substr(egal + 1));
    if (cle == "base") return PrendBase(valeur, numero);
    const Champ* champ = ChampDe(cle);
    if (champ == nullptr) return FauteDialecte::Cle;
    const bool premiere = lignes_.emplace(cle, numero).second;
    if (!premiere && !std::holds_alternative<Lignes>(champ->genre)) return FauteDialecte::Double;
    if (!std::visit(Pose{lu_.dialecte, valeur, premiere}, champ->genre)) return FauteDialecte::Valeur;
    return std::nullopt;
  }

  // The row that the file stands on, before all that differs from it.
  std::optional<FauteDialecte> PrendBase(std::string_view valeur, long numero) {
    const Dialecte* ligne = DialecteDeTable(valeur);
    if (!lignes_.empty() || ligne == nullptr || ligne->prescrit) return FauteDialecte::Base;
    const std::string nom = lu_.dialecte.nom;
    lu_.dialecte = *ligne;
    lu_.dialecte.nom = lu_.dialecte.titre = nom;
    lignes_.emplace("base", numero);
    return std::nullopt;
  }

  [[nodiscard]] long LigneDe(std::string_view cle) const {
    const auto ligne = lignes_.find(cle);
    return ligne == lignes_.end() ? 0 : ligne->second;
  }

  // What one line by itself can't tell: a spindle that is started and never stopped, lines beyond the limit.
  void JugeEnsemble() {
    const Dialecte& d = lu_.dialecte;
    if (!d.broche.empty() && d.arret.empty()) {
      return Refuse(FauteDialecte::Valeur, std::max(LigneDe("arret"), LigneDe("broche")), "arret =");
    }
    if (d.longueur == 0) return;
    const std::size_t numero = d.numeros > 0 ? std::string_view("N99999 ").size() : 0;
    const auto juge = [&](std::string_view cle, const std::string& mot) {
      if (!lu_.refus && mot.size() + numero > static_cast<std::size_t>(d.longueur)) {
        Refuse(FauteDialecte::Longueur, std::max(LigneDe(cle), LigneDe("longueur")), mot);
      }
    };
    // Values of the spindle have up to 9 digits, a dwell 12.
    juge("broche", MotBroche(d.broche, 999'999'999));
    juge("attente", MotAttente(d.attente, 99'999'999.999));
    juge("arret", d.arret);
    for (const auto& [cle, lignes] :
         {std::pair{"debut", &d.debut}, std::pair{"outil", &d.outil}, std::pair{"fin", &d.fin}}) {
      for (const std::string& mot : *lignes) juge(cle, mot);
    }
  }

  DialecteLu lu_;
  std::map<std::string, long, std::less<>> lignes_;  // key -> line of its first value
};

bool EstNom(std::string_view nom) {
  return !nom.empty() && nom.size() <= 40 && std::ranges::all_of(nom, [](char c) {
    return base::EstLettre(c) || base::EstChiffre(c) || c == '-' || c == '_';
  });
}

// --- writing

struct Montre {
  const Dialecte& d;
  std::string_view cle;

  [[nodiscard]] std::string Dit(std::string_view valeur) const {
    return std::string(cle) + (valeur.empty() ? " =" : " = ") + std::string(valeur) + "\n";
  }
  std::string operator()(const Titre& g) const { return Dit(EnTexte8(d.*g.place)); }
  std::string operator()(const Extension& g) const { return Dit(d.*g.place); }
  std::string operator()(const Ligne& g) const { return Dit(d.*g.place); }
  std::string operator()(const Lignes& g) const {
    std::string texte;
    for (const std::string& ligne : d.*g.place) texte += Dit(ligne);
    return texte.empty() ? Dit("") : texte;
  }
  std::string operator()(const OuiNon& g) const { return Dit(d.*g.place ? "oui" : "non"); }
  std::string operator()(const Entier& g) const { return Dit(std::to_string(d.*g.place)); }
  std::string operator()(const Millimetres& g) const {
    std::array<char, TailleNombreNC> tampon;
    return Dit({tampon.data(), EcritNombreNC(tampon.data(), d.*g.place, 4)});
  }
  std::string operator()(const Formes& g) const { return Dit(NomsFormes[static_cast<std::size_t>(d.*g.place)]); }
  std::string operator()(const Jeux& g) const { return Dit(NomsJeux[static_cast<std::size_t>(d.*g.place)]); }
};

}  // namespace

DialecteLu LitDialecte(std::string_view octets, std::string_view nom) {
  const auto refuse = [&](FauteDialecte faute) {
    return DialecteLu{{}, RefusDialecte{faute, 0, std::string(nom)}};
  };
  if (!EstNom(nom) || DialecteDeTable(nom) != nullptr) return refuse(FauteDialecte::Nom);
  if (octets.size() > TailleDialecte) return refuse(FauteDialecte::Taille);
  if (octets.starts_with("\xEF\xBB\xBF")) octets.remove_prefix(3);
  return Lecteur(nom).Lit(octets);
}

std::string EcritDialecte(const Dialecte& dialecte) {
  std::string texte;
  for (const Champ& champ : Champs()) texte += std::visit(Montre{dialecte, champ.cle}, champ.genre);
  return texte;
}

std::vector<std::string_view> ClesDialecte() {
  std::vector<std::string_view> cles;
  for (const Champ& champ : Champs()) cles.push_back(champ.cle);
  return cles;
}

}  // namespace ovelin
