#include "toolpath/NettoieChemin.h"

#include <algorithm>

#include "base/Indices.h"
#include "core/Cadence.h"
#include "core/Services.h"
#include "toolpath/chemins/Etendues.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

namespace {

constexpr std::size_t SeuilFond = 20000;  // points from which a path is worth a thread: some ten milliseconds

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
  for (const Etendue& e : EtenduesDe(points)) {
    respiration.Laisse();
    std::vector<PointTrace> chemin = CopieDe(points, e);
    TravailleSi(chemin.size() >= SeuilFond, [&] { NettoieChemin(chemin, resolution); });
    nettoyes.insert(nettoyes.end(), chemin.begin(), chemin.end());
  }
  return nettoyes;
}

}  // namespace ovelin
