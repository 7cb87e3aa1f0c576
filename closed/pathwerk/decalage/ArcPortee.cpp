// Where the foot of a place lives at both depths, the place is as far from the other border as the depths differ.
// So only the feet that died between the two count: a few of a smooth outline, each of them once in a row of
// depths.
//
// The stretches that they left lie in a run between two that stay. A stretch within reach of the end of one of
// these, at the depth of `apres`, is near as a whole: a disc holds the chord between two of its places, and the
// shorter arc of every circle not smaller than itself. What isn't near as it was at `avant` is cut to what lives at
// the depth in question, and looked at again:
//
//       stays --------.                        .-------- stays         depth of `apres`
//                  E1  .                      .  E2
//                       `. died            .`
//                          `.  between  .`
//                             `-.____.-`                               depth of `avant`
#include "closed/pathwerk/decalage/ArcPortee.h"

#include <algorithm>
#include <cmath>

#include "base/Arret.h"

namespace pathwerk::decalage {

namespace {

constexpr std::size_t PiecesParRegard = 256;

Vec2 PlaceSur(const ArcSource& source, const PieceBrute& piece, const LimiteLibre& l, double d) {
  const Vec2 a = source.A(piece.source);
  return piece.arc ? a + l.u * std::abs(d) : a + Gauche(piece.u) * d + piece.u * l.t;
}

class Comparaison {
 public:
  Comparaison(const ArcSource& source, const ReliefDe& avant, const ReliefDe& apres, double d, double portee,
              double bruit)
      : source_(source),
        avant_(avant),
        apres_(apres),
        d_(d),
        portee2_(portee * portee),
        tailleur_(source, d, bruit, avant.tueurs) {}

  bool Tout() {
    const std::vector<PiecesVives::Vive>& pieces = avant_.vives.pieces;
    std::size_t contour = base::Nulle;
    for (std::size_t k = 0; k < pieces.size(); ++k) {
      if (k % PiecesParRegard == 0 && base::ArretDemande()) return false;
      const std::size_t sien = source_.DebutDuContour(pieces[k].brute.source);
      if (sien != contour && !JugeContour()) return false;
      contour = sien;
      Compare(pieces[k]);
    }
    return JugeContour();
  }

 private:
  // A stretch that lived before and doesn't any more.
  struct Perdu {
    const PieceBrute* piece;
    Intervalle part;
    std::size_t suivant;  // the first stretch behind it that stays, among those of `apres`
  };

  void Compare(const PiecesVives::Vive& v) {
    const std::vector<PiecesVives::Vive>& pieces = apres_.vives.pieces;
    const bool vit = piece_ < pieces.size() && pieces[piece_].brute.source == v.brute.source &&
                     pieces[piece_].brute.arc == v.brute.arc;
    const std::size_t fin = vit ? pieces[piece_].fin : fin_;
    for (const Intervalle& i : avant_.vives.Reste(v)) {
      LimiteLibre ici = i.de;
      for (; fin_ < fin && apres_.vives.reste[fin_].a.t <= i.a.t; ++fin_) {
        const Intervalle& reste = apres_.vives.reste[fin_];
        if (reste.de.t > ici.t) perdus_.push_back({&v.brute, {ici, reste.de}, fin_});
        ici = reste.a;
      }
      if (i.a.t > ici.t) perdus_.push_back({&v.brute, {ici, i.a}, fin_});
    }
    fin_ = fin;
    if (vit) ++piece_;
  }

  // All that died on the contour whose last piece was compared.
  bool JugeContour() {
    const bool tous = std::all_of(perdus_.begin(), perdus_.end(), [this](const Perdu& p) { return Juge(p); });
    perdus_.clear();
    debut_ = fin_;
    return tous;
  }

  bool Juge(const Perdu& p) {
    Vec2 bouts[2];
    const bool reste = fin_ > debut_;
    if (reste) {
      bouts[0] = Bout(p.suivant > debut_ ? p.suivant - 1 : fin_ - 1, true);
      bouts[1] = Bout(p.suivant < fin_ ? p.suivant : debut_, false);
    }
    const auto pres = [&](const Intervalle& i) {
      return reste && std::any_of(std::begin(bouts), std::end(bouts),
                                  [&](Vec2 e) { return Pres(*p.piece, i.de, e) && Pres(*p.piece, i.a, e); });
    };
    if (pres(p.part)) return true;
    const std::span<const Intervalle> part(&p.part, 1);
    tailleur_.CommenceBloc(tailleur_.BoiteDuReste(*p.piece, part));
    if (!tailleur_.Reprend(*p.piece, part)) return true;
    return std::all_of(tailleur_.Reste().begin(), tailleur_.Reste().end(), pres);
  }

  [[nodiscard]] bool Pres(const PieceBrute& piece, const LimiteLibre& l, Vec2 p) const {
    const Vec2 e = PlaceSur(source_, piece, l, d_) - p;
    return Scalaire(e, e) <= portee2_;
  }

  // An end of a stretch of `apres`.
  [[nodiscard]] Vec2 Bout(std::size_t rang, bool fin) const {
    const std::vector<PiecesVives::Vive>& pieces = apres_.vives.pieces;
    const auto it = std::upper_bound(pieces.begin(), pieces.end(), rang,
                                     [](std::size_t r, const PiecesVives::Vive& v) { return r < v.fin; });
    const Intervalle& i = apres_.vives.reste[rang];
    return PlaceSur(source_, it->brute, fin ? i.a : i.de, apres_.d);
  }

  const ArcSource& source_;
  const ReliefDe& avant_;
  const ReliefDe& apres_;
  double d_;
  double portee2_;
  ArcTailleur tailleur_;
  std::vector<Perdu> perdus_;  // of one contour
  std::size_t piece_ = 0;      // of `apres`, the next one
  std::size_t debut_ = 0;      // of the contour's stretches of `apres`
  std::size_t fin_ = 0;        // ... those of the pieces compared
};

}  // namespace

bool ToutPres(const ArcSource& source, const ReliefDe& avant, const ReliefDe& apres, double d, double portee,
              double bruit) {
  if (std::abs(apres.d - d) > portee) return false;
  return Comparaison(source, avant, apres, d, portee, bruit).Tout();
}

}  // namespace pathwerk::decalage
