// Most raw pieces lose nothing to any but their two neighbours, and finding that out for each costs most of an
// offset. It can be had for whole runs of them.
//
// The draft is the raw parallel, each piece cut by its neighbours alone. The border is part of the draft, for
// nothing was taken from it that isn't too near to the outline. Walk along the draft: where it goes from free to
// buried the border leaves it, and goes on along another piece of the draft. So nothing changes but where the draft
// meets itself:
//
//        free  ______.    ,______  free
//                     \  /
//                      x            x: a meeting; the loop below it is buried
//                     (  )
//                      --
//
// So pieces that meet others are cut by what these lie beside, in closed form. What is left makes chains, each free
// or buried as a whole, and a single place of each tells which. A draft that meets itself all over is no use: there
// each piece is cut by all of the outline.
#include "closed/pathwerk/decalage/ArcEbauche.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "base/Arret.h"
#include "base/Indices.h"
#include "closed/pathwerk/decalage/ArcCoin.h"
#include "closed/pathwerk/decalage/ArcRencontres.h"
#include "closed/pathwerk/decalage/ArcSaillants.h"

namespace pathwerk::decalage {

namespace {

constexpr std::size_t SegmentsParRegard = 1024;
constexpr double Court = 1e-9;       // mm: a parallel shorter than this is left to the tailor
constexpr double SinusMin = 1e-9;    // of a plain inner corner
constexpr double CosinusMin = -0.9;  // of one that doesn't turn nearly right back

class Ebauche {
 public:
  Ebauche(const ArcSource& source, double d, double bruit)
      : source_(source), tailleur_(source, d, bruit), d_(d), bruit_(bruit) {}

  // `foule`: also where the draft meets itself all over. Else there is nothing then.
  std::optional<std::vector<ArcLibre>> Releve(bool foule) {
    Dessine();
    LieSuites(source_, libres_);
    const std::optional<Rencontres> rencontres = ChercheRencontres(source_, libres_, d_);
    if (!rencontres && !foule) return std::nullopt;
    Taille(rencontres ? &*rencontres : nullptr);
    LieSuites(source_, libres_);
    if (rencontres) {
      LieArcs(source_, libres_, std::abs(d_), MemePlace, 0);
      OteEnterrees();
    }
    return std::move(libres_);
  }

 private:
  enum Etat : std::uint8_t { Inconnu, Juge, Libre, Enterre };  // Juge: being told

  // The draft, in the order of the outline.
  void Dessine() {
    const std::size_t n = source_.Taille();
    libres_.reserve(n + n / 2);
    for (std::size_t debut = 0; debut < n; debut = source_.Precedent(debut) + 1) {
      Contour(debut, source_.Precedent(debut) + 1);
    }
  }
  void Contour(std::size_t debut, std::size_t fin) {
    Trait trait = TraitDe(source_, debut);
    const Trait dernier = TraitDe(source_, source_.Precedent(debut));
    Coin coin = CoinDe(dernier.u, trait.u, d_);
    double entame = EntameDe(coin, dernier, trait);
    for (std::size_t i = debut; i < fin; ++i) {
      if (i % SegmentsParRegard == 0 && base::ArretDemande()) return;
      const Trait apres = TraitDe(source_, source_.Suivant(i));
      const Coin suivant = CoinDe(trait.u, apres.u, d_);
      const double apresCoup = EntameDe(suivant, trait, apres);
      if (coin.vif) Arc(i, coin);
      Parallele(i, trait, coin, suivant, entame, apresCoup);
      trait = apres;
      coin = suivant;
      entame = apresCoup;
    }
  }
  // Length that an inner corner takes from the parallels of both its segments, where each has its foot on the other
  // one; 0 at an outer corner, negative where it isn't that plain.
  [[nodiscard]] double EntameDe(const Coin& coin, const Trait& avant, const Trait& apres) const {
    if (coin.exterieur) return 0;
    const double cosinus = Scalaire(avant.u, apres.u);
    const double sinus = std::abs(Vectoriel(avant.u, apres.u));
    if (sinus < SinusMin || cosinus < CosinusMin) return -1;
    const double t = std::abs(d_) * sinus / (1 + cosinus);
    return t < std::min(avant.l, apres.l) ? t : -1;
  }
  void Arc(std::size_t i, const Coin& coin) {
    const Vec2 c = source_.A(i);
    const double r = std::abs(d_);
    libres_.push_back({c + coin.u0 * r, c + coin.u1 * r, Numero32(i), Naturel, Naturel, Naturel, true});
  }
  void Parallele(std::size_t i, const Trait& trait, const Coin& coin, const Coin& suivant, double debut,
                 double fin) {
    const Vec2 a = source_.A(i) + Gauche(trait.u) * d_;
    const Vec2 b = a + trait.u * trait.l;
    if (debut >= 0 && fin >= 0 && trait.l - debut - fin > Court) {
      ArcLibre p{a + trait.u * debut, a + trait.u * (trait.l - fin), Numero32(i)};
      if (debut > 0) p.causeA = Numero32(source_.Precedent(i));
      if (fin > 0) p.causeB = Numero32(source_.Suivant(i));
      libres_.push_back(p);
      return;
    }
    // An inner corner buries its own end of the parallel; a stadium that has both ends has all of it.
    if (!coin.exterieur && EstSous(source_.Precedent(i), b)) return;
    if (!suivant.exterieur && EstSous(source_.Suivant(i), a)) return;
    if (!tailleur_.EntameSegment(i, trait.u, trait.l, !coin.exterieur, !suivant.exterieur)) return;
    AjouteReste(tailleur_, libres_);
  }
  [[nodiscard]] bool EstSous(std::size_t segment, Vec2 p) const {
    const double limite = std::abs(d_) - bruit_;
    return source_.Distance2(segment, p) < limite * limite;
  }

