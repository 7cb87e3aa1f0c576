// The rings of a fill form trees. From any place of ring k+1 straight towards the outline one gets to ring k after
// one step, through places deeper than ring k, so there always is a free move from a ring to one of those around
// it: its parent. Rests hang on the ring inside of them when it is near, else on the one around them. The outermost
// rings are the roots. A root around an island is hung on the nearest ring of another tree that a free move leads
// to.
//
// Starts are chosen from the outside inwards: a ring begins where it is nearest to the start of its parent, so the
// moves between the rings of a plain pocket make one straight line. Where several hang on one parent, the nearest
// is attached at the parent's start and the others where they are.
#include "closed/pathwerk/poche/Arbre.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <utility>

#include "base/Arret.h"
#include "base/Indices.h"

namespace pathwerk::poche {

namespace {

constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr std::size_t Essais = 8;       // places of a ring tried for a free move
constexpr double Reserve = 0.9;         // share of the radius by which one place may clear a whole spot
constexpr std::size_t Sondages = 1000;  // places of a tree tried for a move to another tree

}  // namespace

Lieu ProcheSurBoucle(const Chemin& c, Vec2 p) {
  return base::LieuProche(
      c.size(), [&](std::size_t i) { return base::Arete(c, i); }, p);
}

void CommenceBoucle(Chemin& c, const Lieu& l) {
  const std::size_t n = c.size();
  const std::size_t apres = base::Suivant(l.segment, n);
  const bool nouveau = l.t > 0 && l.t < 1;
  const std::size_t premier = l.t > 0 ? apres : l.segment;
  std::rotate(c.begin(), base::Iterateur(c, premier), c.end());
  if (nouveau) c.insert(c.begin(), l.point);
}

ArbreAnneaux::Cherche::Cherche(const Anneau& anneau, bool souvent) : anneau_(anneau) {
  if (souvent) arbre_.emplace(SegmentsDe(anneau.points, true));
}

Lieu ArbreAnneaux::Cherche::PlusProche(Vec2 p) const {
  return arbre_ && !arbre_->Segments().empty() ? arbre_->PlusProche(p) : ProcheSurBoucle(anneau_.points, p);
}

// All rings of one depth.
class ArbreAnneaux::Index {
 public:
  Index(const std::vector<Anneau>& anneaux, std::vector<std::size_t> rangs)
      : rangs_(std::move(rangs)), arbre_(Segments(anneaux)) {}

  struct Trouve {
    std::size_t anneau;
    Lieu lieu;
  };
  [[nodiscard]] Trouve PlusProche(Vec2 p) const {
    const Lieu l = arbre_.PlusProche(p);
    return {Rang(l.segment), l};
  }
  // Where in the index the rings lie that `accepte(ring)` takes.
  template <class Accepte>
  [[nodiscard]] std::vector<std::uint8_t> Marques(Accepte accepte) const {
    std::vector<std::uint8_t> marques;
    for (std::size_t k = 0; k < rangs_.size(); ++k) {
      const std::size_t fin = k + 1 < rangs_.size() ? debut_[k + 1] : arbre_.Segments().size();
      arbre_.Marque(marques, debut_[k], accepte(rangs_[k]) ? fin : debut_[k]);
    }
    return marques;
  }
  // Nearest place nearer than sqrt(limite2) on rings that `accepte(ring)` takes, `marques` of the same; Aucun when
  // there is none.
  template <class Accepte>
  [[nodiscard]] Trouve PlusProche(Vec2 p, double limite2, Accepte accepte,
                                  const std::vector<std::uint8_t>& marques) const {
    const Lieu l = arbre_.PlusProche(
        p, limite2, [&](std::size_t segment) { return accepte(Rang(segment)); }, marques);
    if (l.distance2 >= limite2) return {Aucun, {}};
    return {Rang(l.segment), l};
  }
  [[nodiscard]] const ArbreSegments& Arbre() const { return arbre_; }

 private:
  [[nodiscard]] std::size_t Rang(std::size_t segment) const {
    const auto it = std::upper_bound(debut_.begin(), debut_.end(), segment) - 1;
    return rangs_[base::Indice(it - debut_.begin())];
  }
  std::vector<Segment> Segments(const std::vector<Anneau>& anneaux) {
    std::vector<Segment> segments;
    for (const std::size_t k : rangs_) {
      const Chemin& c = anneaux[k].points;
      debut_.push_back(segments.size());
      for (std::size_t i = 0; i < c.size(); ++i) segments.push_back(base::Arete(c, i));
    }
    return segments;
  }

