// From free stretches to loops.
//
// Raw pieces in the order of the outline: the parallel of segment 0, the arc around vertex 1 if the corner is an
// outer one, the parallel of segment 1, and so on. Where two neighbours are both free up to their common corner the
// link is certain. Every other end lies on the border of a stadium, so a stretch of that segment begins there:
//
//       p --------.  cause of p's end: segment of q
//                 |
//                 '------- q   cause of q's start: segment of p
//
// The two places are computed twice, once on p and once on q, and agree to the rounding; where curves touch at a
// very small angle they may lie a little apart, and the gap is bridged by a chord.
#include "closed/pathwerk/decalage/ArcLibres.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/Arret.h"
#include "base/Indices.h"
#include "closed/pathwerk/commun/Numero32.h"
#include "closed/pathwerk/decalage/ArcCoin.h"
#include "closed/pathwerk/decalage/ArcSaillants.h"
#include "closed/pathwerk/decalage/ArcSursis.h"

namespace pathwerk::decalage {

namespace {

// Between two looks whether somebody wishes the end: some tenths of a millisecond.
constexpr std::size_t SegmentsParRegard = 64;
constexpr std::size_t FinsParRegard = 1024;
constexpr std::size_t ReserveMax = 512;  // stretches for which room is made at once

constexpr double MemeCoin = 1e-7;  // mm

class Releveur {
 public:
  Releveur(const ArcSource& source, double d, double bruit, const Tueurs* tueurs, PiecesVives* vives)
      : source_(source), tailleur_(source, d, bruit, tueurs), d_(d), vives_(vives) {
    libres_.reserve(std::min(2 * source.Taille(), ReserveMax));
  }

  std::vector<ArcLibre> Releve(std::span<const Plage> plages) {
    for (const Plage& p : plages) Contour(p.debut, p.fin);
    return std::move(libres_);
  }

 private:
  // A contour, or a part of one.
  void Contour(std::size_t debut, std::size_t fin) {
    const std::size_t premier = libres_.size();
    ouvert_ = Naturel;
    bool commence = false;  // the first piece of the contour is free from its start
    bool rang0 = true;
    Trait trait = TraitDe(source_, debut);
    Coin coin = CoinDe(TraitDe(source_, source_.Precedent(debut)).u, trait.u, d_);
    for (std::size_t i = debut; i < fin; ++i) {
      if (i % SegmentsParRegard == 0 && base::ArretDemande()) break;
      const Trait apres = TraitDe(source_, source_.Suivant(i));
      const Coin suivant = CoinDe(trait.u, apres.u, d_);
      const bool tout = coin.vif && suivant.exterieur && Scalaire(trait.u, apres.u) > 0 &&
                        tailleur_.EstToutLibre(i, trait.u, trait.l, coin.u0, coin.u1);
      if (coin.vif) {
        if (tout) tailleur_.PoseArc(i, coin.u0, coin.u1);
        const bool libre = tout || tailleur_.TailleArc(i, coin.u0, coin.u1);
        const bool joint = Ajoute(i, true, libre);
        if (rang0) commence = joint;
        rang0 = false;
      }
      if (tout) tailleur_.PoseSegment(i, trait.u, trait.l);
      const bool libre = tout || tailleur_.TailleSegment(i, trait.u, trait.l, !coin.exterieur, !suivant.exterieur);
      const bool joint = Ajoute(i, false, libre);
      if (rang0) commence = joint;
      rang0 = false;
      trait = apres;
      coin = suivant;
    }
    const bool entier = source_.Suivant(fin - 1) == debut;
    if (entier && ouvert_ != Naturel && commence) libres_[ouvert_].suite = Numero32(premier);
  }

