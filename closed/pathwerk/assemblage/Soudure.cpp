// Joining of loose ends.
#include "closed/pathwerk/assemblage/Soudure.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "closed/pathwerk/assemblage/Chaines.h"
#include "closed/pathwerk/assemblage/Proches.h"
#include "closed/pathwerk/assemblage/Tri.h"
#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::assemblage {

namespace {

constexpr std::uint32_t SansNoeud = std::numeric_limits<std::uint32_t>::max();

// Ends at exactly the same place. Returns the number of the node of each end.
std::vector<std::uint32_t> RelieBoutsEgaux(const CheminsAssembles& assembles, Chaines& chaines) {
  const std::size_t n = assembles.chemins.size();
  std::vector<EntreeTri> entrees;
  for (std::size_t i = 0; i < n; ++i) {
    if (assembles.chemins[i].nature != Nature::Ouvert) continue;
    for (const auto e : {Numero32(2 * i), Numero32(2 * i + 1)}) {
      const PointF p = chaines.Place(e);
      entrees.push_back(
          {std::uint64_t{std::bit_cast<std::uint32_t>(p.x)} << 32 | std::bit_cast<std::uint32_t>(p.y), e});
    }
  }
  TrieParCle(entrees);
  std::vector<std::uint32_t> noeud(2 * n, SansNoeud);
  std::vector<Bout> groupe;
  std::uint32_t numero = 0;
  for (std::size_t a = 0; a < entrees.size();) {
    groupe.clear();
    std::size_t b = a;
    for (; b < entrees.size() && entrees[b].cle == entrees[a].cle; ++b) groupe.push_back(entrees[b].rang);
    for (const Bout e : groupe) noeud[e] = numero;
    ++numero;
    if (groupe.size() == 2) {
      if (chaines.Permis(groupe[0], groupe[1])) chaines.Relie(groupe[0], groupe[1]);
    } else {
      RelieNoeud(chaines, groupe);
    }
    a = b;
  }
  return noeud;
}

// Walks the joined paths and writes them out.
class Marche {
 public:
  Marche(const CheminsAssembles& assembles, const Chaines& chaines, const std::vector<std::uint32_t>& noeud)
      : assembles_(assembles),
        chaines_(chaines),
        noeud_(noeud),
        pris_(assembles.chemins.size(), 0),
        position_(2 * assembles.chemins.size(), 0) {}

  CheminsAssembles Deroule() {
    std::vector<Bout> suite;
    for (std::size_t i = 0; i < assembles_.chemins.size(); ++i) {
      if (pris_[i] != 0) continue;
      if (assembles_.chemins[i].nature != Nature::Ouvert) {
        pieces_.push_back({i, {}, assembles_.chemins[i].nature});
        continue;
      }
      suite.clear();
      const bool ferme = Suite(Numero32(2 * i), suite);
      for (const Bout e : suite) pris_[e / 2] = 1;
      if (ferme) {
        Separe(suite);
      } else {
        pieces_.push_back({i, suite, Nature::Ouvert});
      }
    }
    std::sort(pieces_.begin(), pieces_.end(), [](const Piece& a, const Piece& b) { return a.rang < b.rang; });
    CheminsAssembles sortie;
    sortie.points.reserve(assembles_.points.size());
    sortie.chemins.reserve(pieces_.size());
    for (const Piece& piece : pieces_) Ecrit(piece, sortie);
    return sortie;
  }

 private:
  // Paths in their order of walk, each by the end it is entered at. `rang`: its place in the file.
  struct Piece {
    std::size_t rang;
    std::vector<Bout> suite;  // empty: the path `rang` as it is
    Nature nature;
  };

  // All paths of the chain of the path that starts at `e`, in the direction of that path. True when it is closed:
  // then `e` stands first, otherwise the open start of the chain does.
  bool Suite(Bout e, std::vector<Bout>& suite) const {
    Bout tete = e;
    while (chaines_.Lien(tete) != BoutLibre) {
      tete = Oppose(chaines_.Lien(tete));
      if (tete == e) break;
    }
    const bool ferme = chaines_.Lien(tete) != BoutLibre;
    for (Bout entree = tete;;) {
      suite.push_back(entree);
      entree = chaines_.Lien(Oppose(entree));
      if (entree == BoutLibre || entree == tete) return ferme;
    }
  }

