#include "toolpath/PointsProches.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "toolpath/NoyauOrdre.h"

namespace ovelin {

namespace {

constexpr std::size_t TailleFeuille = 8;
constexpr double DistanceMax = 1e15;  // mm, from there on a point is out of reach
// Distances are formed from differences in 32 bits: a box is left out only where it is farther by more than that.
constexpr double Prudence = 1 - 1e-6;

}  // namespace

PointsProches::PointsProches(std::span<const PointTrace> points, std::span<const Etendue> etendues)
    : premiere_(etendues.front()) {
  fermee_ = premiere_.nombre > 2 && EstFermee(PointsDe(points, premiere_));
  modulo_ = fermee_ ? premiere_.nombre - 1 : premiere_.nombre;
  std::vector<std::size_t> indices;
  for (const Etendue& e : etendues) {
    // The closing point stands behind its twin: it is never the first of two equals.
    const std::size_t n = e.premier == premiere_.premier ? modulo_ : e.nombre;
    for (std::size_t i = e.premier; i < e.premier + n; ++i) {
      if (std::isfinite(points[i].X) && std::isfinite(points[i].Y)) indices.push_back(i);
    }
  }
  const auto cle = [&](std::size_t i) { return std::tuple(points[i].X, points[i].Y, i); };
  std::sort(indices.begin(), indices.end(), [&](std::size_t a, std::size_t b) { return cle(a) < cle(b); });
  for (const std::size_t i : indices) {
    if (lieux_.empty() || !pathwerk::MemePlace(lieux_.back().place, points[i])) {
      lieux_.push_back({points[i], std::nullopt, rangs_.size(), rangs_.size()});
    }
    Lieu& lieu = lieux_.back();
    // The first run stands in front of the others.
    if (i < premiere_.Fin()) {
      rangs_.push_back(i - premiere_.premier);
      lieu.fin = rangs_.size();
    } else if (!lieu.autre) {
      lieu.autre = i;
    }
  }
  if (!lieux_.empty()) Construit(0, lieux_.size());
}

std::size_t PointsProches::Construit(std::size_t debut, std::size_t fin) {
  Noeud n;
  n.debut = debut;
  n.fin = fin;
  n.xmin = n.xmax = lieux_[debut].place.X;
  n.ymin = n.ymax = lieux_[debut].place.Y;
  for (std::size_t i = debut; i < fin; ++i) {
    const PointTrace& p = lieux_[i].place;
    n.xmin = std::min(n.xmin, p.X);
    n.xmax = std::max(n.xmax, p.X);
    n.ymin = std::min(n.ymin, p.Y);
    n.ymax = std::max(n.ymax, p.Y);
  }
  const std::size_t place = noeuds_.size();
  noeuds_.push_back(n);
  if (fin - debut <= TailleFeuille) return place;
  const bool enX = Ecart(n.xmin, n.xmax) >= Ecart(n.ymin, n.ymax);
  const std::size_t milieu = debut + (fin - debut) / 2;
  const auto a = lieux_.begin();
  std::nth_element(a + static_cast<std::ptrdiff_t>(debut), a + static_cast<std::ptrdiff_t>(milieu),
                   a + static_cast<std::ptrdiff_t>(fin), [enX](const Lieu& l, const Lieu& m) {
                     return enX ? l.place.X < m.place.X : l.place.Y < m.place.Y;
                   });
  const std::size_t gauche = Construit(debut, milieu);
  const std::size_t droite = Construit(milieu, fin);
  noeuds_[place].gauche = gauche;
  noeuds_[place].droite = droite;
  return place;
}

// A point of the first run stands in front of those of the others.
std::size_t PointsProches::Index(const Lieu& lieu) const {
  if (lieu.debut == lieu.fin) return *lieu.autre;
  const std::span<const std::size_t> rangs = std::span(rangs_).subspan(lieu.debut, lieu.fin - lieu.debut);
  const auto suivant = std::lower_bound(rangs.begin(), rangs.end(), tour_);
  const std::size_t rang = suivant != rangs.end() ? *suivant - tour_ : rangs.front() + modulo_ - tour_;
  return premiere_.premier + rang;
}

void PointsProches::Descend(std::size_t noeud, const PointTrace& position, double& meilleur,
                            std::optional<Choix>& choix) const {
  const Noeud& n = noeuds_[noeud];
  if (n.droite == 0) {
    for (std::size_t i = n.debut; i < n.fin; ++i) {
      const double d = DistancePoints(position, lieux_[i].place);
      if (!(d <= meilleur) || d >= DistanceMax) continue;
      const std::size_t index = Index(lieux_[i]);
      if (d == meilleur && choix && index > choix->index) continue;
      meilleur = d;
      choix = Choix{index, lieux_[i].place};
    }
    return;
  }
  const auto ecart = [&](const Noeud& m) {
    const double dx = std::max({0.0, Ecart(position.X, m.xmin), Ecart(m.xmax, position.X)});
    const double dy = std::max({0.0, Ecart(position.Y, m.ymin), Ecart(m.ymax, position.Y)});
    return std::hypot(dx, dy) * Prudence;
  };
  const double gauche = ecart(noeuds_[n.gauche]);
  const double droite = ecart(noeuds_[n.droite]);
  const bool dAbordGauche = gauche <= droite;
  if (std::min(gauche, droite) <= meilleur) Descend(dAbordGauche ? n.gauche : n.droite, position, meilleur, choix);
  if (std::max(gauche, droite) <= meilleur) Descend(dAbordGauche ? n.droite : n.gauche, position, meilleur, choix);
}

std::optional<PointsProches::Choix> PointsProches::Cherche(const PointTrace& position) const {
  std::optional<Choix> choix;
  double meilleur = DistanceMax;
  if (!noeuds_.empty()) Descend(0, position, meilleur, choix);
  return choix;
}

bool PointsProches::Tourne(std::size_t index) {
  if (!fermee_ || index <= premiere_.premier || index >= premiere_.premier + modulo_) return false;
  tour_ = (tour_ + index - premiere_.premier) % modulo_;
  tournee_ = true;
  return true;
}

void PointsProches::Applique(std::vector<PointTrace>& points) const {
  if (!tournee_) return;
  // A start that has come round to where it was still has its closing point made anew.
  TourneDepart(points, premiere_, premiere_.premier + (tour_ == 0 ? modulo_ : tour_));
}

}  // namespace ovelin
