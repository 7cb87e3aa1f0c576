#include "toolpath/chemins/NoyauOrdre.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_map>

#include "base/Indices.h"
#include "core/Cadence.h"
#include "toolpath/chemins/PointsProches.h"

namespace ovelin {

namespace {

// Runs of each code, in the order of the array: a code may stand in more than one.
using ParCode = std::unordered_map<std::uint32_t, std::vector<Etendue>>;

ParCode Repertoire(const std::vector<Etendue>& etendues) {
  ParCode repertoire;
  for (const Etendue& e : etendues) repertoire[e.code.Cle()].push_back(e);
  return repertoire;
}

// Place of the point of the run that is nearest to `position`; of equals the first. Nothing when none can be
// reached.
std::optional<std::size_t> PointProche(const std::vector<PointTrace>& points, const Etendue& e,
                                       const PointTrace& position) {
  double meilleur = 1e15;
  std::optional<std::size_t> choisi;
  for (std::size_t i = e.premier; i < e.Fin(); ++i) {
    const double d = DistancePoints(position, points[i]);
    if (d < meilleur) {
      meilleur = d;
      choisi = i;
    }
  }
  return choisi;
}

}  // namespace

//     run      A B C D A        start at C:   C D A B C
//              |_______| without the closing copy; it is made anew
bool TourneDepart(std::vector<PointTrace>& points, const Etendue& run, std::size_t choisi) {
  const std::span<PointTrace> siens = PointsDe(points, run);
  if (choisi <= run.premier || choisi >= run.Fin() || !EstFermee(siens)) return false;
  const auto depart = base::Iterateur(siens, choisi - run.premier);
  std::rotate(siens.begin(), depart, std::prev(siens.end()));
  siens.back() = siens.front();
  return true;
}

void ChoisitDeparts(std::vector<PointTrace>& points, const std::function<void()>& tournee) {
  const std::vector<Etendue> etendues = EtenduesDe(points);
  const ParCode repertoire = Repertoire(etendues);
  std::unordered_map<std::uint32_t, PointsProches> partagees;
  PointTrace position;
  Respiration respiration;
  for (const Etendue& e : etendues) {
    respiration.Laisse();
    const std::vector<Etendue>& siennes = repertoire.at(e.code.Cle());
    bool faite = false;
    if (siennes.size() == 1) {
      const auto choisi = PointProche(points, e, position);
      if (!choisi) continue;
      position = points[*choisi];
      faite = TourneDepart(points, e, *choisi);
    } else {
      PointsProches& proches = partagees.try_emplace(e.code.Cle(), points, siennes).first->second;
      const auto choix = proches.Cherche(position);
      if (!choix) continue;
      position = choix->place;
      faite = proches.Tourne(choix->index);
    }
    if (faite) tournee();
  }
  for (const auto& [cle, proches] : partagees) proches.Applique(points);
}

bool EstEncoche(const PointTrace& p) { return p.Cde == CodePE || p.Cde == CodePC; }

bool PorteEncoches(std::span<const PointTrace> points) {
  return std::any_of(points.begin(), points.end(), EstEncoche);
}

void OublieEncoches(std::span<PointTrace> points) {
  for (PointTrace& p : points) {
    if (EstEncoche(p)) p.Cde = CodePD;
  }
}

}  // namespace ovelin
