// What is left of one raw piece of a parallel curve when everything too near to the outline is taken away.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcSource.h"

namespace pathwerk::decalage {

inline constexpr std::uint32_t Naturel = std::numeric_limits<std::uint32_t>::max();

// A place on a raw piece: `t` mm along a segment; for an arc a measure that grows with the angle (0 to 4 for a full
// turn), and `u`, the unit vector from the centre. `cause`: the source segment that ends the free stretch there, or
// Naturel at the piece's own end.
struct LimiteLibre {
  double t = 0;
  Vec2 u;
  std::uint32_t cause = Naturel;
};
struct Intervalle {
  LimiteLibre de;
  LimiteLibre a;
};

// The segments of a source that can still take something away, and a tree over them in that order.
struct Tueurs {
  std::vector<std::uint32_t> segments;
  ArcSource::Arbre arbre;
};

// A raw piece as the cutting sees it: of the segment `source`, or the arc around the vertex `source`.
struct PieceBrute {
  std::uint32_t source = 0;
  bool arc = false;
  Vec2 u;          // direction of the parallel, or from the centre to the start of the arc
  double fin = 0;  // measure of its end, as of LimiteLibre
};

// Takes one raw piece after the other: first TailleSegment(), TailleArc() or Reprend(), then Reste().
class ArcTailleur {
 public:
  // `d`: signed distance, left positive. `bruit`: depth below which nothing counts as too near, mm. `tueurs`: the
  // segments that take away, null for all.
  ArcTailleur(const ArcSource& source, double d, double bruit, const Tueurs* tueurs = nullptr);

  // The parallel of segment i, whose unit direction is `u` and whose length is `l`. False: nothing is left.
  bool TailleSegment(std::size_t i, Vec2 u, double l);
  // The arc around vertex i from u0 to u1 (unit vectors), turning right for a left parallel and vice versa.
  bool TailleArc(std::size_t i, Vec2 u0, Vec2 u1);
  // A piece of which no more than `avant` is left before it begins. CommenceBloc() comes first.
  bool Reprend(const PieceBrute& piece, std::span<const Intervalle> avant);
  // All that is left of the pieces that Reprend() is given from here on lies in this box.
  void CommenceBloc(const base::Boite<double>& boite);
  // The box of what is left of a piece, for CommenceBloc().
  [[nodiscard]] base::Boite<double> BoiteDuReste(const PieceBrute& piece, std::span<const Intervalle> reste) const;

  [[nodiscard]] PieceBrute Piece() const { return {Numero32(i_), arc_, u_, fin_}; }
  // Free stretches of the last piece, in its direction.
  [[nodiscard]] const std::vector<Intervalle>& Reste() const { return reste_; }
  [[nodiscard]] Vec2 Place(const LimiteLibre& b) const { return arc_ ? origine_ + b.u * r_ : origine_ + u_ * b.t; }

 private:
  bool Taille();
  bool Cherche();
  [[nodiscard]] Vec2 Depart(std::size_t i, bool arc, Vec2 u) const {
    return arc ? source_.A(i) : source_.A(i) + Gauche(u) * d_;
  }
  [[nodiscard]] std::size_t Tueur(std::size_t k) const { return tueurs_ == nullptr ? k : tueurs_->segments[k]; }
  void Essaie(std::size_t j);
  bool EssaieFeuille(std::size_t feuille);
  void RetireDeSegment(std::size_t j);
  void RetireDArc(std::size_t j);
  void RetireEgalSegment(std::size_t j, Vec2 v, double l);
  void RetireEgalArc(std::size_t j);
  // Takes [t0, t1] away where that is deeper than the noise in the source segment j, or in any case.
  void Retire(const LimiteLibre& b0, const LimiteLibre& b1, std::size_t j, bool toujours);
  void Cadre();
  void ChercheBloc();
  void ChercheAutour(const base::Boite<double>& boite);
  [[nodiscard]] bool TropLoin(std::size_t noeud) const;
  [[nodiscard]] double Mesure(Vec2 u) const;
  [[nodiscard]] Vec2 Milieu(const LimiteLibre& b0, const LimiteLibre& b1) const;

  const ArcSource& source_;
  const Tueurs* tueurs_;
  const ArcSource::Arbre& arbre_;  // over the segments that take away
  double d_;
  double r_;
  double bruit_;
  double sens_;  // of arcs: +1 counter-clockwise
  bool arc_ = false;
  std::size_t i_ = 0;
  Vec2 origine_;  // start of the parallel, or centre of the arc
  Vec2 u_;        // direction of the parallel, or first direction of the arc
  double fin_ = 0;
  std::vector<Intervalle> reste_;
  std::vector<Intervalle> autre_;
  bool change_ = false;
  // Disc around all that is left, and the directions of its ends.
  Vec2 milieu_;
  double demi_ = 0;
  static constexpr std::size_t Memorises = 4;
  std::size_t derniers_[Memorises] = {};  // segments that took away most lately
  std::size_t tour_ = 0;
  std::uint32_t essayes_[2] = {Naturel, Naturel};  // segments that have taken all they can from this piece
  // Leaves that can reach any raw piece of the segments [blocDebut_, blocFin_).
  static constexpr std::size_t PiecesParBloc = 8;
  static constexpr std::size_t FeuillesMax = 96;
  std::size_t blocDebut_ = 0;
  std::size_t blocFin_ = 0;
  std::vector<std::uint32_t> bloc_;
  bool blocPlein_ = false;  // too many: the tree is searched for each piece
};

// Angle of the arc from unit vector a to b in the sense `sens`, 0 to pi.
double Balayage(Vec2 a, Vec2 b, double sens);

}  // namespace pathwerk::decalage
