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
  // `avant`, `apres`: the corner at its start, and at its end, turns towards the parallel, so that the neighbour
  // there cuts it short; else that neighbour takes nothing away.
  bool TailleSegment(std::size_t i, Vec2 u, double l, bool avant, bool apres);
  // The arc around vertex i from u0 to u1 (unit vectors), turning right for a left parallel and vice versa.
  bool TailleArc(std::size_t i, Vec2 u0, Vec2 u1);
  // The same, where no more is taken away than what comes first: the two neighbours, and what took away most lately
  // where the last pieces lost something. TailleRestes() does the rest.
  bool EntameSegment(std::size_t i, Vec2 u, double l, bool avant, bool apres);
  bool EntameArc(std::size_t i, Vec2 u0, Vec2 u1);
  bool TailleRestes();
  // Takes away what segment j does. False: nothing is left.
  bool Essaie(std::size_t j);
  // Does nothing take anything away from segment i's parallel, nor from the arc before it, whose directions are
  // those? True only where the corner at the end turns away, too, by less than a quarter turn.
  bool EstToutLibre(std::size_t i, Vec2 u, double l, Vec2 u0, Vec2 u1);
  // Both of them whole.
  void PoseArc(std::size_t i, Vec2 u0, Vec2 u1);
  void PoseSegment(std::size_t i, Vec2 u, double l);
  // A piece of which no more than `avant` is left before it begins. CommenceBloc() comes first, unless `seules`:
  // nothing but what ended the stretches before can take from it.
  bool Reprend(const PieceBrute& piece, std::span<const Intervalle> avant, bool seules = false);
  // Pieces come from here and there from here on: each searches the tree by itself.
  void SansBloc();
  // All that is left of the pieces that Reprend() is given from here on lies in this box.
  void CommenceBloc(const base::Boite<double>& boite);
  // The box of what is left of a piece, for CommenceBloc().
  [[nodiscard]] base::Boite<double> BoiteDuReste(const PieceBrute& piece, std::span<const Intervalle> reste) const;

  [[nodiscard]] PieceBrute Piece() const { return {Numero32(i_), arc_, u_, fin_}; }
  // Free stretches of the last piece, in its direction.
  [[nodiscard]] const std::vector<Intervalle>& Reste() const { return reste_; }
  [[nodiscard]] Vec2 Place(const LimiteLibre& b) const { return arc_ ? origine_ + b.u * r_ : origine_ + u_ * b.t; }

 private:
  bool Cherche();
  [[nodiscard]] Vec2 Depart(std::size_t i, bool arc, Vec2 u) const {
    return arc ? source_.A(i) : source_.A(i) + Gauche(u) * d_;
  }
  [[nodiscard]] std::size_t Tueur(std::size_t k) const { return tueurs_ == nullptr ? k : tueurs_->segments[k]; }
  void EssaieDerniers();
  void Retire(std::size_t j);
  void RetireVoisin(std::size_t j);
  bool EssaieFeuille(std::size_t feuille);
  [[nodiscard]] bool NePeutRien(std::size_t j) const;
  [[nodiscard]] bool EstEssaye(std::size_t j) const;
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
  // Disc around all that is left. From its centre what is left reaches no farther than demi_ to both sides along
  // axe_, and creux_ against sommet_, which points away from the source.
  Vec2 milieu_;
  double demi_ = 0;
  Vec2 axe_;
  Vec2 sommet_;
  double creux_ = 0;
  double bande_ = 0;    // half the width of the strip in which something can reach a parallel
  double portee2_ = 0;  // squared: what is farther from milieu_ reaches nothing of it
  double loin2_ = 0;    // squared: what is farther from a place than this surely takes nothing there
  static constexpr std::size_t Memorises = 4;
  std::size_t derniers_[Memorises] = {};  // segments that took away most lately
  std::size_t tour_ = 0;
  static constexpr int Apaise = 4;
  int agite_ = 0;  // over 0: one of the last pieces lost something to more than its neighbours, or all
  static constexpr std::size_t EssayesMax = 8;
  std::size_t essayes_[EssayesMax] = {};  // segments that have taken all they can from this piece
  std::size_t nbEssayes_ = 0;
  // Leaves that can reach any raw piece of the segments [blocDebut_, blocFin_).
  static constexpr std::size_t PiecesParBloc = 8;
  static constexpr std::size_t FeuillesMax = 24;
  std::size_t blocDebut_ = 0;
  std::size_t blocFin_ = 0;
  std::vector<std::uint32_t> bloc_;
  bool blocPlein_ = false;  // too many: the tree is searched for each piece
};

// Angle of the arc from unit vector a to b in the sense `sens`, 0 to pi.
double Balayage(Vec2 a, Vec2 b, double sens);

}  // namespace pathwerk::decalage
