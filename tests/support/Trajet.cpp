#include "tests/support/Trajet.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sstream>

namespace essai {

using namespace ovelin;

namespace {

constexpr double Pres = 0.0009;  // mm: three decimals in two axes, and four of the interpreter

struct Place {
  double x = 0, y = 0, z = 0;
};

double Distance(const Place& a, const Place& b) { return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z); }

Place Fin(const Deplacement& d) {
  return {static_cast<double>(d.X), static_cast<double>(d.Y), static_cast<double>(d.Z)};
}

double AuSegment(const Place& p, const Place& a, const Place& b) {
  const double dx = b.x - a.x, dy = b.y - a.y, l2 = dx * dx + dy * dy;
  const double t = l2 > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / l2, 0.0, 1.0) : 0.0;
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

class Marche {
 public:
  Marche(std::span<const Deplacement> plan, bool avances) : plan_(plan), avances_(avances), ici_(Fin(plan[0])) {}

  bool Suit(const MouvementRs274& m) {
    const Place fin{m.x, m.y, m.z};
    if (m.arc) return Arc(m, fin);
    if (Distance(fin, ici_) <= Pres && (rang_ >= plan_.size() || Distance(Fin(plan_[rang_]), fin) > Pres)) {
      return true;  // the place where it stands, said again
    }
    while (rang_ < plan_.size() && Distance(Fin(plan_[rang_]), fin) > Pres) {
      if (Distance(Fin(plan_[rang_]), ici_) > Pres) return false;
      ++rang_;
    }
    if (rang_ >= plan_.size() || m.rapide != (plan_[rang_].Z > 0) || !Avance(m)) return false;
    ecart.rangs = std::max(ecart.rangs, Distance(Fin(plan_[rang_]), fin));
    ++rang_;
    ici_ = fin;
    return true;
  }
  // What is left of the plan goes nowhere.
  bool Finit() {
    while (rang_ < plan_.size() && Distance(Fin(plan_[rang_]), ici_) <= Pres) ++rang_;
    return rang_ == plan_.size();
  }
  [[nodiscard]] std::size_t Rang() const { return rang_; }

  EcartTrajet ecart;

 private:
  [[nodiscard]] bool Avance(const MouvementRs274& m) const {
    const auto f = static_cast<double>(plan_[rang_].Vitesse * 60);
    return !avances_ || m.rapide || std::abs(m.avance - f) <= 0.0006 + 1e-6 * f;
  }

  bool Arc(const MouvementRs274& m, const Place& fin) {
    const double r1 = std::hypot(ici_.x - m.cx, ici_.y - m.cy), r2 = std::hypot(fin.x - m.cx, fin.y - m.cy);
    const std::size_t premier = rang_;
    for (; rang_ < plan_.size(); ++rang_) {
      const Place p = Fin(plan_[rang_]);
      if (p.z != ici_.z || std::abs(p.z - fin.z) > Pres || !Avance(m)) return false;
      ecart.rangs = std::max(ecart.rangs, std::abs(std::hypot(p.x - m.cx, p.y - m.cy) - (r1 + r2) / 2));
      if (Distance(p, fin) <= Pres) break;
    }
    if (rang_ >= plan_.size()) return false;
    ecart.rayons = std::max(ecart.rayons, std::abs(r1 - r2));
    ++ecart.arcs;
    const bool bon = Parcourt(m, premier, (r1 + r2) / 2);
    ++rang_;
    ici_ = fin;
    return bon;
  }

  // The arc in many places, each against the row that it passes: rows are left one after the other, in the arc's
  // own sense.
  bool Parcourt(const MouvementRs274& m, std::size_t premier, double r) {
    const double tour = 2 * std::numbers::pi;
    const double a = std::atan2(ici_.y - m.cy, ici_.x - m.cx);
    double sweep = std::atan2(m.y - m.cy, m.x - m.cx) - a;
    if (m.horaire && sweep > 0) sweep -= tour;
    if (!m.horaire && sweep < 0) sweep += tour;
    const auto n = static_cast<int>(16 * (rang_ - premier + 1));
    std::size_t rang = premier;
    const auto loin = [&](std::size_t k, const Place& p) {
      return AuSegment(p, k == premier ? ici_ : Fin(plan_[k - 1]), Fin(plan_[k]));
    };
    for (int i = 0; i <= n; ++i) {
      const double angle = a + sweep * i / n;
      const Place p{m.cx + r * std::cos(angle), m.cy + r * std::sin(angle), 0};
      while (rang < rang_ && loin(rang + 1, p) < loin(rang, p)) ++rang;
      ecart.fleche = std::max(ecart.fleche, loin(rang, p));
    }
    return rang == rang_;
  }

  std::span<const Deplacement> plan_;
  bool avances_;
  Place ici_;
  std::size_t rang_ = 1;
};

}  // namespace

EcartTrajet CompareTrajet(const std::vector<MouvementRs274>& mouvements, std::span<const Deplacement> plan,
                          bool avances) {
  Marche marche(plan, avances);
  for (std::size_t i = 0; i < mouvements.size(); ++i) {
    if (marche.Suit(mouvements[i])) continue;
    std::ostringstream s;
    s << "move " << i << " to " << mouvements[i].x << " " << mouvements[i].y << " " << mouvements[i].z
      << (mouvements[i].arc ? " (arc)" : "") << " is not row " << marche.Rang();
    marche.ecart.faute = s.str();
    return marche.ecart;
  }
  if (!marche.Finit()) marche.ecart.faute = "rows from " + std::to_string(marche.Rang()) + " on are missing";
  return marche.ecart;
}

}  // namespace essai
