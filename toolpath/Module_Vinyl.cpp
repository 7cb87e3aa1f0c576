#include "toolpath/Module_Vinyl.h"

#include <cmath>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Ordre.h"

namespace ovelin {

namespace {

constexpr double LongueurAmorce = 1.0;  // mm
constexpr double Marge = -1.0;          // mm, Y of the stroke in the margin

// Is `a` a better start than `b` for this arrow? Equal ones are not: the first found stays.
bool Meilleur(int fleche, const PointTrace& a, const PointTrace& b) {
  switch (fleche) {
    case 0:
      return a.Y > b.Y || (a.Y == b.Y && a.X < b.X);
    case 1:
      return a.Y > b.Y || (a.Y == b.Y && a.X > b.X);
    case 2:
      return a.Y < b.Y || (a.Y == b.Y && a.X > b.X);
    case 3:
      return a.Y < b.Y || (a.Y == b.Y && a.X < b.X);
    case 4:
      return a.Y > b.Y;
    case 5:
      return a.X > b.X;
    case 6:
      return a.Y < b.Y;
    default:
      return a.X < b.X;
  }
}

}  // namespace

void ChoixDepart(int index) {
  if (index < 0 || index > 7) return;
  std::vector<Code2> tournees;
  for (const Etendue& e : EtenduesSequences()) {
    std::int32_t choisi = e.premier;
    for (std::int32_t i = e.premier + 1; i < e.premier + e.nombre; ++i) {
      if (Meilleur(index, TraceInitial[static_cast<std::size_t>(i)],
                   TraceInitial[static_cast<std::size_t>(choisi)])) {
        choisi = i;
      }
    }
    if (TourneDepart(e, choisi)) tournees.push_back(e.code);
  }
  if (!tournees.empty()) Statut(SectionFenetre, "lib001");
  CalculDecalages(tournees);
  Statut(SectionFenetre, "lib002");
  Modifie = Vrai;
  Svc.Rafraichit();
}

void RegleProlongement(bool actif) {
  Prolongement = EnDrapeau(actif);
  RecalculDecalages();
  Svc.Rafraichit();
}

// The knife turns into the direction of the cut on a stroke below the drawing, and the cut overlaps at its seam:
//
//            P
//      A ----+---- B             trace   M1 M2 A B ... A P
//      |           |             M1-M2   the way A-P, moved down so that M1 lies at Y = -1
//      +-----------+
//
//      M1 == M2
void ProlongePoints(std::vector<PointTrace>& points) {
  if (points.size() < 2 || !pathwerk::MemePlace(points.front(), points.back())) return;
  const PointTrace a = points.front();
  std::size_t suivant = 1;
  while (suivant < points.size() && pathwerk::MemePlace(points[suivant], a)) ++suivant;
  if (suivant == points.size()) return;
  const PointTrace& b = points[suivant];
  const double dx = static_cast<double>(b.X) - a.X;
  const double dy = static_cast<double>(b.Y) - a.Y;
  const double echelle = LongueurAmorce / std::sqrt(dx * dx + dy * dy);

  PointTrace p = a;
  p.X = static_cast<float>(a.X + dx * echelle);
  p.Y = static_cast<float>(a.Y + dy * echelle);
  p.Cde = CodePD;
  PointTrace m1 = a;
  m1.Y = static_cast<float>(Marge);
  m1.Cde = CodePD;
  PointTrace m2 = p;
  m2.Y = static_cast<float>(static_cast<double>(p.Y) - a.Y + Marge);
  m2.Cde = CodePU;
  points.insert(points.begin(), {m1, m2});
  points.push_back(p);
}

void ProlongeTrace(Code2 code) {
  for (SequenceDecalee& d : TraceDecale) {
    if (d.Seq == code) ProlongePoints(d.Points);
  }
}

}  // namespace ovelin
