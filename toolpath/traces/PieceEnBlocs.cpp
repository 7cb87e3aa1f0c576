#include "toolpath/traces/PieceEnBlocs.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/Indices.h"

namespace ovelin {

namespace {

constexpr std::size_t TailleMinimale = 8;

double Ecart(double x, double y, const PointTrace& p) { return std::hypot(x - p.X, y - p.Y); }

void RentrePoint(PointTrace& p) {
  if (p.Cde != CodePC) p.Cde = CodePE;
}

}  // namespace

PieceEnBlocs::PieceEnBlocs(std::span<const PointTrace> points)
    : taille_(std::max(TailleMinimale, static_cast<std::size_t>(std::sqrt(static_cast<double>(points.size()))))) {
  blocs_.reserve(points.size() / taille_ + 1);
  for (std::size_t i = 0; i < points.size(); i += taille_) {
    const auto tranche = points.subspan(i, std::min(taille_, points.size() - i));
    blocs_.emplace_back().points.assign(tranche.begin(), tranche.end());
    Entoure(blocs_.back());
  }
}

// Around the middle of the box. A point that is no number lies in no circle, and nothing depends on it.
void PieceEnBlocs::Entoure(Bloc& bloc) const {
  const auto [gauche, droite] = std::minmax_element(
      bloc.points.begin(), bloc.points.end(), [](const PointTrace& a, const PointTrace& b) { return a.X < b.X; });
  const auto [bas, haut] = std::minmax_element(bloc.points.begin(), bloc.points.end(),
                                               [](const PointTrace& a, const PointTrace& b) { return a.Y < b.Y; });
  bloc.x = (double{gauche->X} + droite->X) / 2;
  bloc.y = (double{bas->Y} + haut->Y) / 2;
  bloc.rayon = 0;
  for (const PointTrace& p : bloc.points) bloc.rayon = std::max(bloc.rayon, Ecart(bloc.x, bloc.y, p));
}

void PieceEnBlocs::Applique(Bloc& bloc) const {
  if (!bloc.rentre) return;
  std::for_each(bloc.points.begin(), bloc.points.end(), RentrePoint);
  bloc.rentre = false;
}

PieceEnBlocs::Place PieceEnBlocs::Suivante(Place p) const {
  if (p.rang + 1 < blocs_[p.bloc].points.size()) return {p.bloc, p.rang + 1};
  return {p.bloc + 1, 0};
}

PieceEnBlocs::Place PieceEnBlocs::Precedente(Place p) const {
  if (p.rang > 0) return {p.bloc, p.rang - 1};
  return {p.bloc - 1, blocs_[p.bloc - 1].points.size() - 1};
}

bool PieceEnBlocs::Contenu(std::size_t bloc, const PointTrace& centre, double r) const {
  const Bloc& b = blocs_[bloc];
  return Ecart(b.x, b.y, centre) + b.rayon < r;
}

void PieceEnBlocs::Rentre(Place p) { RentrePoint(blocs_[p.bloc].points[p.rang]); }

void PieceEnBlocs::Insere(Place apres, const PointTrace& point, Place& suivie) {
  Bloc& bloc = blocs_[apres.bloc];
  Applique(bloc);
  bloc.points.insert(base::Iterateur(bloc.points, apres.rang) + 1, point);
  bloc.rayon = std::max(bloc.rayon, Ecart(bloc.x, bloc.y, point));
  if (suivie.bloc == apres.bloc && suivie.rang > apres.rang) ++suivie.rang;
  if (bloc.points.size() >= 2 * taille_) Partage(apres.bloc, suivie);
}

void PieceEnBlocs::Partage(std::size_t bloc, Place& suivie) {
  Bloc seconde;
  {
    std::vector<PointTrace>& points = blocs_[bloc].points;
    const auto milieu = base::Iterateur(points, taille_);
    seconde.points.assign(milieu, points.end());
    points.erase(milieu, points.end());
  }
  Entoure(blocs_[bloc]);
  Entoure(seconde);
  blocs_.insert(base::Iterateur(blocs_, bloc) + 1, std::move(seconde));
  if (suivie.bloc > bloc) {
    ++suivie.bloc;
  } else if (suivie.bloc == bloc && suivie.rang >= taille_) {
    suivie = {bloc + 1, suivie.rang - taille_};
  }
}

void PieceEnBlocs::Rend(std::vector<PointTrace>& sortie) {
  for (Bloc& bloc : blocs_) {
    Applique(bloc);
    sortie.insert(sortie.end(), bloc.points.begin(), bloc.points.end());
  }
}

}  // namespace ovelin
