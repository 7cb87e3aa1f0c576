#include "toolpath/chemins/PointsProches.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

#include "toolpath/chemins/NoyauOrdre.h"

namespace ovelin {

namespace {

constexpr double DistanceMax = 1e15;  // mm, from there on a point is out of reach
// Distances are formed from differences in 32 bits: a box is left out only where it is farther by more than that.
constexpr double Marge = 1 + 3e-6;

// Squared distance from which on a box holds nothing as near as `distance`; one of that distance itself may.
double Limite2(double distance) { return Marge * distance * distance + std::numeric_limits<double>::min(); }

base::Vec2 EnVec2(const PointTrace& p) { return {p.X, p.Y}; }

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
  arbre_.RangeParVoisinage(lieux_.begin(), lieux_.size(), [](const Lieu& l) { return EnVec2(l.place); });
  arbre_ = {lieux_.size(),
            [this](std::size_t i, base::Boite<float>& b) { b.Etend(lieux_[i].place.X, lieux_[i].place.Y); }};
}

// A point of the first run stands in front of those of the others.
std::size_t PointsProches::Index(const Lieu& lieu) const {
  if (lieu.debut == lieu.fin) return *lieu.autre;
  const std::span<const std::size_t> rangs = std::span(rangs_).subspan(lieu.debut, lieu.fin - lieu.debut);
  const auto suivant = std::lower_bound(rangs.begin(), rangs.end(), tour_);
  const std::size_t rang = suivant != rangs.end() ? *suivant - tour_ : rangs.front() + modulo_ - tour_;
  return premiere_.premier + rang;
}

std::optional<PointsProches::Choix> PointsProches::Cherche(const PointTrace& position) const {
  std::optional<Choix> choix;
  double meilleur = DistanceMax;
  double limite2 = Limite2(meilleur);
  arbre_.Approche(EnVec2(position), limite2, [&](std::size_t feuille) {
    for (std::size_t i = arbre_.Debut(feuille); i < arbre_.Fin(feuille); ++i) {
      const double d = DistancePoints(position, lieux_[i].place);
      if (!(d <= meilleur) || d >= DistanceMax) continue;
      const std::size_t index = Index(lieux_[i]);
      if (d == meilleur && choix && index > choix->index) continue;
      meilleur = d;
      limite2 = Limite2(d);
      choix = Choix{index, lieux_[i].place};
    }
  });
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