  // A closed chain that comes twice through a node falls apart there, so that two squares that share a corner stay
  // two squares:
  //        +---+
  //        |   |         the walk goes straight on through the corner;
  //    +---+---+         the loop between its two visits is a contour of its own
  //    |   |
  //    +---+
  void Separe(const std::vector<Bout>& suite) {
    std::vector<Bout> pile;
    for (const Bout e : suite) {
      pile.push_back(e);
      if (noeud_[e] != SansNoeud) position_[noeud_[e]] = pile.size();  // one above the index, 0 is absent
      const std::uint32_t fin = noeud_[Oppose(e)];
      if (fin == SansNoeud || position_[fin] == 0) continue;
      const std::size_t tete = position_[fin] - 1;
      const std::span boucle = std::span(pile).subspan(tete);
      for (const Bout k : boucle) position_[noeud_[k]] = 0;
      AjouteBoucle(boucle);
      pile.resize(tete);
    }
    for (const Bout k : pile) position_[noeud_[k]] = 0;
    if (!pile.empty()) AjouteBoucle(pile);
  }

  // Turned so that it starts with its first path of the file, in that path's direction.
  void AjouteBoucle(std::span<const Bout> boucle) {
    std::vector<Bout> suite(boucle.begin(), boucle.end());
    const auto premier = [](Bout a, Bout b) { return a / 2 < b / 2; };
    const auto tete = std::min_element(suite.begin(), suite.end(), premier);
    if ((*tete & 1U) != 0) {
      std::reverse(suite.begin(), suite.end());
      for (Bout& e : suite) e = Oppose(e);
    }
    std::rotate(suite.begin(), std::min_element(suite.begin(), suite.end(), premier), suite.end());
    const std::size_t rang = suite.front() / 2;
    pieces_.push_back({rang, std::move(suite), Nature::Ferme});
  }

  void Ecrit(const Piece& piece, CheminsAssembles& sortie) const {
    const std::size_t debut = sortie.points.size();
    Nature nature = piece.nature;
    if (piece.suite.empty()) {
      const auto pts = assembles_.De(piece.rang);
      sortie.points.insert(sortie.points.end(), pts.begin(), pts.end());
    }
    for (const Bout e : piece.suite) {
      const auto pts = assembles_.De(e / 2);
      const std::size_t n = pts.size();
      // The joint is the end of the path before it.
      for (std::size_t k = e == piece.suite.front() ? 0 : 1; k < n; ++k) {
        const PointF p = (e & 1U) != 0 ? pts[n - 1 - k] : pts[k];
        if (sortie.points.size() == debut || sortie.points.back() != p) sortie.points.push_back(p);
      }
    }
    if (!piece.suite.empty()) {
      if (nature == Nature::Ferme) sortie.points.back() = sortie.points[debut];
      while (sortie.points.size() > debut + 1 && sortie.points.back() == sortie.points[sortie.points.size() - 2]) {
        sortie.points.pop_back();
      }
      if (sortie.points.size() > debut + 2 && sortie.points.back() == sortie.points[debut]) nature = Nature::Ferme;
    }
    const std::uint16_t calque = assembles_.chemins[piece.rang].calque;
    CheminAssemble& chemin = sortie.chemins.emplace_back();
    chemin.debut = debut;
    chemin.nb = sortie.points.size() - debut;
    chemin.nature = nature;
    chemin.calque = calque;
  }

  const CheminsAssembles& assembles_;
  const Chaines& chaines_;
  const std::vector<std::uint32_t>& noeud_;
  std::vector<char> pris_;
  std::vector<std::size_t> position_;  // for each node: where the walk stands that left from it
  std::vector<Piece> pieces_;
};

}  // namespace

// Method: ends at the same float pair first, then ends within the tolerance from near to far. Where many meet in
// one point the straightest continuations are joined first. Each path is used once and none is lost.
bool Soude(CheminsAssembles& assembles, std::span<const Bouts> bouts, double tolerance) {
  const auto ouvert = [](const CheminAssemble& c) { return c.nature == Nature::Ouvert; };
  if (std::none_of(assembles.chemins.begin(), assembles.chemins.end(), ouvert)) return false;
  Chaines chaines(assembles, bouts, tolerance > 0 ? tolerance : 0);
  const std::vector<std::uint32_t> noeud = RelieBoutsEgaux(assembles, chaines);
  if (tolerance > 1e-12 && std::isfinite(tolerance)) RelieBoutsProches(assembles, chaines, tolerance);
  if (!chaines.Reliees()) return false;
  assembles = Marche(assembles, chaines, noeud).Deroule();
  return true;
}

}  // namespace pathwerk::assemblage
