#include "closed/pathwerk/decalage/ArcRencontres.h"

#include <algorithm>
#include <cmath>

#include "base/ArbreBoites.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/commun/Suites.h"

namespace pathwerk::decalage {

namespace {

constexpr double Ecart = 1e-7;             // mm: stretches that near to each other meet
constexpr std::size_t PairesParTrait = 6;  // looked at, in the mean; more make a crowd
constexpr std::size_t PairesToujours = 256;
constexpr std::size_t RencontresToujours = 64;
constexpr std::size_t Essai = 1024;  // stretches

class Chercheur {
 public:
  Chercheur(const ArcSource& source, std::span<const ArcLibre> libres, double d)
      : source_(source), libres_(libres), r_(std::abs(d)), sens_(d > 0 ? -1 : 1) {}

  // How far an arc stands out over its chord, half a turn at most.
  [[nodiscard]] double Fleche(const ArcLibre& p) const {
    const Vec2 corde = p.b - p.a;
    return r_ - std::sqrt(std::max(0.0, r_ * r_ - Scalaire(corde, corde) / 4));
  }
  // Does an arc stay in one quarter of its circle? Then the box of its ends is its own.
  [[nodiscard]] bool DansUnQuart(const ArcLibre& p) const {
    const Vec2 c = source_.A(p.source);
    return (p.a.x > c.x) == (p.b.x > c.x) && (p.a.y > c.y) == (p.b.y > c.y);
  }
  [[nodiscard]] base::Boite<double> BoiteDe(std::size_t k) const {
    const ArcLibre& p = libres_[k];
    const double e = (p.arc && !DansUnQuart(p) ? Fleche(p) : 0) + Ecart;
    return {std::min(p.a.x, p.b.x) - e, std::min(p.a.y, p.b.y) - e, std::max(p.a.x, p.b.x) + e,
            std::max(p.a.y, p.b.y) + e};
  }
  // Of the stretch, and of the step to its start from the end of the one before.
  void AjoutePas(std::size_t k, Pas& pas) const {
    const ArcLibre& p = libres_[k];
    if (k > 0 && libres_[k - 1].suite != k) pas.Ajoute(p.a - libres_[k - 1].b);
    if (!p.arc) return pas.Ajoute(p.b - p.a);
    const Vec2 c = source_.A(p.source);
    const Vec2 u = p.a - c;
    const Vec2 v = p.b - c;
    // A turn of less than half goes between the directions of its ends.
    if (Vectoriel(u, v) * sens_ <= 1e-9 * r_ * r_ && Scalaire(u, v) < 0) return pas.AjouteTous();
    pas.Ajoute(Gauche(u) * sens_);
    pas.Ajoute(Gauche(v) * sens_);
  }
  [[nodiscard]] bool SeRencontrent(std::size_t i, std::size_t j) const {
    const ArcLibre& p = libres_[i];
    const ArcLibre& q = libres_[j];
    if (Suit(i, j) || Suit(j, i)) return Joints(p, q);
    if (!p.arc && !q.arc) return !Separe(p, q) && !Separe(q, p);
    if (p.arc && q.arc) return !Separe(p, q) && !Separe(q, p) && !Eloignes(p, q);
    return p.arc ? !SansArc(p, q) : !SansArc(q, p);
  }

