// From linked stretches to polylines: each arc by chords inside of it.
#include "closed/pathwerk/decalage/ArcAplatis.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "closed/pathwerk/commun/Numero32.h"

namespace pathwerk::decalage {

namespace {

class Aplatisseur {
 public:
  Aplatisseur(const ArcSource& source, const std::vector<ArcLibre>& libres, double d, double fleche)
      : source_(source), libres_(libres), r_(std::abs(d)), sens_(d > 0 ? -1 : 1), fleche_(fleche) {
    pas_ = std::min(2 * std::acos(1 - std::min(fleche / r_, 1.0)), std::numbers::pi / 3);
  }

  // The chain of stretches, in order. `origines`: of its edges.
  Chemin Boucle(const std::vector<std::uint32_t>& chaine, bool ouverte, Origines& origines) {
    ouverte_ = ouverte;
    sortie_.clear();
    origines_.clear();
    ici_ = {};
    const std::size_t n = chaine.size();
    sortie_.reserve(n + n / 4);
    origines_.reserve(n + n / 4);
    bool avant = Emousse(chaine, n - 1);
    bool ici = Emousse(chaine, 0);
    for (std::size_t k = 0; k < n; ++k) {
      const bool apres = Emousse(chaine, base::Suivant(k, n));
      const ArcLibre& p = libres_[chaine[k]];
      if (ici) {
        const Vec2 c = source_.A(p.source);
        Pose(c + Unite((p.a - c) + (p.b - c)) * r_, 1);
      } else {
        if (!avant) Pose(p.a, 0);
        ici_ = {p.source, Debut(p), 0};
        if (p.arc) Arc(p);
        if (!apres) {
          Pose(p.b, Fin(p));
          ici_ = {};  // should the next stretch begin elsewhere, a chord goes there
        }
      }
      avant = ici;
      ici = apres;
    }
    if (avant) ici_ = {libres_[chaine[0]].source, 0, 0};
    if (!ouverte_) Ferme();
    origines = std::move(origines_);
    return std::move(sortie_);
  }

 private:
  static constexpr double Meme = 1e-9;  // mm
  static bool Proches(Vec2 p, Vec2 q) { return Scalaire(p - q, p - q) < Meme * Meme; }

  // A point where the edge before it arrives at the share `part` of the segment it runs beside.
  void Pose(Vec2 p, float part) {
    if (!sortie_.empty() && Proches(p, sortie_.back())) return;
    if (sortie_.empty()) {
      premiere_ = part;
    } else {
      origines_.push_back({ici_.segment, ici_.de, part});
    }
    sortie_.push_back(p);
    ici_.de = part;
  }

  // The edge back to the first point.
  void Ferme() {
    if (sortie_.size() < 2 || !Proches(sortie_.front(), sortie_.back())) {
      origines_.push_back({ici_.segment, ici_.de, premiere_});
      return;
    }
    sortie_.pop_back();
    while (sortie_.size() > 1 && Proches(sortie_.front(), sortie_.back())) {
      sortie_.pop_back();
      origines_.pop_back();
    }
  }

  [[nodiscard]] float Part(const ArcLibre& p, Vec2 q) const {
    const Vec2 d = source_.B(p.source) - source_.A(p.source);
    return static_cast<float>(std::clamp(Scalaire(q - source_.A(p.source), d) / Scalaire(d, d), 0.0, 1.0));
  }
  [[nodiscard]] float Debut(const ArcLibre& p) const { return p.arc || p.causeA == Naturel ? 0.0F : Part(p, p.a); }
  [[nodiscard]] float Fin(const ArcLibre& p) const {
    return p.arc ? 0.0F : p.causeB == Naturel ? 1.0F : Part(p, p.b);
  }

  // A whole arc so blunt that its middle alone will do, between two whole ends of parallels.
  [[nodiscard]] bool Emousse(const std::vector<std::uint32_t>& chaine, std::size_t k) const {
    const std::size_t n = chaine.size();
    const ArcLibre& p = libres_[chaine[k]];
    if (n < 3 || (ouverte_ && (k == 0 || k + 1 == n)) || !p.arc || p.causeA != Naturel || p.causeB != Naturel)
      return false;
    const ArcLibre& avant = libres_[chaine[base::Precedent(k, n)]];
    const ArcLibre& apres = libres_[chaine[base::Suivant(k, n)]];
    if (avant.arc || apres.arc || avant.causeB != Naturel || apres.causeA != Naturel) return false;
    const double corde2 = Scalaire(p.b - p.a, p.b - p.a);
    return corde2 < r_ * r_ && corde2 <= 4 * r_ * fleche_;  // sagitta = chord^2 / 8 r
  }

  void Arc(const ArcLibre& p) {
    const Vec2 c = source_.A(p.source);
    const Vec2 u = (p.a - c) * (1 / r_);
    const double w = Balayage(u, (p.b - c) * (1 / r_), sens_);
    const auto n = static_cast<long>(std::ceil(w / pas_ - 1e-9));
    if (n < 2) return;
    const double a = sens_ * w / static_cast<double>(n);
    const double co = std::cos(a);
    const double si = std::sin(a);
    Vec2 v = u * r_;
    for (long i = 1; i < n; ++i) {
      v = {v.x * co - v.y * si, v.x * si + v.y * co};
      Pose(c + v, 0);
    }
  }

  const ArcSource& source_;
  const std::vector<ArcLibre>& libres_;
  double r_;
  double sens_;
  double fleche_;
  double pas_ = 0;
  bool ouverte_ = false;
  Chemin sortie_;
  Origines origines_;
  Origine ici_;         // of the edge that leaves the last point
  float premiere_ = 0;  // where the edge back to the first point arrives
};

bool PlusLongue(const Chemin& c, double mini) {
  double s = 0;
  for (std::size_t i = 0, n = c.size(); i < n && s < mini; ++i) s += Norme(c[base::Suivant(i, n)] - c[i]);
  return s >= mini;
}

}  // namespace

std::vector<Chemin> AplatitBoucles(const ArcSource& source, const std::vector<ArcLibre>& libres, double d,
                                   double fleche, double mini, std::vector<Origines>* origines,
                                   std::size_t* omises) {
  Aplatisseur aplatisseur(source, libres, d, fleche);
  const auto n = Numero32(libres.size());
  const ArcLibre* const a = libres.data();
  std::vector<std::uint8_t> marques(n, 0);
  std::uint8_t* const vu = marques.data();
  std::vector<Chemin> boucles;
  std::vector<std::uint32_t> chaine;
  Origines o;
  if (origines != nullptr) origines->clear();
  const std::vector<std::uint8_t> precede = Precedes(libres);
  const auto depuis = [&](std::uint32_t depart) {
    if (a[depart].hors) return;
    chaine.clear();
    std::uint32_t k = depart;
    for (; k != Naturel && vu[k] == 0; k = a[k].suite) {
      vu[k] = 1;
      chaine.push_back(std::uint32_t{k});
    }
    Chemin c = aplatisseur.Boucle(chaine, k == Naturel, o);
    if (c.size() < 2 || !PlusLongue(c, mini)) {
      if (omises != nullptr) ++*omises;
      return;
    }
    boucles.push_back(std::move(c));
    if (origines != nullptr) origines->push_back(std::move(o));
  };
  // Open chains first, from where they begin.
  for (std::uint32_t k = 0; k < n; ++k) {
    if (precede[k] == 0) depuis(k);
  }
  for (std::uint32_t k = 0; k < n; ++k) {
    if (vu[k] == 0) depuis(k);
  }
  return boucles;
}

}  // namespace pathwerk::decalage