  // Cuts the pieces that meet others by what they meet; without knowing what that is, each by all of the outline.
  void Taille(const Rencontres* rencontres) {
    std::vector<ArcLibre> ebauche;
    ebauche.swap(libres_);
    tailleur_.SansBloc();
    libres_.reserve(ebauche.size() + ebauche.size() / 8);
    std::size_t garde = 0;  // the first that stays as it is and isn't copied yet
    const auto copie = [&](std::size_t fin) {
      libres_.insert(libres_.end(), base::Iterateur(ebauche, garde), base::Iterateur(ebauche, fin));
    };
    const auto prochaine = [&] { return rencontres != nullptr ? rencontres->Prochaine(garde) : garde; };
    for (std::size_t k = prochaine(); k < ebauche.size(); k = prochaine()) {
      if (++regards_ % SegmentsParRegard == 0 && base::ArretDemande()) return;
      const ArcLibre& p = ebauche[k];
      const auto deLaPiece = [&](std::size_t j) {
        return ebauche[j].source == p.source && ebauche[j].arc == p.arc;
      };
      std::size_t debut = k;  // of the stretches of the piece
      while (debut > garde && deLaPiece(debut - 1)) --debut;
      std::size_t fin = k + 1;
      while (fin < ebauche.size() && deLaPiece(fin)) ++fin;
      copie(debut);
      garde = fin;
      causes_.clear();
      for (; rencontres != nullptr && k < fin; ++k) {
        for (const std::uint32_t j : rencontres->De(k)) AjouteCause(ebauche[j]);
      }
      const bool reste = Entame(p.source, p.arc) && (rencontres != nullptr ? Essaie() : tailleur_.TailleRestes());
      if (reste) AjouteReste(tailleur_, libres_);
    }
    copie(ebauche.size());
  }
  // What a stretch lies beside: its segment, or both of an arc.
  void AjouteCause(const ArcLibre& p) {
    causes_.push_back(p.source);
    if (p.arc) causes_.push_back(Numero32(source_.Precedent(p.source)));
  }
  bool Entame(std::size_t i, bool arc) {
    const Trait trait = TraitDe(source_, i);
    const Coin coin = CoinDe(TraitDe(source_, source_.Precedent(i)).u, trait.u, d_);
    if (arc) return tailleur_.EntameArc(i, coin.u0, coin.u1);
    const Coin suivant = CoinDe(trait.u, TraitDe(source_, source_.Suivant(i)).u, d_);
    return tailleur_.EntameSegment(i, trait.u, trait.l, !coin.exterieur, !suivant.exterieur);
  }
  bool Essaie() {
    return std::all_of(causes_.begin(), causes_.end(), [this](std::uint32_t j) { return tailleur_.Essaie(j); });
  }