  std::vector<std::size_t> rangs_;
  std::vector<std::size_t> debut_;  // first segment of each ring
  ArbreSegments arbre_;
};

ArbreAnneaux::ArbreAnneaux(Remplissage remplissage, const Acces& acces) : acces_(acces) {
  Ajoute(remplissage);
  LieIles(remplissage.horaire, remplissage.tolerance);
  for (std::size_t k = 0; k < anneaux_.size(); ++k) {
    if (anneaux_[k].parent != Aucun) anneaux_[anneaux_[k].parent].enfants.push_back(k);
  }
}

void ArbreAnneaux::Ajoute(Remplissage& r) {
  std::vector<std::size_t> avant;  // rings of the depth before
  std::optional<Index> indexAvant;
  for (std::size_t n = 0; n < r.niveaux.size(); ++n) {
    if (base::ArretDemande()) return;
    Niveau& niveau = r.niveaux[n];
    std::vector<std::size_t> rangs;
    for (Boucle& b : niveau.anneaux) {
      Anneau a;
      a.points = std::move(b.points);
      a.origines = std::move(b.origines);
      a.profondeur = niveau.profondeur;
      if (avant.size() == 1) a.parent = avant[0];
      if (avant.size() > 1) {
        const Niveau& dehors = r.niveaux[n - 1];
        a.parent = indexAvant->PlusProche(acces_.VersLeBord(a.points[0], dehors.profondeur)).anneau;
      }
      rangs.push_back(anneaux_.size());
      anneaux_.push_back(std::move(a));
    }
    if (n == 0) racines_ = rangs;
    const bool restesAvant = n > 0 && !r.niveaux[n - 1].fond.empty();
    std::optional<Index> index;
    if (rangs.size() > 1 || restesAvant || !niveau.fond.empty()) index.emplace(anneaux_, rangs);
    if (restesAvant) AjouteRestes(r.niveaux[n - 1], *indexAvant, &*index, r.rayon, r.pas, r.tolerance);
    avant = std::move(rangs);
    indexAvant = std::move(index);
  }
  if (!r.niveaux.empty() && !r.niveaux.back().fond.empty()) {
    AjouteRestes(r.niveaux.back(), *indexAvant, nullptr, r.rayon, r.pas, r.tolerance);
  }
}

// Hangs what is left of a spot on the ring inside of it, if that is near.
void ArbreAnneaux::Degage(Anneau& a, const Index& dedans, double rayon) const {
  std::size_t pres = 0;
  std::vector<Index::Trouve> trouves;
  std::size_t loin = 0;
  for (const Vec2 p : a.points) {
    trouves.push_back(dedans.PlusProche(p));
    const std::size_t i = trouves.size() - 1;
    if (trouves[i].lieu.distance2 < trouves[pres].lieu.distance2) pres = i;
    if (trouves[i].lieu.distance2 > trouves[loin].lieu.distance2) loin = i;
  }
  const auto accroche = [&](const Index::Trouve& t, Vec2 p) {
    if (t.lieu.distance2 > 9 * rayon * rayon || !acces_.Libre(p, t.lieu.point)) return false;
    a.fixe = true;
    a.parent = t.anneau;
    return true;
  };
  const auto place = PlacePresDeTous(a.points, trouves[loin].lieu.point, a.points[loin], Reserve * rayon);
  if (place && accroche(trouves[loin], *place)) {
    a.points.assign(1, *place);
  } else if (accroche(trouves[pres], a.points[pres])) {
    CommenceBoucle(a.points, {pres, 0, 0, a.points[pres]});
  }
}

void ArbreAnneaux::AjouteRestes(const Niveau& niveau, const Index& ici, const Index* dedans, double rayon,
                                double pas, double tolerance) {
  const double portee = PorteeDuSuivant(rayon, pas);
  for (const Chemin& fond : niveau.fond) {
    if (base::ArretDemande()) return;
    std::vector<Reste> restes;
    if (dedans == nullptr) {
      restes.push_back({fond, true});
    } else {
      restes = HorsDAtteinte(fond, dedans->Arbre(), portee, tolerance, acces_);
    }
    for (Reste& reste : restes) {
      if (base::ArretDemande()) return;
      Anneau a;
      a.points = std::move(reste.points);
      a.profondeur = niveau.profondeur + rayon;
      if (dedans != nullptr && !reste.entier) Degage(a, *dedans, rayon);
      if (a.parent == Aucun) {
        a.parent = ici.PlusProche(acces_.VersLeBord(a.points[0], niveau.profondeur)).anneau;
      }
      anneaux_.push_back(std::move(a));
    }
  }
}

// The root above every ring.
std::vector<std::size_t> ArbreAnneaux::RacinesDeTous() const {
  std::vector<std::size_t> racine(anneaux_.size(), Aucun);
  std::vector<std::size_t> chemin;
  for (std::size_t k = 0; k < anneaux_.size(); ++k) {
    std::size_t i = k;
    for (; racine[i] == Aucun && anneaux_[i].parent != Aucun; i = anneaux_[i].parent) chemin.push_back(i);
    if (racine[i] == Aucun) racine[i] = i;
    for (const std::size_t j : chemin) racine[j] = racine[i];
    chemin.clear();
  }
  return racine;
}

// Free move from one tree to its nearest neighbour.
struct ArbreAnneaux::Pont {
  std::size_t de = Aucun;
  std::size_t vers = Aucun;
  Lieu depart;
};

// Rings in groups that hang together. The smaller of two groups joins the other, so no ring changes often.
class ArbreAnneaux::Groupes {
 public:
  explicit Groupes(std::vector<std::size_t> groupe) : groupe_(std::move(groupe)), membres_(groupe_.size()) {
    for (std::size_t k = 0; k < groupe_.size(); ++k) membres_[groupe_[k]].push_back(k);
  }
  [[nodiscard]] std::size_t De(std::size_t anneau) const { return groupe_[anneau]; }
  [[nodiscard]] const std::vector<std::size_t>& Membres(std::size_t groupe) const { return membres_[groupe]; }
  void Reunit(std::size_t a, std::size_t b) {
    if (membres_[a].size() > membres_[b].size()) std::swap(a, b);
    for (const std::size_t k : membres_[a]) groupe_[k] = b;
    membres_[b].insert(membres_[b].end(), membres_[a].begin(), membres_[a].end());
    membres_[a] = {};
  }

