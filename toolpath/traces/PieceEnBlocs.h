// One piece of a trace while notches are opened on it: stretches that a notch swallows whole are passed over at
// once.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "core/Types.h"

namespace ovelin {

// The points in blocks of about the square root of their number, each with a circle around it. A notch of many
// points, and many notches over each other, cost the blocks in between and not their points.
class PieceEnBlocs {
 public:
  struct Place {
    std::size_t bloc = 0;
    std::size_t rang = 0;  // in its block
  };

  explicit PieceEnBlocs(std::span<const PointTrace> points);  // at least one

  [[nodiscard]] const PointTrace& Point(Place p) const { return blocs_[p.bloc].points[p.rang]; }
  [[nodiscard]] Place Premiere() const { return {}; }
  [[nodiscard]] Place Derniere() const { return {blocs_.size() - 1, blocs_.back().points.size() - 1}; }
  [[nodiscard]] bool EstPremiere(Place p) const { return p.bloc == 0 && p.rang == 0; }
  [[nodiscard]] bool EstDerniere(Place p) const {
    return p.bloc + 1 == blocs_.size() && p.rang + 1 == blocs_.back().points.size();
  }
  [[nodiscard]] Place Suivante(Place p) const;    // not of the last
  [[nodiscard]] Place Precedente(Place p) const;  // not of the first

  // Last point of the block on the way forward, or backward.
  [[nodiscard]] Place Bout(std::size_t bloc, bool avant) const {
    return {bloc, avant ? blocs_[bloc].points.size() - 1 : 0};
  }

  // Whether every point of the block lies nearer than r to `centre`.
  [[nodiscard]] bool Contenu(std::size_t bloc, const PointTrace& centre, double r) const;
  // "PE" for the point, or for all points of the block; a mark "PC" stays one.
  void Rentre(Place p);
  void RentreBloc(std::size_t bloc) { blocs_[bloc].rentre = true; }
  // Behind the point at `apres`. `suivie` follows its point.
  void Insere(Place apres, const PointTrace& point, Place& suivie);

  void Rend(std::vector<PointTrace>& sortie);

 private:
  struct Bloc {
    std::vector<PointTrace> points;
    double x = 0, y = 0, rayon = 0;  // mm, circle around the points
    bool rentre = false;             // RentreBloc that has not reached the points yet
  };
  void Entoure(Bloc& bloc) const;
  void Applique(Bloc& bloc) const;
  void Partage(std::size_t bloc, Place& suivie);

  std::size_t taille_;  // points of a new block
  std::vector<Bloc> blocs_;
};

}  // namespace ovelin
