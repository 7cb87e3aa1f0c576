// Free stretches by subtraction.
//
// The places too near to one source segment make a stadium, a convex set. A straight line cuts it in one interval,
// and so does a circle of the same radius as its caps. So each raw piece starts whole, and every stadium that
// reaches it takes an interval away in closed form:
//
//        raw piece   |------------------------------|
//        stadiums       (======)      (=========)
//        left        |--|      |------|         |---|      free, to the last digit
//
// What is left is the true border, no matter how the raw pieces cross, and a piece never needs to know the others.
// The segments are searched in a tree, nearest first; the search disc shrinks with what is left, and most buried
// pieces are gone after a few steps, the last killers being tried before anything else. Beside a smooth outline
// nearly all that is found takes nothing away: that is told first, at a tenth of the price of the cut.
//
// Two pieces that coincide and run the same way would both stay, since neither is inside the other's stadium: the
// one of the lower index keeps the place.
#include "closed/pathwerk/decalage/ArcTaille.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcRetrait.h"

namespace pathwerk::decalage {

namespace {

constexpr double Court = 1e-10;  // a stretch shorter than this (mm, or measure of angle) is none

// How far the unit circle stands out over a chord, of an arc up to half a turn.
double Fleche(Vec2 corde) { return 1 - std::sqrt(std::max(0.0, 1 - Scalaire(corde, corde) / 4)); }

}  // namespace

double Balayage(Vec2 a, Vec2 b, double sens) {
  double w = std::atan2(sens * Vectoriel(a, b), Scalaire(a, b));
  if (w < -1e-6) w += 2 * std::numbers::pi;
  return std::clamp(w, 0.0, std::numbers::pi);
}

ArcTailleur::ArcTailleur(const ArcSource& source, double d, double bruit, const Tueurs* tueurs)
    : source_(source),
      tueurs_(tueurs),
      arbre_(tueurs == nullptr ? source.Boites() : tueurs->arbre),
      d_(d),
      r_(std::abs(d)),
      bruit_(bruit),
      sens_(d > 0 ? -1 : 1),
      loin2_((r_ + 2 * bruit) * (r_ + 2 * bruit)) {}

double ArcTailleur::Mesure(Vec2 u) const {
  const double x = Scalaire(u_, u);
  const double y = sens_ * Vectoriel(u_, u);
  const double s = std::abs(x) + std::abs(y);
  if (y >= 0) return x >= 0 ? y / s : 1 - x / s;
  return x < 0 ? 2 - y / s : 3 + x / s;
}

Vec2 ArcTailleur::Milieu(const LimiteLibre& b0, const LimiteLibre& b1) const {
  if (!arc_) return origine_ + u_ * ((b0.t + b1.t) / 2);
  const Vec2 s = b0.u + b1.u;
  const double n = Norme(s);
  // Opposite ends: a quarter turn on from the first.
  const Vec2 m = n > 1e-6 ? s * (1 / n) : Gauche(b0.u) * sens_;
  return origine_ + m * r_;
}

void ArcTailleur::PoseSegment(std::size_t i, Vec2 u, double l) {
  arc_ = false;
  i_ = i;
  u_ = u;
  origine_ = Depart(i, false, u);
  fin_ = l;
  reste_.assign(1, Intervalle{{0, u, Naturel}, {l, u, Naturel}});
}

void ArcTailleur::PoseArc(std::size_t i, Vec2 u0, Vec2 u1) {
  arc_ = true;
  i_ = i;
  u_ = u0;
  origine_ = source_.A(i);
  fin_ = std::min(Mesure(u1), 2.0);
  reste_.assign(1, Intervalle{{0, u0, Naturel}, {fin_, u1, Naturel}});
}

bool ArcTailleur::TailleSegment(std::size_t i, Vec2 u, double l, bool avant, bool apres) {
  return EntameSegment(i, u, l, avant, apres) && TailleRestes();
}

bool ArcTailleur::TailleArc(std::size_t i, Vec2 u0, Vec2 u1) { return EntameArc(i, u0, u1) && TailleRestes(); }

bool ArcTailleur::EntameSegment(std::size_t i, Vec2 u, double l, bool avant, bool apres) {
  PoseSegment(i, u, l);
  Cadre();
  nbEssayes_ = 0;
  if (agite_ > 0) EssaieDerniers();
  const std::size_t voisins[] = {source_.Precedent(i), source_.Suivant(i)};
  if (avant && !reste_.empty()) RetireVoisin(voisins[0]);
  if (apres && !reste_.empty()) RetireVoisin(voisins[1]);
  if (reste_.empty()) {
    agite_ = Apaise;
    return false;
  }
  essayes_[nbEssayes_++] = voisins[0];
  essayes_[nbEssayes_++] = voisins[1];
  return true;
}

bool ArcTailleur::EntameArc(std::size_t i, Vec2 u0, Vec2 u1) {
  PoseArc(i, u0, u1);
  Cadre();
  nbEssayes_ = 0;
  if (agite_ > 0) EssaieDerniers();
  agite_ = reste_.empty() ? Apaise : agite_;
  return !reste_.empty();
}

// Both pieces in one frame: the arc reaches back by no more than its chord, and down by its rise.
bool ArcTailleur::EstToutLibre(std::size_t i, Vec2 u, double l, Vec2 u0, Vec2 u1) {
  const Vec2 corde = u1 - u0;
  const double c2 = Scalaire(corde, corde);
  if (agite_ > 0 || c2 > 1) return false;
  const double recul = std::sqrt(c2) * r_;
  arc_ = false;
  i_ = i;
  u_ = u;
  origine_ = Depart(i, false, u);
  milieu_ = origine_ + u * ((l - recul) / 2);
  demi_ = (l + recul) / 2 + 1e-12;
  axe_ = u;
  sommet_ = u1;
  creux_ = c2 / 2 * r_ + 1e-12;
  bande_ = r_ + creux_ + 2 * bruit_;
  const double portee = bande_ + demi_;
  portee2_ = portee * portee;
  if (i_ < blocDebut_ || i_ >= blocFin_) ChercheBloc();
  if (blocPlein_) return false;
  essayes_[0] = source_.Precedent(i);
  essayes_[1] = source_.Suivant(i);
  nbEssayes_ = 2;
  return std::all_of(bloc_.begin(), bloc_.end(), [this](std::uint32_t feuille) {
    if (TropLoin(feuille)) return true;
    for (std::size_t k = arbre_.Debut(feuille), fin = arbre_.Fin(feuille); k < fin; ++k) {
      if (!NePeutRien(Tueur(k)) && !EstEssaye(Tueur(k))) return false;
    }
    return true;
  });
}

// What ended a stretch before ends it mostly once more, and comes first; then it need not be tried again.
bool ArcTailleur::Reprend(const PieceBrute& piece, std::span<const Intervalle> avant, bool seules) {
  arc_ = piece.arc;
  i_ = piece.source;
  u_ = piece.u;
  origine_ = Depart(i_, arc_, u_);
  fin_ = piece.fin;
  reste_.assign(avant.begin(), avant.end());
  Cadre();
  nbEssayes_ = 0;
  const std::uint32_t causes[] = {avant.front().de.cause, avant.back().a.cause};
  for (const std::uint32_t cause : causes) {
    if (cause != Naturel && !reste_.empty()) Essaie(cause);
  }
  essayes_[0] = causes[0];
  essayes_[1] = causes[1];
  nbEssayes_ = 2;
  return !reste_.empty() && (seules || Cherche());
}

void ArcTailleur::Cadre() {
  const LimiteLibre& b0 = reste_.front().de;
  const LimiteLibre& b1 = reste_.back().a;
  milieu_ = Milieu(b0, b1);
  axe_ = u_;
  if (!arc_) {
    demi_ = (b1.t - b0.t) / 2 + 1e-12;
    sommet_ = {};
    creux_ = 0;
    bande_ = r_ + 2 * bruit_;
  } else {
    demi_ = std::max(Norme(Place(b0) - milieu_), Norme(Place(b1) - milieu_)) + 1e-12;
    sommet_ = (milieu_ - origine_) * (1 / r_);
    axe_ = Gauche(sommet_);
    creux_ = Fleche(b1.u - b0.u) * r_ + 1e-12;
  }
  const double portee = r_ + demi_ + 2 * bruit_;
  portee2_ = portee * portee;
}

// Does segment j keep its distance from all that is left? Its place nearest to the middle of that is looked at, and
// the line through that place across the way there: the segment lies on one side of it, so its stadium reaches no
// farther than r to the other.
//
//               .-----m-----.        what is left, around m
//       - - - - - - - | - - - - -    r from the line
//                     |
//       --------------q---------     the line across q m; the segment lies below
//
// No branch hangs on where q lies: that can't be foretold.
bool ArcTailleur::NePeutRien(std::size_t j) const {
  const Vec2 a = source_.A(j);
  const Vec2 d = source_.B(j) - a;
  const Vec2 q = milieu_ - a;
  const double t = Scalaire(q, d) / Scalaire(d, d);
  const double s = t > 0 ? t : 0;
  const Vec2 w = q - d * (s < 1 ? s : 1);
  const double n2 = Scalaire(w, w);
  const double haut = Scalaire(sommet_, w);
  const double h = n2 - demi_ * std::abs(Scalaire(axe_, w)) - creux_ * (haut > 0 ? haut : 0);
  return h > 0 && h * h >= loin2_ * n2;
}

// Can nothing in this box be too near to what is left, nor just touch it?
bool ArcTailleur::TropLoin(std::size_t noeud) const {
  const base::Boite<double>& b = arbre_.De(noeud);
  if (base::Distance2(b, milieu_) >= portee2_) return true;
  const Vec2 c{(b.x0 + b.x1) / 2 - origine_.x, (b.y0 + b.y1) / 2 - origine_.y};
  const double ex = (b.x1 - b.x0) / 2;
  const double ey = (b.y1 - b.y0) / 2;
  if (!arc_) {  // beside the strip around the whole line
    return std::abs(Vectoriel(u_, c)) - (std::abs(u_.x) * ey + std::abs(u_.y) * ex) >= bande_;
  }
  // Behind the centre, seen from both ends of what is left.
  const auto derriere = [&](Vec2 u) {
    return Scalaire(u, c) + std::abs(u.x) * ex + std::abs(u.y) * ey < -2 * bruit_;
  };
  return derriere(reste_.front().de.u) && derriere(reste_.back().a.u);
}

bool ArcTailleur::EstEssaye(std::size_t j) const {
  if (j == i_) return true;
  for (std::size_t k = 0; k < nbEssayes_; ++k) {
    if (j == essayes_[k]) return true;
  }
  return false;
}

bool ArcTailleur::Essaie(std::size_t j) {
  if (!EstEssaye(j) && !NePeutRien(j)) Retire(j);
  return !reste_.empty();
}

void ArcTailleur::RetireVoisin(std::size_t j) {
  RetireDeSegment(j);
  if (change_ && !reste_.empty()) Cadre();
  change_ = false;
}

void ArcTailleur::Retire(std::size_t j) {
  if (arc_) {
    RetireDArc(j);
  } else {
    RetireDeSegment(j);
  }
  if (!change_) return;
  change_ = false;
  derniers_[tour_++ % Memorises] = j;
  if (nbEssayes_ + 2 < EssayesMax) essayes_[nbEssayes_++] = j;
  if (!reste_.empty()) Cadre();
}

// Neighbours have much the same neighbourhood: the tree is searched once for a run of segments.
void ArcTailleur::ChercheBloc() {
  blocDebut_ = i_ - i_ % PiecesParBloc;
  blocFin_ = std::min(blocDebut_ + PiecesParBloc, source_.Taille());
  base::Boite<double> b;
  const auto ajoute = [&b](Vec2 p, double e) { b.Etend({p.x - e, p.y - e, p.x + e, p.y + e}); };
  Vec2 n0;
  for (std::size_t i = blocDebut_; i < blocFin_; ++i) {
    const Vec2 a = source_.A(i);
    const Vec2 c = source_.B(i);
    const Vec2 n = Gauche(Unite(c - a)) * d_;
    const std::size_t avant = source_.Precedent(i);
    if (i == blocDebut_ || avant + 1 != i) n0 = Gauche(Unite(a - source_.A(avant))) * d_;
    // Rise of the arc between both normals.
    const Vec2 corde = n - n0;
    const double fleche = r_ - std::sqrt(std::max(0.0, r_ * r_ - Scalaire(corde, corde) / 4));
    ajoute(a + n0, fleche);
    ajoute(a + n, fleche);
    ajoute(c + n, 0);
    n0 = n;
  }
  ChercheAutour(b);
}

void ArcTailleur::SansBloc() {
  blocDebut_ = 0;
  blocFin_ = source_.Taille();
  blocPlein_ = true;
}

void ArcTailleur::CommenceBloc(const base::Boite<double>& boite) {
  blocDebut_ = 0;
  blocFin_ = source_.Taille();
  ChercheAutour(boite);
}

base::Boite<double> ArcTailleur::BoiteDuReste(const PieceBrute& piece, std::span<const Intervalle> reste) const {
  base::Boite<double> b;
  const Vec2 origine = Depart(piece.source, piece.arc, piece.u);
  for (const Intervalle& v : reste) {
    if (!piece.arc) {
      for (const double t : {v.de.t, v.a.t}) b.Etend(origine.x + piece.u.x * t, origine.y + piece.u.y * t);
      continue;
    }
    const double fleche = Fleche(v.a.u - v.de.u) * r_;
    for (const Vec2 u : {v.de.u, v.a.u}) {
      const Vec2 p = origine + u * r_;
      b.Etend({p.x - fleche, p.y - fleche, p.x + fleche, p.y + fleche});
    }
  }
  return b;
}

void ArcTailleur::ChercheAutour(const base::Boite<double>& b) {
  const double portee = r_ + 3 * bruit_ + 1e-12;
  const auto loin = [&b](const base::Boite<double>& c) {
    const double dx = std::max({0.0, c.x0 - b.x1, b.x0 - c.x1});
    const double dy = std::max({0.0, c.y0 - b.y1, b.y0 - c.y1});
    return dx * dx + dy * dy;
  };
  bloc_.clear();
  blocPlein_ = !arbre_.Parcourt([&](std::size_t k) { return !(loin(arbre_.De(k)) >= portee * portee); },
                                [](std::size_t) { return true; },
                                [&](std::size_t feuille) {
                                  if (bloc_.size() >= FeuillesMax) return false;
                                  bloc_.push_back(Numero32(feuille));
                                  return true;
                                });
}

// False: nothing is left.
bool ArcTailleur::EssaieFeuille(std::size_t feuille) {
  const std::size_t fin = arbre_.Fin(feuille);
  for (std::size_t k = arbre_.Debut(feuille); k < fin; ++k) {
    const std::size_t j = Tueur(k);
    if (NePeutRien(j) || EstEssaye(j)) continue;
    Retire(j);
    if (reste_.empty()) return false;
  }
  return true;
}

void ArcTailleur::EssaieDerniers() {
  const std::size_t debut = tour_;
  for (std::size_t k = 1; k <= Memorises && !reste_.empty(); ++k) {
    Essaie(derniers_[(debut + Memorises - k) % Memorises]);
  }
}

bool ArcTailleur::TailleRestes() {
  const std::size_t debut = tour_;
  const bool libre = Cherche();
  agite_ = !libre || tour_ != debut ? Apaise : agite_ - (agite_ > 0 ? 1 : 0);
  return libre;
}

bool ArcTailleur::Cherche() {
  if (i_ < blocDebut_ || i_ >= blocFin_) ChercheBloc();
  if (!blocPlein_) {
    for (const std::uint32_t k : bloc_) {
      if (!TropLoin(k) && !EssaieFeuille(k)) return false;
    }
    return true;
  }
  return arbre_.Parcourt([this](std::size_t k) { return !TropLoin(k); },
                         [&](std::size_t k) {
                           return base::Distance2(arbre_.De(2 * k), milieu_) <
                                  base::Distance2(arbre_.De(2 * k + 1), milieu_);
                         },
                         [this](std::size_t feuille) { return EssaieFeuille(feuille); });
}

void ArcTailleur::Retire(const LimiteLibre& b0, const LimiteLibre& b1, std::size_t j, bool toujours) {
  bool touche = false;
  for (const Intervalle& v : reste_) touche |= b0.t < v.a.t && b1.t > v.de.t;
  if (!touche) return;
  const double limite = r_ - bruit_;
  autre_.clear();
  for (const Intervalle& v : reste_) {
    const LimiteLibre& e = b0.t > v.de.t ? b0 : v.de;
    const LimiteLibre& f = b1.t < v.a.t ? b1 : v.a;
    if (e.t >= f.t || (!toujours && source_.Distance2(j, Milieu(e, f)) >= limite * limite)) {
      autre_.push_back(v);
      continue;
    }
    change_ = true;
    if (b0.t > v.de.t + Court) autre_.push_back({v.de, b0});
    if (b1.t < v.a.t - Court) autre_.push_back({b1, v.a});
  }
  if (change_) reste_.swap(autre_);
}

void ArcTailleur::RetireDeSegment(std::size_t j) {
  if (j == i_) return;
  const Vec2 a = source_.A(j) - origine_;
  const Vec2 b = source_.B(j) - origine_;
  // Wholly on one side, farther than r.
  const double ha = Vectoriel(u_, a);
  const double hb = Vectoriel(u_, b);
  if ((ha >= r_ && hb >= r_) || (ha <= -r_ && hb <= -r_)) {
    // The only touch that counts here is a parallel that coincides.
    if (j < i_ && std::abs(std::abs(ha) - r_) <= bruit_ && std::abs(ha - hb) <= bruit_) {
      const double l = Norme(b - a);
      RetireEgalSegment(j, (b - a) * (1 / l), l);
    }
    return;
  }
  // Wholly before or behind all that is left.
  const double ta = Scalaire(u_, a);
  const double tb = Scalaire(u_, b);
  if (std::max(ta, tb) + r_ < reste_.front().de.t || std::min(ta, tb) - r_ > reste_.back().a.t) return;
  double t0 = 0;
  double t1 = 0;
  const bool coupe = CoupeDroite(a, b, u_, r_, t0, t1);
  const auto cause = Numero32(j);
  if (coupe) Retire({t0, u_, cause}, {t1, u_, cause}, j, false);
  if (j < i_ && !reste_.empty() && std::abs(std::abs(ha) - r_) <= bruit_ && std::abs(ha - hb) <= bruit_) {
    const double l = Norme(b - a);
    RetireEgalSegment(j, (b - a) * (1 / l), l);
  }
}

void ArcTailleur::RetireEgalSegment(std::size_t j, Vec2 v, double l) {
  if (Scalaire(v, u_) < 0.5) return;
  // The source lies r beside the line, on the side that makes its own parallel fall on it.
  const Vec2 a = source_.A(j) - origine_;
  if (Vectoriel(u_, a) * d_ > 0) return;
  const double t = Scalaire(u_, a);
  const auto cause = Numero32(j);
  Retire({t, u_, cause}, {t + l, u_, cause}, j, true);
}

void ArcTailleur::RetireDArc(std::size_t j) {
  if (j == i_ || j == source_.Precedent(i_)) return;
  const Vec2 a = source_.A(j) - origine_;
  const Vec2 b = source_.B(j) - origine_;
  const Vec2 w = b - a;
  const double l = Norme(w);
  const Vec2 v = w * (1 / l);
  const double a0 = -Scalaire(v, a);  // foot of the centre along the segment
  const double foot = std::clamp(a0, 0.0, l);
  const Vec2 proche = a + v * foot;
  const double distance = Norme(proche);
  if (distance >= 2 * r_ - bruit_) return;
  const auto cause = Numero32(j);
  Vec2 entre;
  Vec2 sort;
  if (distance <= 10 * bruit_) {
    // The centre lies on the segment: one half of the circle is buried, or all of it.
    if (j < i_ && foot <= 10 * bruit_) RetireEgalArc(j);
    if (reste_.empty()) return;
    if (foot > 10 * bruit_ && foot < l - 10 * bruit_) {
      Retire(LimiteLibre{-1, u_, cause}, LimiteLibre{5, u_, cause}, j, true);
      return;
    }
    const Vec2 g = Gauche(v);
    entre = foot <= 10 * bruit_ ? g * -1.0 : g;
    sort = entre * -1.0;
  } else {
    CoupeCercle(a, v, l, r_, entre, sort);
  }
  if (sens_ < 0) std::swap(entre, sort);
  const LimiteLibre e{Mesure(entre), entre, cause};
  const LimiteLibre s{Mesure(sort), sort, cause};
  if (e.t <= s.t) {
    Retire(e, s, j, false);
    return;
  }
  if (s.t > 0) Retire(LimiteLibre{-1, u_, cause}, s, j, false);
  if (!reste_.empty() && e.t < fin_) Retire(e, LimiteLibre{5, u_, cause}, j, false);
}

// The arc around the start of segment j, where that has one and shares this centre.
void ArcTailleur::RetireEgalArc(std::size_t j) {
  const Vec2 p = source_.A(j);
  const Vec2 u = Unite(p - source_.A(source_.Precedent(j)));
  const Vec2 v = Unite(source_.B(j) - p);
  const double c = Vectoriel(u, v);
  const bool retour = Scalaire(u, v) < 0 && std::abs(c) < 1e-9;
  if (!retour && c * d_ >= 0) return;
  const double cote = d_ > 0 ? 1 : -1;
  const Vec2 e = Gauche(u) * cote;
  const Vec2 s = Gauche(v) * cote;
  const auto cause = Numero32(j);
  const LimiteLibre be{Mesure(e), e, cause};
  const LimiteLibre bs{Mesure(s), s, cause};
  if (be.t <= bs.t) {
    Retire(be, bs, j, true);
    return;
  }
  if (bs.t > 0) Retire(LimiteLibre{-1, u_, cause}, bs, j, true);
  if (!reste_.empty() && be.t < fin_) Retire(be, LimiteLibre{5, u_, cause}, j, true);
}

}  // namespace pathwerk::decalage