 private:
  std::vector<std::size_t> groupe_;
  std::vector<std::vector<std::size_t>> membres_;
};

ArbreAnneaux::Pont ArbreAnneaux::PontVersAutres(const Groupes& groupes, std::size_t groupe,
                                                const Index& index) const {
  const std::vector<std::size_t>& siens = groupes.Membres(groupe);
  std::size_t points = 0;
  for (const std::size_t k : siens) points += anneaux_[k].points.size();
  const std::size_t saut = points / Sondages + 1;
  const auto autre = [&](std::size_t anneau) { return groupes.De(anneau) != groupe; };
  // All around a ring lie others of its own tree.
  const std::vector<std::uint8_t> marques = index.Marques(autre);
  std::size_t rang = 0;
  double meilleur = Inf;
  Pont pont;
  for (const std::size_t k : siens) {
    const Chemin& c = anneaux_[k].points;
    for (std::size_t i = 0; i < c.size(); ++i) {
      if (rang++ % saut != 0) continue;
      const Index::Trouve t = index.PlusProche(c[i], meilleur, autre, marques);
      if (t.anneau == Aucun || !acces_.Libre(c[i], t.lieu.point)) continue;
      meilleur = t.lieu.distance2;
      pont = {k, t.anneau, {i, 0, 0, c[i]}};
    }
  }
  return pont;
}

// Turns the tree of a ring upside down, so that it hangs there. A move whose place was known stays, and then is the
// other ring's start.
void ArbreAnneaux::Suspend(const Pont& pont) {
  std::size_t parent = pont.vers;
  bool fixe = true;
  Vec2 lieu = pont.depart.point;
  for (std::size_t k = pont.de; k != Aucun;) {
    Anneau& a = anneaux_[k];
    const bool etait = a.fixe;
    const Vec2 debut = a.points[0];
    a.fixe = fixe;
    if (fixe) CommenceBoucle(a.points, ProcheSurBoucle(a.points, lieu));
    a.apres = k != pont.de;
    const std::size_t ancien = std::exchange(a.parent, parent);
    fixe = etait;
    lieu = debut;
    parent = std::exchange(k, ancien);
  }
}

// Hangs the trees that stand around islands on their neighbours. What was above the ring at which a tree is hung on
// comes below it, and is milled behind it: still from the middle towards the island. Rings only turn here, so one
// index of their places serves for all islands.
void ArbreAnneaux::LieIles(bool horaire, double tolerance) {
  std::vector<std::size_t> iles;
  for (const std::size_t k : racines_) {
    const double aire = (horaire ? -1 : 1) * Aire(anneaux_[k].points);
    if (aire < -tolerance * Perimetre(anneaux_[k].points)) iles.push_back(k);
  }
  if (iles.empty() || base::ArretDemande()) return;
  std::vector<std::size_t> tous(anneaux_.size());
  std::iota(tous.begin(), tous.end(), std::size_t{0});
  const Index index(anneaux_, std::move(tous));
  Groupes groupes(RacinesDeTous());
  std::vector<std::uint8_t> liee(anneaux_.size(), 0);
  for (const std::size_t ile : iles) {
    if (base::ArretDemande()) break;
    const Pont pont = PontVersAutres(groupes, groupes.De(ile), index);
    if (pont.de == Aucun) continue;
    groupes.Reunit(groupes.De(ile), groupes.De(pont.vers));
    Suspend(pont);
    liee[ile] = 1;
  }
  std::erase_if(racines_, [&liee](std::size_t k) { return liee[k] != 0; });
}

std::optional<ArbreAnneaux::Lien> ArbreAnneaux::LienVers(const Cherche& parent, const Anneau& enfant,
                                                         const Lieu& depart) const {
  const auto essaie = [&](const Lieu& d) -> std::optional<Lien> {
    for (const Vec2 vers : {acces_.VersLeBord(d.point, parent.Profondeur()), d.point}) {
      const Lieu a = parent.PlusProche(vers);
      if (acces_.Libre(d.point, a.point)) return Lien{d, a};
    }
    return std::nullopt;
  };
  if (const auto lien = essaie(depart); lien || enfant.fixe) return lien;
  const std::size_t n = enfant.points.size();
  for (std::size_t k = 0; k < Essais; ++k) {
    const std::size_t i = k * n / Essais;
    if (const auto lien = essaie({i, 0, 0, enfant.points[i]})) return lien;
  }
  return std::nullopt;
}

void ArbreAnneaux::PlaceEnfants(std::size_t parent) {
  Anneau& p = anneaux_[parent];
  if (p.enfants.empty()) return;
  const Vec2 ici = p.points[0];
  const std::size_t n = p.points.size();
  const Cherche cherche(p, p.enfants.size() > 2);
  std::vector<Lieu>& proches = proches_;
  proches.clear();
  std::size_t principal = Aucun;
  double meilleur = Inf;
  for (const std::size_t e : p.enfants) {
    const Anneau& enfant = anneaux_[e];
    proches.push_back(enfant.fixe ? Lieu{0, 0, 0, enfant.points[0]} : ProcheSurBoucle(enfant.points, ici));
    if (enfant.fixe || proches.back().distance2 >= meilleur) continue;
    meilleur = proches.back().distance2;
    principal = e;
  }
  for (std::size_t k = 0; k < p.enfants.size(); ++k) {
    const std::size_t e = p.enfants[k];
    Anneau& enfant = anneaux_[e];
    Passage a{e, 0, 0, ici};
    Lieu depart = proches[k];
    if (e != principal || !acces_.Libre(depart.point, ici)) {
      const auto lien = LienVers(cherche, enfant, depart);
      if (!lien) {
        orphelins_.push_back(e);
        continue;
      }
      depart = lien->depart;
      a = {e, lien->arrivee.segment, lien->arrivee.t, lien->arrivee.point};
    } else if (enfant.apres) {
      a.arete = n;
    }
    if (!enfant.fixe) CommenceBoucle(enfant.points, depart);
    p.passages.push_back(a);
  }
  // A ring before the spots beside its start, so that the way into the depth of the pocket is not begun in a spot.
  const auto tache = [this](const Passage& a) { return anneaux_[a.enfant].points.size() == 1; };
  if (p.passages.size() < 2) return;
  std::stable_sort(p.passages.begin(), p.passages.end(), [&tache](const Passage& a, const Passage& b) {
    if (a.arete != b.arete) return a.arete < b.arete;
    return a.t != b.t ? a.t < b.t : tache(a) < tache(b);
  });
}

void ArbreAnneaux::PlaceDescendance(std::size_t racine) {
  std::vector<std::size_t> pile{racine};
  while (!pile.empty() && !base::ArretDemande()) {
    const std::size_t k = pile.back();
    pile.pop_back();
    PlaceEnfants(k);
    for (const Passage& a : anneaux_[k].passages) pile.push_back(a.enfant);
  }
}

}  // namespace pathwerk::poche
