#include "closed/pathwerk/lecture/svg/ReglesCss.h"

#include <algorithm>
#include <utility>

#include "base/Texte.h"
#include "closed/pathwerk/lecture/svg/Valeurs.h"

namespace pathwerk::lecture::svg {

namespace {

constexpr int ProfondeurMax = 4;  // of sheets inside conditions
// What no honest document needs keeps the time bounded: parts of a selector, classes of a part and of an element.
constexpr std::size_t PartiesMax = 32;
constexpr std::size_t ClassesMax = 16;
constexpr std::size_t MotsMax = 64;

std::string_view SansBords(std::string_view t) { return base::SansBlancs(t, EstBlancXml); }

// Comments, and the marks that hid a sheet from old readers, become blanks.
std::string SansCommentaires(std::string_view t) {
  std::string s;
  s.reserve(t.size());
  while (!t.empty()) {
    const std::size_t debut = std::min(t.find("/*"), t.size());
    s += t.substr(0, debut);
    t.remove_prefix(debut);
    if (t.empty()) break;
    const std::size_t fin = t.find("*/", 2);
    t.remove_prefix(fin == std::string_view::npos ? t.size() : fin + 2);
    s += ' ';
  }
  for (const std::string_view marque : {"<!--", "-->"}) {
    for (std::size_t i = s.find(marque); i != std::string::npos; i = s.find(marque, i)) {
      std::fill_n(s.begin() + static_cast<std::ptrdiff_t>(i), marque.size(), ' ');
    }
  }
  return s;
}

// The place of the brace that closes the one at `debut`; the end when there is none.
std::size_t Fermante(std::string_view t, std::size_t debut) {
  std::size_t profondeur = 0;
  for (std::size_t i = debut; i < t.size(); ++i) {
    if (t[i] == '{') ++profondeur;
    if (t[i] == '}' && --profondeur == 0) return i;
  }
  return t.size();
}

template <class Action>
void PourChaqueMot(std::string_view t, Action action) {
  std::size_t nombre = 0;
  for (t = SansBords(t); !t.empty() && nombre < MotsMax; t = SansBords(t), ++nombre) {
    const auto fin = std::find_if(t.begin(), t.end(), EstBlancXml);
    const auto n = static_cast<std::size_t>(fin - t.begin());
    action(t.substr(0, n));
    t.remove_prefix(n);
  }
}

}  // namespace

std::string_view NomLocal(pugi::xml_node element) {
  const std::string_view nom = element.name();
  const std::size_t deux = nom.find(':');
  return deux == std::string_view::npos ? nom : nom.substr(deux + 1);
}

void ReglesCss::Ajoute(std::string_view feuille) { LitFeuille(textes_.emplace_back(SansCommentaires(feuille)), 0); }

void ReglesCss::LitFeuille(std::string_view texte, int profondeur) {
  for (texte = SansBords(texte); !texte.empty(); texte = SansBords(texte)) {
    const std::size_t accolade = texte.find('{');
    if (texte[0] == '@' && texte.find(';') < accolade) {  // another sheet is never fetched
      if (texte.starts_with("@import")) ++ecartes_;
      texte.remove_prefix(texte.find(';') + 1);
      continue;
    }
    if (accolade == std::string_view::npos) return;
    const std::string_view tete = SansBords(texte.substr(0, accolade));
    const std::size_t fin = Fermante(texte, accolade);
    const std::string_view corps = texte.substr(accolade + 1, fin - accolade - 1);
    texte.remove_prefix(std::min(fin + 1, texte.size()));
    if (!tete.starts_with('@')) {
      LitRegle(tete, corps);
    } else if (tete.starts_with("@media") && profondeur < ProfondeurMax &&
               (tete.find("screen") != std::string_view::npos || tete.find("all") != std::string_view::npos)) {
      LitFeuille(corps, profondeur + 1);
    }
  }
}

void ReglesCss::LitRegle(std::string_view selecteurs, std::string_view declarations) {
  while (!selecteurs.empty()) {
    const std::size_t virgule = std::min(selecteurs.find(','), selecteurs.size());
    Selecteur s;
    s.declarations = declarations;
    if (LitSelecteur(selecteurs.substr(0, virgule), s)) {
      Range(std::move(s));
    } else {
      ++ecartes_;
    }
    selecteurs.remove_prefix(std::min(virgule + 1, selecteurs.size()));
  }
}

bool ReglesCss::LitSelecteur(std::string_view texte, Selecteur& selecteur) {
  bool enfant = false;
  bool lisible = true;
  const auto ajoute = [&](std::string_view t) {
    Simple s;
    lisible = lisible && LitSimple(t, s);
    s.enfant = std::exchange(enfant, false);
    selecteur.poids += (s.identite.empty() ? 0U : 1U << 20) + (s.type.empty() ? 0U : 1U);
    selecteur.poids += static_cast<std::uint32_t>(std::min<std::size_t>(s.classes.size(), 100)) << 10;
    selecteur.suite.push_back(std::move(s));
  };
  PourChaqueMot(texte, [&](std::string_view mot) {
    while (!mot.empty()) {
      const std::size_t fleche = std::min(mot.find('>'), mot.size());
      if (fleche > 0) ajoute(mot.substr(0, fleche));
      if (fleche < mot.size()) enfant = true;
      mot.remove_prefix(std::min(fleche + 1, mot.size()));
    }
  });
  return lisible && !selecteur.suite.empty() && selecteur.suite.size() <= PartiesMax && !enfant;
}

bool ReglesCss::LitSimple(std::string_view texte, Simple& simple) {
  if (texte.find_first_of("[]:+~()\"'\\") != std::string_view::npos) return false;
  const std::size_t fin = std::min(texte.find_first_of(".#"), texte.size());
  simple.type = texte.substr(0, fin) == "*" ? std::string_view() : texte.substr(0, fin);
  texte.remove_prefix(fin);
  while (!texte.empty()) {
    const char sorte = texte[0];
    const std::size_t n = std::min(texte.find_first_of(".#", 1), texte.size());
    const std::string_view nom = texte.substr(1, n - 1);
    if (nom.empty()) return false;
    if (sorte == '#') {
      simple.identite = nom;
    } else {
      if (simple.classes.size() == ClassesMax) return false;
      simple.classes.push_back(nom);
    }
    texte.remove_prefix(n);
  }
  return true;
}

void ReglesCss::Range(Selecteur&& selecteur) {
  const Simple& dedans = selecteur.suite.back();
  std::string clef = "*";
  if (!dedans.type.empty()) clef = dedans.type;
  if (!dedans.classes.empty()) clef = "." + std::string(dedans.classes[0]);
  if (!dedans.identite.empty()) clef = "#" + std::string(dedans.identite);
  parClef_[clef].push_back(selecteurs_.size());
  selecteurs_.push_back(std::move(selecteur));
}

bool ReglesCss::Convient(const Simple& simple, pugi::xml_node element) {
  if (!simple.type.empty() && simple.type != NomLocal(element)) return false;
  if (!simple.identite.empty() && simple.identite != element.attribute("id").value()) return false;
  return std::all_of(simple.classes.begin(), simple.classes.end(), [&](std::string_view c) {
    bool trouvee = false;
    PourChaqueMot(element.attribute("class").value(), [&](std::string_view mot) { trouvee = trouvee || mot == c; });
    return trouvee;
  });
}

// From the inside out, each part at the nearest element that it fits. A selector that mixes both kinds of nesting
// could ask for going back; it is then missed, never matched wrongly.
bool ReglesCss::Convient(const Selecteur& selecteur, pugi::xml_node element, std::size_t& travail) {
  std::size_t k = selecteur.suite.size() - 1;
  if (!Convient(selecteur.suite[k], element)) return false;
  while (k > 0) {
    const bool enfant = selecteur.suite[k].enfant;
    const Simple& cherche = selecteur.suite[--k];
    element = element.parent();
    ++travail;
    while (element.type() == pugi::node_element && !enfant && !Convient(cherche, element)) {
      element = element.parent();
      ++travail;
    }
    if (element.type() != pugi::node_element || !Convient(cherche, element)) return false;
  }
  return true;
}

void ReglesCss::Applique(pugi::xml_node element, Dits& dits, std::size_t& travail, std::size_t travailMax) const {
  std::vector<std::size_t> trouves;
  const auto cherche = [&](const std::string& clef) {
    const auto liste = parClef_.find(clef);
    if (liste == parClef_.end()) return;
    for (const std::size_t i : liste->second) {
      if (++travail > travailMax) return;
      if (Convient(selecteurs_[i], element, travail)) trouves.push_back(i);
    }
  };
  cherche("*");
  cherche(std::string(NomLocal(element)));
  PourChaqueMot(element.attribute("class").value(), [&](std::string_view mot) { cherche("." + std::string(mot)); });
  if (const auto id = element.attribute("id")) cherche("#" + std::string(id.value()));
  std::sort(trouves.begin(), trouves.end(), [this](std::size_t a, std::size_t b) {
    return std::pair(selecteurs_[a].poids, a) < std::pair(selecteurs_[b].poids, b);
  });
  for (const std::size_t i : trouves) {
    dits.PoseListe(selecteurs_[i].declarations);
    travail += 1 + selecteurs_[i].declarations.size() / 16;
    if (travail > travailMax) return;
  }
}

}  // namespace pathwerk::lecture::svg