  // Of each chain of stretches one place tells. What is left keeps its links.
  void OteEnterrees() {
    const std::size_t n = libres_.size();
    etats_.assign(n, Inconnu);
    bool toutes = true;
    for (std::uint32_t k = 0; k < n; ++k) {
      if (etats_[k] == Inconnu) toutes = JugeChaine(k) == Libre && toutes;
    }
    if (toutes) return;
    std::vector<std::uint32_t> rangs(n, Naturel);
    std::uint32_t garde = 0;
    for (std::size_t k = 0; k < n; ++k) {
      if (etats_[k] == Libre) rangs[k] = garde++;
    }
    ArcLibre* const a = libres_.data();
    for (std::size_t k = 0; k < n; ++k) {
      if (rangs[k] == Naturel) continue;
      ArcLibre& p = a[rangs[k]];
      if (rangs[k] != k) p = a[k];
      if (p.suite != Naturel) p.suite = rangs[p.suite];
    }
    libres_.resize(garde);
  }
  // The chain from stretch k on, up to where it ends or comes to one that is known.
  Etat JugeChaine(std::uint32_t k) {
    if (++regards_ % SegmentsParRegard == 0 && base::ArretDemande()) return Enterre;
    const ArcLibre* const a = libres_.data();
    Etat* const etats = etats_.data();
    std::uint32_t fin = k;  // behind the chain
    for (std::uint32_t j = k; fin != Naturel && etats[fin] == Inconnu; j = fin) {
      etats[j] = Juge;
      fin = a[j].suite;
      if (fin != Naturel && !Continue(a[j], a[fin])) fin = Naturel;
    }
    Etat etat = fin == Naturel || etats[fin] == Juge ? Inconnu : etats[fin];
    if (etat == Inconnu) etat = EstEnterree(MilieuDe(a[k])) ? Enterre : Libre;
    for (std::uint32_t j = k; j != Naturel && etats[j] == Juge; j = a[j].suite) etats[j] = etat;
    return etat;
  }
  // Does q surely go on where p, linked to it, ends? Both buried, or both free: in a corner, and where each is
  // ended by what the other lies beside.
  [[nodiscard]] bool Continue(const ArcLibre& p, const ArcLibre& q) const {
    if (p.causeB == Naturel || q.causeA == Naturel) return p.causeB == q.causeA;
    return Longe(q, p.causeB) && Longe(p, q.causeA);
  }
  [[nodiscard]] bool Longe(const ArcLibre& p, std::uint32_t segment) const {
    return p.source == segment || (p.arc && source_.Precedent(p.source) == segment);
  }
  [[nodiscard]] Vec2 MilieuDe(const ArcLibre& p) const {
    const Vec2 m = (p.a + p.b) * 0.5;
    if (!p.arc) return m;
    const double r = std::abs(d_);
    const Vec2 c = source_.A(p.source);
    // Of half a turn the ends lie opposite.
    const Vec2 w = Norme(m - c) > 1e-6 * r ? m - c : Gauche(p.a - c) * (d_ > 0 ? -1 : 1);
    return c + Unite(w) * r;
  }
  // Is a place nearer to the outline than the distance, by more than the noise? What buries one mostly buries the
  // next.
  [[nodiscard]] bool EstEnterree(Vec2 p) {
    if (EstSous(dernier_, p)) return true;
    const double limite = std::abs(d_) - bruit_;
    const ArcSource::Arbre& arbre = source_.Boites();
    return !arbre.ParcourtFeuilles(
        [&](std::size_t k) { return base::Distance2(arbre.De(k), p) < limite * limite; },
        [&](std::size_t k) {
          return base::Distance2(arbre.De(2 * k), p) < base::Distance2(arbre.De(2 * k + 1), p);
        },
        [&](std::size_t feuille) {
          for (std::size_t i = arbre.Debut(feuille), fin = arbre.Fin(feuille); i < fin; ++i) {
            if (!EstSous(i, p)) continue;
            dernier_ = i;
            return false;
          }
          return true;
        });
  }

  const ArcSource& source_;
  ArcTailleur tailleur_;
  double d_;
  double bruit_;
  std::vector<ArcLibre> libres_;
  std::vector<Etat> etats_;            // of the stretches, when they are cut
  std::vector<std::uint32_t> causes_;  // what the piece at hand may be cut by
  std::size_t dernier_ = 0;            // the segment that buried a place most lately
  std::size_t regards_ = 0;
};

}  // namespace

std::vector<ArcLibre> ArcsParEbauche(const ArcSource& source, double d, double bruit) {
  if (Saillants(source, std::abs(d))) return ArcsLibres(source, d, bruit);
  return *Ebauche(source, d, bruit).Releve(true);
}

std::optional<std::vector<ArcLibre>> ArcsSiPeuDeRencontres(const ArcSource& source, double d, double bruit) {
  if (Saillants(source, std::abs(d))) return std::nullopt;
  return Ebauche(source, d, bruit).Releve(false);
}

}  // namespace pathwerk::decalage