  // Returns whether the piece is free from its own start.
  bool Ajoute(std::size_t i, bool arc, bool libre) {
    if (!libre) {
      ouvert_ = Naturel;
      return false;
    }
    const std::vector<Intervalle>& reste = tailleur_.Reste();
    const bool joint = reste.front().de.cause == Naturel;
    if (joint && ouvert_ != Naturel) libres_[ouvert_].suite = Numero32(libres_.size());
    if (!libres_.empty() && !arc && reste.front().de.cause == source_.Precedent(i)) {
      // An inner corner where both parallels merely cut each other short, as nearly all do.
      ArcLibre& avant = libres_.back();
      if (!avant.arc && avant.source == source_.Precedent(i) && avant.causeB == i &&
          Norme(tailleur_.Place(reste.front().de) - avant.b) < MemeCoin) {
        avant.suite = Numero32(libres_.size());
      }
    }
    AjouteReste(tailleur_, libres_);
    if (vives_ != nullptr) vives_->Ajoute(tailleur_);
    ouvert_ = libres_.back().causeB == Naturel ? Numero32(libres_.size() - 1) : Naturel;
    return joint;
  }

  const ArcSource& source_;
  ArcTailleur tailleur_;
  double d_;
  PiecesVives* vives_;
  std::vector<ArcLibre> libres_;
  std::uint32_t ouvert_ = Naturel;  // the stretch that is free up to the corner ahead
};

// The stretches of the pieces that were left before, a run of neighbours at a time.
class Suiveur {
 public:
  Suiveur(const ArcSource& source, double d, double bruit, const PiecesVives& avant, double pas,
          const Tueurs* tueurs)
      : source_(source),
        tailleur_(source, d, bruit, tueurs),
        sursis_(source, tueurs, d, bruit),
        avant_(avant),
        d_(d),
        pas_(pas) {}

  std::vector<ArcLibre> Suit(PiecesVives& apres) {
    const std::span<const PiecesVives::Vive> pieces = avant_.pieces;
    libres_.reserve(avant_.reste.size());
    apres.pieces.reserve(pieces.size());
    apres.reste.reserve(avant_.reste.size());
    for (std::size_t k = 0; k < pieces.size(); k += ParBloc) {
      if (base::ArretDemande()) break;
      const auto bloc = pieces.subspan(k, std::min(ParBloc, pieces.size() - k));
      base::Boite<double> boite;
      for (const auto& v : bloc) {
        if (!EnSursis(v)) boite.Etend(tailleur_.BoiteDuReste(v.brute, avant_.Reste(v)));
      }
      if (boite.x0 <= boite.x1) tailleur_.CommenceBloc(boite);
      for (const auto& v : bloc) {
        double sursis = v.sursis;
        if (EnSursis(v)) {
          if (!tailleur_.Reprend(v.brute, avant_.Reste(v), true)) continue;
        } else {
          if (!tailleur_.Reprend(v.brute, avant_.Reste(v))) continue;
          sursis = NouveauSursis(v);
        }
        AjouteReste(tailleur_, libres_);
        apres.Ajoute(tailleur_, sursis);
      }
    }
    LieSuites(source_, libres_);
    return std::move(libres_);
  }

 private:
  static constexpr std::size_t ParBloc = 8;
  static constexpr double Patience = 4.5;  // steps
  static constexpr double Jeune = 1e-9;    // mm

  [[nodiscard]] bool EnSursis(const PiecesVives::Vive& v) const { return std::abs(d_) < v.sursis; }
  // Of the piece just cut. Only where what ended it before still does, for what changes at every depth would ask
  // for it at every depth; not at once, for the pieces of a small outline don't live long; and not soon again where
  // it was for nothing. Negative: the depth from which on it may be asked for.
  [[nodiscard]] double NouveauSursis(const PiecesVives::Vive& v) {
    const double r = std::abs(d_);
    if (r < -v.sursis || pas_ == 0) return std::min(v.sursis, 0.0);
    if (v.sursis == 0) return -Jeune;
    const std::span<const Intervalle> avant = avant_.Reste(v);
    const std::vector<Intervalle>& reste = tailleur_.Reste();
    if (avant.size() != 1 || reste.size() != 1 || avant[0].de.cause != reste[0].de.cause ||
        avant[0].a.cause != reste[0].a.cause) {
      return 0;
    }
    const double s = sursis_.De(v.brute, reste[0], r + pas_);
    return s > 0 ? s : -(r + Patience * pas_);
  }

