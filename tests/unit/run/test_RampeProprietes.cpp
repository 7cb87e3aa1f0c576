// What must hold for every way down, whatever the path, the notches and the angle: random closed paths, each judged
// by the path itself.
#include <algorithm>
#include <cmath>
#include <random>

#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "run/NoyauPlan.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

constexpr double Fin = 1e-4;  // mm: what 32 bits have at these lengths, with room

// A closed path around (100, 100) whose stretches don't cross, with notches of one stretch each.
struct Boucle {
  std::vector<PointEssai> points;
  std::vector<double> debuts;  // mm along the path where each stretch begins
  std::vector<bool> tenus;     // this stretch is a notch
  double longueur = 0;
  double profondeur = 0, pont = 0;  // mm: bottom, height of the bridges over it
};

Boucle BoucleAleatoire(std::mt19937& alea) {
  std::uniform_int_distribution<int> nombre(3, 40);
  std::uniform_real_distribution<double> rayon(0.3, 1), taille(1, 60), profondeur(-4, -0.2), pont(0.05, 2);
  const int n = nombre(alea);
  const double r = taille(alea);
  Boucle b;
  for (int i = 0; i < n; ++i) {
    const double a = -2 * Pi * i / n;
    const double d = r * rayon(alea);
    b.points.push_back({static_cast<float>(100 + d * std::cos(a)), static_cast<float>(100 + d * std::sin(a))});
  }
  b.points.push_back(b.points.front());
  b.tenus.assign(static_cast<std::size_t>(n), false);
  for (std::size_t i = 1; i + 2 < b.points.size(); ++i) {
    if (alea() % 4 != 0 || b.tenus[i - 1]) continue;
    b.points[i].cde = "PE";
    b.tenus[i] = true;
  }
  for (std::size_t i = 1; i < b.points.size(); ++i) {
    b.debuts.push_back(b.longueur);
    const auto& p = b.points[i - 1];
    const auto& q = b.points[i];
    b.longueur += std::hypot(static_cast<double>(q.x) - static_cast<double>(p.x),
                             static_cast<double>(q.y) - static_cast<double>(p.y));
  }
  b.profondeur = profondeur(alea);
  b.pont = pont(alea);
  return b;
}

// Where (x, y) lies on the path, mm from its start, not before `depuis` by more than Fin: going round, that is the
// nearest place ahead. Below 0: it does not lie on it.
double Place(const Boucle& b, double x, double y, double depuis) {
  double meilleur = -1;
  for (std::size_t i = 0; i + 1 < b.points.size(); ++i) {
    const double px = static_cast<double>(b.points[i].x), py = static_cast<double>(b.points[i].y);
    const double ux = static_cast<double>(b.points[i + 1].x) - px, uy = static_cast<double>(b.points[i + 1].y) - py;
    const double l = std::hypot(ux, uy);
    const double t = std::clamp(((x - px) * ux + (y - py) * uy) / (l * l), 0.0, 1.0);
    if (std::hypot(px + t * ux - x, py + t * uy - y) > Fin) continue;
    double s = b.debuts[i] + t * l;
    while (s < depuis - 2 * Fin) s += b.longueur;
    if (meilleur < 0 || s < meilleur) meilleur = s;
  }
  return meilleur;
}

std::size_t Troncon(const Boucle& b, double s) {
  s = std::fmod(s, b.longueur);
  const auto it = std::upper_bound(b.debuts.begin(), b.debuts.end(), s);
  return static_cast<std::size_t>(it - b.debuts.begin()) - 1;
}

class Cas {
 public:
  explicit Cas(unsigned graine) : alea_(graine), b_(BoucleAleatoire(alea_)) {
    ReglagesPlan();
    std::uniform_real_distribution<double> angle(0.5, 45), passe(-2.5, -0.15), verticale(0.1, 4);
    AngleRampe = angle(alea_);
    ProfPasse = passe(alea_);
    Vitesse_Mat_V = verticale(alea_);
    MiniEncoche = b_.pont;
    CdeZENIK->FixeResolutions(0.0123, 0.0071, 0.0049);
    Doc = Document{};
    AjouteTrajet(" A", b_.profondeur, b_.points);
  }

  void Juge() {
    ASSERT_TRUE(Tableau_Decoupe());
    ASSERT_GT(NbDeplacements, 6);
    ASSERT_EQ(Nombre(Ligne(4).Z), "0");
    Suit();
    if (testing::Test::HasFatalFailure()) return;
    Fond();
  }

