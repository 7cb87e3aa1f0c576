#include "closed/pathwerk/lecture/svg/Lettres.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>

#include "base/Texte.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/lecture/svg/Valeurs.h"
#include "closed/pathwerk/texte/Ligne.h"
#include "closed/pathwerk/texte/Polices.h"

namespace pathwerk::lecture::svg {

namespace {

// What serves for a family that isn't installed: fonts of the same widths, or of the kind that is meant.
struct Remplacement {
  std::string_view famille;  // in small letters
  std::array<std::string_view, 2> par;
};
constexpr std::array Remplacements{
    Remplacement{"sans-serif", {"DejaVu Sans", "Liberation Sans"}},
    Remplacement{"sans", {"DejaVu Sans", "Liberation Sans"}},
    Remplacement{"serif", {"DejaVu Serif", "Liberation Serif"}},
    Remplacement{"monospace", {"DejaVu Sans Mono", "Liberation Mono"}},
    Remplacement{"arial", {"Liberation Sans", "DejaVu Sans"}},
    Remplacement{"helvetica", {"Liberation Sans", "DejaVu Sans"}},
    Remplacement{"times", {"Liberation Serif", "DejaVu Serif"}},
    Remplacement{"times new roman", {"Liberation Serif", "DejaVu Serif"}},
    Remplacement{"courier", {"Liberation Mono", "DejaVu Sans Mono"}},
    Remplacement{"courier new", {"Liberation Mono", "DejaVu Sans Mono"}},
};
constexpr std::size_t Generiques = 4;  // names of kinds: whatever serves is what was wanted

// The names of a list, without quotation marks.
std::vector<std::string> Noms(std::string_view liste) {
  constexpr std::size_t Max = 8;
  std::vector<std::string> noms;
  while (!liste.empty() && noms.size() < Max) {
    const std::size_t fin = std::min(liste.find(','), liste.size());
    const auto bord = [](char c) { return EstBlancXml(c) || c == '"' || c == '\''; };
    const std::string_view nom = base::SansBlancs(liste.substr(0, fin), bord);
    // A name with a slash would be taken for a file.
    if (!nom.empty() && nom.find('/') == std::string_view::npos) noms.emplace_back(nom);
    liste.remove_prefix(std::min(fin + 1, liste.size()));
  }
  return noms;
}

std::string Petites(std::string t) {
  std::transform(t.begin(), t.end(), t.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return t;
}

struct Choix {
  std::optional<texte::FacePolice> face;
  std::string remplacee;
};

Choix Choisit(const std::string& familles, bool italique, bool gras) {
  Choix choix;
  const auto essaie = [&](const std::string& nom) {
    if (!choix.face) choix.face = texte::TrouveFace(nom, italique, gras);
    return choix.face.has_value();
  };
  const std::vector<std::string> noms = Noms(familles);
  for (std::size_t i = 0; i < noms.size(); ++i) {
    if (essaie(noms[i])) {
      if (i > 0) choix.remplacee = noms[0];
      return choix;
    }
    const std::string petites = Petites(noms[i]);
    for (std::size_t k = 0; k < Remplacements.size(); ++k) {
      if (Remplacements[k].famille != petites) continue;
      for (const std::string_view par : Remplacements[k].par) essaie(std::string(par));
      if (choix.face && (i > 0 || k >= Generiques)) choix.remplacee = noms[0];
    }
    if (choix.face) return choix;
  }
  for (const char* const nom : {"DejaVu Sans", "Liberation Sans"}) essaie(nom);
  if (!choix.face) {
    for (const std::string& nom : ListePolices()) {
      if (essaie(nom)) break;
    }
  }
  if (choix.face && !noms.empty()) choix.remplacee = noms[0];
  return choix;
}

// The faces that a document has asked for: each is looked for once.
class Casse {
 public:
  const Choix& De(const StyleLettres& s) {
    constexpr std::size_t Max = 200;
    if (choix_.size() >= Max) choix_.clear();
    const auto clef = std::tuple(s.familles, s.italique, s.gras);
    auto trouve = choix_.find(clef);
    if (trouve == choix_.end()) trouve = choix_.emplace(clef, Choisit(s.familles, s.italique, s.gras)).first;
    return trouve->second;
  }

 private:
  std::map<std::tuple<std::string, bool, bool>, Choix> choix_;
};

bool Trace(Casse& casse, const StyleLettres& s, const std::string& mots, LigneLettres& ligne) {
  const Choix& choix = casse.De(s);
  if (!choix.face) return false;
  texte::LigneTexte lue;
  const double milliemes = std::clamp(1000 * s.espace / s.hauteur, -10000.0, 10000.0);
  const texte::StyleLigne style{static_cast<std::int32_t>(std::lround(milliemes)), s.italique, s.gras, s.hauteur,
                                s.fleche};
  if (texte::TraceLigne(*choix.face, mots, style, lue) != Erreur::Aucune) return false;
  ligne.contours = std::move(lue.contours);
  ligne.avance = lue.avance;
  ligne.absentes = lue.absents;
  ligne.remplacee = choix.remplacee;
  return true;
}

}  // namespace

TraceLettres LettresDuSysteme() {
  return [casse = std::make_shared<Casse>()](const StyleLettres& style, const std::string& texte,
                                             LigneLettres& ligne) { return Trace(*casse, style, texte, ligne); };
}

}  // namespace pathwerk::lecture::svg