  const ArcSource& source_;
  ArcTailleur tailleur_;
  ArcSursis sursis_;
  const PiecesVives& avant_;
  double d_;
  double pas_;
  std::vector<ArcLibre> libres_;
};

struct Paire {
  double cout;
  std::uint32_t fin;
  std::uint32_t debut;
};

// Starts sorted by cell of a square grid, for a search within one cell's width and a little more.
class Grille {
 public:
  Grille(const std::vector<ArcLibre>& libres, const std::vector<std::uint32_t>& debuts, double pas)
      : pas_(pas), debuts_(debuts), peu_(debuts.size() <= Peu) {
    if (peu_) {
      for (std::size_t i = 0; i < debuts.size(); ++i) abscisses_[i] = libres[debuts[i]].a.x;
      return;
    }
    cases_.reserve(debuts.size());
    for (const std::uint32_t k : debuts) cases_.push_back({Case(libres[k].a.x), Case(libres[k].a.y), k});
    std::sort(cases_.begin(), cases_.end(), [](const Entree& e, const Entree& f) {
      return e.y != f.y ? e.y < f.y : e.x != f.x ? e.x < f.x : e.k < f.k;
    });
  }
  template <class Visite>
  void Autour(Vec2 p, Visite visite) const {
    if (peu_) {
      for (std::size_t i = 0, n = debuts_.size(); i < n; ++i) {
        if (std::abs(abscisses_[i] - p.x) <= pas_) visite(debuts_[i]);
      }
      return;
    }
    const std::int64_t x = Case(p.x);
    const std::int64_t y = Case(p.y);
    for (std::int64_t r = y - 1; r <= y + 1; ++r) {
      auto it =
          std::lower_bound(cases_.begin(), cases_.end(), Entree{x - 1, r, 0},
                           [](const Entree& e, const Entree& f) { return e.y != f.y ? e.y < f.y : e.x < f.x; });
      for (; it != cases_.end() && it->y == r && it->x <= x + 1; ++it) visite(it->k);
    }
  }

