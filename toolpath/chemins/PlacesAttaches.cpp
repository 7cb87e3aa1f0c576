#include "toolpath/chemins/PlacesAttaches.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

constexpr double CoinRadians = 15 * Pi / 180;
constexpr double DroitRadians = 0.5 * Pi / 180;  // a turn that a straight line may have by its rounding
constexpr double PasMax = 20'000;

// A path with the length run at each point.
class Parcours {
 public:
  explicit Parcours(std::span<const PointTrace> run) : run_(run), parcouru_(run.size(), 0.0) {
    for (std::size_t i = 1; i < run.size(); ++i) {
      parcouru_[i] = parcouru_[i - 1] + std::hypot(Ecart(run[i - 1].X, run[i].X), Ecart(run[i - 1].Y, run[i].Y));
    }
  }
  [[nodiscard]] double Longueur() const { return parcouru_.empty() ? 0 : parcouru_.back(); }
  // Lengths at which the path turns by more than this, its two ends among them.
  [[nodiscard]] std::vector<double> Tournants(double angle) const {
    std::vector<double> ou{0};
    std::optional<double> avant;
    for (std::size_t i = 1; i < run_.size(); ++i) {
      const double dx = Ecart(run_[i - 1].X, run_[i].X);
      const double dy = Ecart(run_[i - 1].Y, run_[i].Y);
      if (dx == 0 && dy == 0) continue;
      const double sens = std::atan2(dy, dx);
      if (avant && std::abs(std::remainder(sens - *avant, 2 * Pi)) > angle) ou.push_back(parcouru_[i - 1]);
      avant = sens;
    }
    ou.push_back(Longueur());
    return ou;
  }
  [[nodiscard]] std::vector<double> Attaches() const {
    std::vector<double> ou;
    for (std::size_t i = 0; i < run_.size(); ++i) {
      if (run_[i].Cde == CodePC) ou.push_back(parcouru_[i]);
    }
    return ou;
  }
  [[nodiscard]] PlaceAttache A(double s) const {
    const auto it = std::upper_bound(parcouru_.begin() + 1, parcouru_.end() - 1, s);
    const auto fin = base::Indice(it - parcouru_.begin());
    const double longueur = parcouru_[fin] - parcouru_[fin - 1];
    const double t = longueur > 0 ? (s - parcouru_[fin - 1]) / longueur : 0;
    const PointTrace& a = run_[fin - 1];
    const PointTrace& b = run_[fin];
    PlaceAttache place{fin, a, s};
    place.point.X = EnFloat(a.X + t * Ecart(a.X, b.X));
    place.point.Y = EnFloat(a.Y + t * Ecart(a.Y, b.Y));
    place.point.Cde = CodePC;
    return place;
  }

 private:
  std::span<const PointTrace> run_;
  std::vector<double> parcouru_;
};

// Whether `s` keeps this distance from all of the sorted lengths.
bool Loin(const std::vector<double>& lieux, double s, double distance) {
  const auto apres = std::lower_bound(lieux.begin(), lieux.end(), s);
  if (apres != lieux.end() && *apres - s < distance) return false;
  return apres == lieux.begin() || s - *(apres - 1) >= distance;
}

}  // namespace

std::vector<PlaceAttache> PlacesAttaches(std::span<const PointTrace> run, const VoeuAttaches& voeu, double rayon) {
  std::vector<PlaceAttache> places;
  if (run.size() < 2 || !(rayon > 0)) return places;
  const Parcours parcours(run);
  const double longueur = parcours.Longueur();
  if (!std::isfinite(longueur) || longueur < 2 * rayon) return places;
  const double voulues = voeu.nombre > 0 ? voeu.nombre : voeu.pas > 0 ? std::floor(longueur / voeu.pas) : 0;
  const auto nombre = static_cast<int>(std::clamp(voulues, 1.0, longueur / (2 * rayon)));
  if (voeu.nombre <= 0 && !(voeu.pas > 0)) return places;
  const std::vector<double> coins = parcours.Tournants(CoinRadians);
  const std::vector<double> courbes = parcours.Tournants(DroitRadians);
  std::vector<double> prises = parcours.Attaches();
  const double pas = std::max(rayon / 4, longueur / PasMax);
  const auto libre = [&](double s) { return Loin(coins, s, rayon) && Loin(prises, s, 2 * rayon); };
  // Outward from the ideal place, as far as half the way to the next one.
  const auto cherche = [&](double ideal, bool droit) -> std::optional<double> {
    const auto pasDeCote = static_cast<long>(longueur / nombre / 2 / pas);
    for (long k = 0; k <= pasDeCote; ++k) {
      const double d = static_cast<double>(k) * pas;
      for (const double s : {ideal + d, ideal - d}) {
        if (s > 0 && s < longueur && libre(s) && (!droit || Loin(courbes, s, rayon))) return s;
      }
    }
    return std::nullopt;
  };
  for (int k = 0; k < nombre; ++k) {
    const double ideal = (k + 0.5) * longueur / nombre;
    auto s = cherche(ideal, true);
    if (!s) s = cherche(ideal, false);
    if (!s) continue;
    prises.insert(std::lower_bound(prises.begin(), prises.end(), *s), *s);
    places.push_back(parcours.A(*s));
  }
  std::sort(places.begin(), places.end(),
            [](const PlaceAttache& a, const PlaceAttache& b) { return a.parcouru < b.parcouru; });
  return places;
}

}  // namespace ovelin
