#include "run/FiguresPlan.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "run/NoyauPlan.h"
#include "toolpath/Etendues.h"

namespace ovelin {

namespace {

void Etend(FiguresPlan& f, const Deplacement& d) {
  const double x = d.X;
  const double y = d.Y;
  if (!f.coupe) {
    f.xmin = f.xmax = x;
    f.ymin = f.ymax = y;
    f.coupe = true;
    return;
  }
  f.xmin = std::min(f.xmin, x);
  f.xmax = std::max(f.xmax, x);
  f.ymin = std::min(f.ymin, y);
  f.ymax = std::max(f.ymax, y);
}

// Where the tool cuts: what it does below the surface, and ways in the plane at it (a pen). The final descent to
// the surface at the origin is none.
void Etend(FiguresPlan& f, const Deplacement& avant, const Deplacement& d) {
  const bool plan = d.X != avant.X || d.Y != avant.Y;
  if (d.Z > 0 || (d.Z == 0 && !plan)) return;
  if (plan) Etend(f, avant);
  Etend(f, d);
}

}  // namespace

FiguresPlan FiguresDe(std::span<const Deplacement> lignes) {
  FiguresPlan f;
  double x = 0;
  double y = 0;
  double z = 0;
  for (std::size_t i = 1; i < lignes.size(); ++i) {
    const Deplacement& d = lignes[i];
    const double ecartX = d.X - x;
    const double ecartY = d.Y - y;
    const double ecartZ = d.Z - z;
    const double distance = std::sqrt(ecartX * ecartX + ecartY * ecartY + ecartZ * ecartZ);
    f.longueur += distance;
    if (d.Z <= 0) f.longueurMatiere += distance;
    if (d.Vitesse != 0) f.temps += distance / d.Vitesse;
    f.fond = std::min<double>(f.fond, d.Z);
    Etend(f, lignes[i - 1], d);
    x = d.X;
    y = d.Y;
    z = d.Z;
    ++f.lignes;
  }
  return f;
}

// Paths that are milled, the passes of the one that takes the most, and paths without a tool path. The records of
// one path follow each other; that of a failed offset stands alone, without points.
CompteUsinage CompteUsinageDe(const Document& document, double profPasse) {
  const IndexCodes index(document);
  std::map<double, std::int64_t> passesParProfondeur;
  CompteUsinage u;
  Code2 precedent = CodeAucun;
  for (const SequenceDecalee& trace : document.TraceDecale) {
    const ProprietesSequence proprietes = ProprietesDe(document.Sequences, index, trace.Seq);
    if (proprietes.Fraiser == Faux) continue;
    if (trace.Points.empty()) {
      ++u.sansTrajet;
      continue;
    }
    if (u.sequences == 0 || !(trace.Seq == precedent)) ++u.sequences;
    precedent = trace.Seq;
    const auto [place, neuve] = passesParProfondeur.try_emplace(proprietes.Profondeur, 0);
    if (neuve) place->second = NombrePasses(proprietes.Profondeur, profPasse);
    u.passes = std::max(u.passes, place->second);
  }
  return u;
}

}  // namespace ovelin