 private:
  struct Entree {
    std::int64_t x, y;
    std::uint32_t k;
  };
  [[nodiscard]] std::int64_t Case(double v) const { return static_cast<std::int64_t>(std::floor(v / pas_)); }
  static constexpr std::size_t Peu = 32;  // of so few all are looked at
  double pas_;
  const std::vector<std::uint32_t>& debuts_;
  bool peu_;
  double abscisses_[Peu];  // of few
  std::vector<Entree> cases_;
};

constexpr std::size_t QuelquesRangs = 32;

// The places below `n` that `ou` takes.
template <class Ou>
std::vector<std::uint32_t> RangsOu(std::uint32_t n, Ou ou) {
  std::vector<std::uint32_t> r;
  r.reserve(QuelquesRangs);
  for (std::uint32_t k = 0; k < n; ++k) {
    if (ou(k)) r.push_back(std::uint32_t{k});  // a copy: no loop is quick whose counter has an address
  }
  return r;
}

// May the gap be bridged by a chord?
bool Pont(const ArcSource& source, Vec2 a, Vec2 b, double r, double creux) {
  for (const double t : {0.25, 0.5, 0.75}) {
    const double e = std::sqrt(source.Distance2(a + (b - a) * t, 4 * r * r));
    if (e < r - creux || e > r + creux / 8) return false;
  }
  return true;
}

// Do they meet in a corner, both free up to there, or two parallels that merely cut each other short?
bool SeSuivent(const ArcSource& source, const ArcLibre& p, const ArcLibre& q) {
  const bool voisins = q.source == p.source ? p.arc && !q.arc : !p.arc && q.source == source.Suivant(p.source);
  if (!voisins) return false;
  const bool coin = p.causeB == Naturel && q.causeA == Naturel;
  const bool coupes = !q.arc && p.causeB == q.source && q.causeA == p.source;
  return (coin || coupes) && Scalaire(q.a - p.b, q.a - p.b) < MemeCoin * MemeCoin;
}

}  // namespace

void LieSuites(const ArcSource& source, std::vector<ArcLibre>& libres) {
  const std::size_t n = libres.size();
  ArcLibre* const a = libres.data();
  const auto lie = [&source, a](std::size_t k, std::size_t suivant) {
    a[k].suite = SeSuivent(source, a[k], a[suivant]) ? Numero32(suivant) : Naturel;
  };
  for (std::size_t k = 0; k < n; ++k) {
    const std::size_t debut = k;  // of the contour's stretches
    const std::size_t dernier = source.Precedent(source.DebutDuContour(a[k].source));
    for (; k + 1 < n && a[k + 1].source <= dernier; ++k) lie(k, k + 1);
    lie(k, debut);
  }
}

// The free stretches of the tailor's last piece.
void AjouteReste(const ArcTailleur& tailleur, std::vector<ArcLibre>& libres) {
  const PieceBrute piece = tailleur.Piece();
  for (const Intervalle& v : tailleur.Reste()) {
    ArcLibre a;
    a.a = tailleur.Place(v.de);
    a.b = tailleur.Place(v.a);
    a.source = piece.source;
    a.causeA = v.de.cause;
    a.causeB = v.a.cause;
    a.arc = piece.arc;
    libres.push_back(a);
  }
}

void PiecesVives::Ajoute(const ArcTailleur& tailleur, double sursis) {
  const std::vector<Intervalle>& r = tailleur.Reste();
  const auto debut = Numero32(reste.size());
  reste.insert(reste.end(), r.begin(), r.end());
  pieces.push_back({tailleur.Piece(), debut, Numero32(reste.size()), sursis});
}

std::vector<ArcLibre> ArcsLibres(const ArcSource& source, double d, double bruit, PiecesVives* vives) {
  std::vector<Plage> contours;
  for (std::size_t debut = 0; debut < source.Taille(); debut = contours.back().fin) {
    // The last segment of a contour goes back to its first vertex.
    contours.push_back({debut, source.Precedent(debut) + 1});
  }
  return ArcsLibres(source, d, bruit, contours, nullptr, vives);
}

std::vector<ArcLibre> ArcsLibres(const ArcSource& source, double d, double bruit, std::span<const Plage> plages,
                                 const Tueurs* tueurs, PiecesVives* vives) {
  const std::optional<Tueurs> saillants = Saillants(source, std::abs(d));
  if (!saillants) return Releveur(source, d, bruit, tueurs, vives).Releve(plages);
  PiecesVives reste;
  Releveur(source, d, bruit, &*saillants, &reste).Releve(plages);
  PiecesVives apres;
  return ArcsLibres(source, d, bruit, reste, tueurs, vives != nullptr ? *vives : apres);
}

std::vector<ArcLibre> ArcsLibres(const ArcSource& source, double d, double bruit, const PiecesVives& avant,
                                 const Tueurs* tueurs, PiecesVives& apres, double pas) {
  return Suiveur(source, d, bruit, avant, pas, tueurs).Suit(apres);
}

std::vector<std::uint8_t> Precedes(const std::vector<ArcLibre>& libres) {
  std::vector<std::uint8_t> r(libres.size(), 0);
  std::uint8_t* const marques = r.data();
  for (const ArcLibre& a : libres) {
    if (a.suite != Naturel) marques[a.suite] = 1;
  }
  return r;
}

std::size_t LieArcs(const ArcSource& source, std::vector<ArcLibre>& libres, double r, double ecart, double creux) {
  const auto n = Numero32(libres.size());
  std::vector<std::uint32_t> fins =
      RangsOu(n, [a = libres.data()](std::uint32_t k) { return a[k].suite == Naturel; });
  if (fins.empty()) return 0;
  std::vector<std::uint8_t> precede = Precedes(libres);
  std::vector<std::uint32_t> debuts = RangsOu(n, [p = precede.data()](std::uint32_t k) { return p[k] == 0; });
  // Most ends meet to the last digits: a fine grid first, the full gap for what is left.
  const double large = std::max(ecart, std::sqrt(8 * r * creux));
  double dernier = 0;
  for (const double pas : {std::min(MemePlace, ecart), ecart, large}) {
    if (pas == dernier) continue;
    dernier = pas;
    const Grille grille(libres, debuts, pas);
    std::vector<Paire> paires;
    paires.reserve(fins.size());
    std::size_t essayees = 0;
    for (const std::uint32_t f : fins) {
      if (++essayees % FinsParRegard == 0 && base::ArretDemande()) return fins.size();
      const ArcLibre& p = libres[f];
      grille.Autour(p.b, [&](std::uint32_t k) {
        const ArcLibre& q = libres[k];
        const double e = Norme(q.a - p.b);
        if (e > pas || (pas > ecart && !Pont(source, p.b, q.a, r, creux))) return;
        // Vertex i is where segment i begins; as the start of a cap it also belongs to the segment before.
        const bool nommes = (p.causeB == q.source || q.causeA == p.source);
        const bool soi = k == f;
        paires.push_back({e + (nommes ? 0 : pas / 8) + (soi ? pas / 4 : 0), f, k});
      });
    }
    std::sort(paires.begin(), paires.end(), [](const Paire& a, const Paire& b) {
      return a.cout != b.cout ? a.cout < b.cout : a.fin != b.fin ? a.fin < b.fin : a.debut < b.debut;
    });
    for (const Paire& p : paires) {
      if (libres[p.fin].suite != Naturel || precede[p.debut] != 0) continue;
      libres[p.fin].suite = p.debut;
      precede[p.debut] = 1;
    }
    std::erase_if(fins, [&](std::uint32_t k) { return libres[k].suite != Naturel; });
    std::erase_if(debuts, [&](std::uint32_t k) { return precede[k] != 0; });
    if (fins.empty()) break;
  }
  return fins.size();
}

std::size_t OteMauvaisCote(const ArcSource& source, std::vector<ArcLibre>& libres, double d, int signe) {
  const auto laches = base::Indice(
      std::count_if(libres.begin(), libres.end(), [](const ArcLibre& a) { return a.suite == Naturel; }));
  if (signe == 0) return laches;
  const std::vector<std::uint8_t> precede = laches > 0 ? Precedes(libres) : std::vector<std::uint8_t>();
  // Left of the outline the winding number is this, right of it one less.
  const int gauche = signe > 0 ? 1 : 0;
  std::size_t reste = 0;
  const std::size_t n = libres.size();
  ArcLibre* const a = libres.data();
  std::vector<std::uint8_t> marques(n, 0);
  std::uint8_t* const vu = marques.data();
  bool arrete = false;
  std::size_t juges = 0;
  const auto juge = [&](std::uint32_t depart, bool lache) {
    arrete = arrete || (++juges % FinsParRegard == 0 && base::ArretDemande());
    if (arrete) return;
    const ArcLibre& p = a[depart];
    const int tours = source.Tours(p.arc ? p.a : (p.a + p.b) * 0.5);
    const bool bon = d > 0 ? tours >= gauche : tours < gauche;
    if (bon && lache) ++reste;
    for (std::uint32_t k = depart; k != Naturel && vu[k] == 0; k = a[k].suite) {
      vu[k] = 1;
      a[k].hors = !bon;
    }
  };
  for (std::uint32_t k = 0; k < precede.size(); ++k) {
    if (precede[k] == 0) juge(k, true);
  }
  for (std::uint32_t k = 0; k < n; ++k) {
    if (vu[k] == 0) juge(k, false);
  }
  return arrete ? n : reste;
}

}  // namespace pathwerk::decalage