 private:
  // Rows 5 to the last but four are the cuts: the first four lead to the surface over the start, the last four up
  // and home.
  void Suit() {
    const double pente = std::tan(AngleRampe * Pi / 180);
    const double passe = std::min(-ProfPasse, -b_.profondeur);
    const double raide = std::max(pente, passe / (100 * b_.longueur));
    double s = 0;
    double plus = 0;  // lowest height so far out of notches
    for (std::int32_t i = 5; i <= NbDeplacements - 4; ++i) {
      const Deplacement& d = Ligne(i);
      const Deplacement& avant = Ligne(i - 1);
      const double z = static_cast<double>(d.Z);
      const double dz = z - static_cast<double>(avant.Z);
      const double l = std::hypot(static_cast<double>(d.X) - static_cast<double>(avant.X),
                                  static_cast<double>(d.Y) - static_cast<double>(avant.Y));
      const double t = Place(b_, static_cast<double>(d.X), static_cast<double>(d.Y), s);
      ASSERT_GE(t, 0) << "row " << i << " leaves the path";
      ASSERT_NEAR(t - s, l, 3 * Fin) << "row " << i << " goes the way of the path and never back";
      const double milieu = l > 0 ? (s + t) / 2 : s;
      const bool tenu = b_.tenus[Troncon(b_, milieu)];
      ASSERT_GE(z, b_.profondeur - 1e-5) << "row " << i;
      if (l > 0) {
        ASSERT_LE(dz, 1e-6) << "row " << i << " rises on its way";
        ASSERT_LE(-dz, raide * l + 0.0049) << "row " << i << " is too steep";
        ASSERT_LE(d.Vitesse, 3) << "row " << i;
        const double verticale = static_cast<double>(d.Vitesse) * -dz / std::hypot(l, dz);
        ASSERT_LE(verticale, Vitesse_Mat_V * (1 + 1e-6)) << "row " << i << " sinks too fast";
        if (tenu) {
          ASSERT_GE(z, std::min(0.0, b_.profondeur + b_.pont) - 1e-5) << "row " << i << " cuts a bridge";
        }
        if (!tenu) {
          ASSERT_LE(z, plus + 1e-5) << "row " << i << " rises out of a notch";
          plus = std::min(plus, z);
        }
      } else {
        ASSERT_EQ(static_cast<double>(d.Vitesse), static_cast<double>(static_cast<float>(Vitesse_Mat_V)));
        const bool bord = BordDEncoche(s);
        ASSERT_TRUE(bord) << "row " << i << " goes up or down out of the ends of a notch";
      }
      if (z <= b_.profondeur + 1e-5 && static_cast<double>(avant.Z) <= b_.profondeur + 1e-5 && l > 0) {
        faits_.emplace_back(s, t);
      }
      s = t;
    }
  }

  [[nodiscard]] bool BordDEncoche(double s) const {
    const double ici = std::fmod(s + Fin, b_.longueur);
    for (std::size_t i = 0; i < b_.tenus.size(); ++i) {
      const bool avant = b_.tenus[i == 0 ? b_.tenus.size() - 1 : i - 1];
      if (b_.tenus[i] != avant && std::abs(ici - Fin - b_.debuts[i]) < 3 * Fin) return true;
    }
    return false;
  }

  // Every place out of notches has been passed at the full depth.
  void Fond() {
    constexpr int Places = 400;
    for (int k = 0; k < Places; ++k) {
      const double s = b_.longueur * (k + 0.5) / Places;
      if (b_.tenus[Troncon(b_, s)] && b_.pont > 1e-4) continue;
      const bool fait = std::any_of(faits_.begin(), faits_.end(), [&](const auto& f) {
        const double tour = std::floor(f.first / b_.longueur) * b_.longueur;
        return (s + tour >= f.first - 3 * Fin && s + tour <= f.second + 3 * Fin) ||
               (s + tour + b_.longueur >= f.first - 3 * Fin && s + tour + b_.longueur <= f.second + 3 * Fin);
      });
      ASSERT_TRUE(fait) << "the contour stands at " << s << " of " << b_.longueur;
    }
  }

  std::mt19937 alea_;
  Boucle b_;
  std::vector<std::pair<double, double>> faits_;  // mm along the path, at the full depth
};

TEST(RampeProprietes, HoldForRandomClosedPathsNotchesAndAngles) {
  for (unsigned graine = 1; graine <= 400; ++graine) {
    SCOPED_TRACE("seed " + std::to_string(graine));
    Cas cas(graine);
    cas.Juge();
    if (HasFatalFailure()) return;
  }
}

TEST(RampeProprietes, TheEstimateNeverFallsShort) {
  for (unsigned graine = 1; graine <= 200; ++graine) {
    const Cas cas(graine);
    ASSERT_TRUE(Tableau_Decoupe());
    ParametresPlan p;
    p.ProfPasse = ProfPasse;
    p.AngleRampe = AngleRampe;
    const auto e = EstimePlan(p, TraceDecale, std::vector<UsinageTrace>{{true, Sequences[0].Profondeur}});
    ASSERT_GE(e.lignes, static_cast<std::int64_t>(TableDecoupe.size())) << "seed " << graine;
  }
}

}  // namespace
}  // namespace essai
