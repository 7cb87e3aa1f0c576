#include "toolpath/NettoieChemin.h"

#include <algorithm>

#include "base/Equipe.h"
#include "base/Indices.h"
#include "core/Cadence.h"
#include "core/Coeurs.h"
#include "core/Services.h"
#include "toolpath/chemins/Etendues.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

namespace {

constexpr std::size_t SeuilFond = 20000;    // points from which a path is worth a thread: some ten milliseconds
constexpr std::size_t SeuilEquipe = 8000;   // of a drawing from which its paths are worth more than one
constexpr std::size_t PointsParLot = 4000;  // of paths that are cleaned together

// The first path of each lot, and the number of paths.
std::vector<std::size_t> Lots(std::span<const Etendue> chemins) {
  std::vector<std::size_t> lots;
  std::size_t points = PointsParLot;
  for (std::size_t k = 0; k < chemins.size(); ++k) {
    if (points >= PointsParLot) {
      lots.push_back(k);
      points = 0;
    }
    points += chemins[k].nombre;
  }
  lots.push_back(chemins.size());
  return lots;
}

}  // namespace

void NettoieChemin(std::vector<PointTrace>& chemin, float resolution) {
  if (chemin.empty()) return;
  std::vector<PointTrace> tampon = chemin;
  const std::int32_t m = Biblio.NettoyageFichier(tampon, resolution);
  // At least one point of a path stays; anything else is no answer, and the path stays as it is.
  if (m < 1 || base::Indice(m) > std::min(chemin.size(), tampon.size())) return;
  tampon.resize(base::Indice(m));
  for (PointTrace& p : tampon) p.Seq = chemin.front().Seq;
  chemin.swap(tampon);
}

std::vector<PointTrace> NettoiePoints(std::span<const PointTrace> points, float resolution) {
  std::vector<PointTrace> nettoyes;
  nettoyes.reserve(points.size());
  Respiration respiration;
  const std::vector<Etendue> chemins = EtenduesDe(points);
  if (NombreCoeurs < 2 || chemins.size() < 2 || points.size() < SeuilEquipe) {
    for (const Etendue& e : chemins) {
      respiration.Laisse();
      std::vector<PointTrace> chemin = CopieDe(points, e);
      TravailleSi(chemin.size() >= SeuilFond, [&] { NettoieChemin(chemin, resolution); });
      nettoyes.insert(nettoyes.end(), chemin.begin(), chemin.end());
    }
    return nettoyes;
  }
  const std::vector<std::size_t> lots = Lots(chemins);
  std::vector<std::vector<PointTrace>> issues(lots.size() - 1);
  const auto nettoieLot = [&](std::size_t i) {
    for (std::size_t k = lots[i]; k < lots[i + 1]; ++k) {
      std::vector<PointTrace> chemin = CopieDe(points, chemins[k]);
      NettoieChemin(chemin, resolution);
      issues[i].insert(issues[i].end(), chemin.begin(), chemin.end());
    }
  };
  base::Equipe equipe(NombreCoeurs, issues.size(), nettoieLot, std::size_t{4} * NombreCoeurs);
  for (std::size_t i = 0; i < issues.size(); ++i) {
    respiration.Laisse();
    if (!equipe.Fait(i)) TravailleSi(true, [&] { equipe.Attend(i); });
    equipe.Attend(i);
    nettoyes.insert(nettoyes.end(), issues[i].begin(), issues[i].end());
    std::vector<PointTrace>().swap(issues[i]);
  }
  return nettoyes;
}

}  // namespace ovelin
