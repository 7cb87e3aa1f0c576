// Marks and starts of a source carried over to the pieces of its offset.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "closed/pathwerk/decalage/Pieces.h"

namespace pathwerk::decalage {

// A place on the pieces: on the edge from point `arete` of the piece `piece`, at the share `t` of it.
struct LieuDePiece {
  std::size_t piece = 0;
  std::size_t arete = 0;
  double t = 0;
  Vec2 point;
};

// Where the places of the source come out, `distance` mm beside it: to the left when positive, else to the right,
// or on the other side where there is nothing (a pocket). `tolerance` as of the offset.
class Report {
 public:
  Report(const Source& source, double distance, double tolerance);

  // The place of one closed piece that answers to the start of the source. Linear in the piece.
  [[nodiscard]] LieuDePiece Depart(const Piece& piece) const;
  // The places of all marks, in the order of the marks, on the pieces that take marks; empty when none does.
  [[nodiscard]] std::vector<LieuDePiece> Marques(std::span<const Piece> pieces) const;

 private:
  struct Etendue;
  class Index;
  [[nodiscard]] double Place(const Origine& o, float part) const;
  [[nodiscard]] double Ecart(double a, double b) const;
  [[nodiscard]] bool Loin(std::uint32_t segment, double seuil) const;
  [[nodiscard]] LieuDePiece Bout(const Piece& piece, std::size_t arete, double s, bool suivante) const;
  [[nodiscard]] double AuxImages(const PointSuivi& r, const Piece& piece, std::size_t arete,
                                 LieuDePiece& lieu) const;

  const Source& source_;
  double distance_;
  double tolerance_;
  std::vector<double> longueur_;  // along the path to each vertex, and all of it behind the last
};

}  // namespace pathwerk::decalage