 private:
  [[nodiscard]] bool Suit(std::size_t i, std::size_t j) const { return libres_[i].suite == j; }
  // Of two that follow each other: do they meet in more than one place? A parallel and the arc behind it only touch
  // there; two parallels that cut each other short cross there and nowhere else.
  [[nodiscard]] bool Joints(const ArcLibre& p, const ArcLibre& q) const {
    return (p.arc && q.arc) || (p.suite < libres_.size() && q.suite < libres_.size() && &libres_[p.suite] == &q &&
                                &libres_[q.suite] == &p);
  }
  // Does all of q lie on one side of p's line, beyond what p itself covers of it?
  [[nodiscard]] bool Separe(const ArcLibre& p, const ArcLibre& q) const {
    const Vec2 u = p.b - p.a;
    const double l = std::abs(u.x) + std::abs(u.y);  // no less than its length
    const double a = Vectoriel(u, q.a - p.a);
    const double b = Vectoriel(u, q.b - p.a);
    const double e = l * (Ecart + (q.arc ? Fleche(q) : 0));
    const double bombe = p.arc ? l * Fleche(p) : 0;  // an arc bulges to one side: to the left where it turns right
    return std::min(a, b) - e > (sens_ < 0 ? bombe : 0) || std::max(a, b) + e < -(sens_ < 0 ? 0 : bombe);
  }
  [[nodiscard]] bool Eloignes(const ArcLibre& p, const ArcLibre& q) const {
    const Vec2 w = source_.A(q.source) - source_.A(p.source);
    return Scalaire(w, w) > (2 * r_ + Ecart) * (2 * r_ + Ecart);
  }
  // Does a segment keep clear of an arc? All of it inside the circle, all outside, or behind the chord.
  [[nodiscard]] bool SansArc(const ArcLibre& arc, const ArcLibre& s) const {
    const Vec2 c = source_.A(arc.source);
    const double dedans = std::max(0.0, r_ - Ecart);
    const double a2 = Scalaire(s.a - c, s.a - c);
    const double b2 = Scalaire(s.b - c, s.b - c);
    if (std::max(a2, b2) < dedans * dedans) return true;
    if (LieuSurSegment({s.a, s.b}, c).distance2 > (r_ + Ecart) * (r_ + Ecart)) return true;
    return Separe(arc, s) || Separe(s, arc);
  }

  const ArcSource& source_;
  std::span<const ArcLibre> libres_;
  double r_;
  double sens_;  // of arcs: +1 counter-clockwise
};

}  // namespace

Rencontres::Rencontres(std::size_t nombre, std::span<const Paire> paires)
    : debuts_(nombre + 1, 0), autres_(2 * paires.size()) {
  for (const Paire& p : paires) {
    ++debuts_[p.i + 1];
    ++debuts_[p.j + 1];
  }
  for (std::size_t k = 0; k < nombre; ++k) debuts_[k + 1] += debuts_[k];
  std::vector<std::uint32_t> places(debuts_.begin(), debuts_.end() - 1);
  for (const Paire& p : paires) {
    autres_[places[p.i]++] = p.j;
    autres_[places[p.j]++] = p.i;
  }
}

std::optional<Rencontres> ChercheRencontres(const ArcSource& source, std::span<const ArcLibre> libres, double d) {
  const std::size_t n = libres.size();
  // A crowd is one from its beginning.
  if (n > 8 * Essai && !ChercheRencontres(source, libres.first(Essai), d)) return std::nullopt;
  const Chercheur chercheur(source, libres, d);
  std::vector<base::Boite<double>> boites;
  boites.reserve(n);
  const base::ArbreBoites<double, 4> arbre(n, [&](std::size_t k, base::Boite<double>& boite) {
    boites.push_back(chercheur.BoiteDe(k));
    boite.Etend(boites.back());
  });
  const Suites suites(arbre, false, [&](std::size_t k, Pas& pas) { chercheur.AjoutePas(k, pas); });
  std::vector<Rencontres::Paire> paires;
  std::size_t reste = PairesParTrait * n + PairesToujours;
  std::size_t vus = 0;  // pairs of the first ones come first
  const bool fini = suites.Parcourt([&](std::size_t i, std::size_t j) {
    if (reste-- == 0) return false;
    if (!boites[i].Rencontre(boites[j]) || !chercheur.SeRencontrent(i, j)) return true;
    paires.push_back({Numero32(i), Numero32(j)});
    vus = std::max(vus, j);
    return paires.size() <= vus / 3 + RencontresToujours;
  });
  if (!fini) return std::nullopt;
  return Rencontres(n, paires);
}

}  // namespace pathwerk::decalage
