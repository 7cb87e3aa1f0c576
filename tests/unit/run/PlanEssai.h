// Tool paths by hand, and the planned rows in a form that reads like a list.
#pragma once

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "controller/ClsCdeZENIK.h"
#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/Module_Planificateur.h"
#include "tests/support/Support.h"

namespace essai {

using namespace ovelin;

// A point of a path with its kind: "PD", "PE", "PC".
struct PointEssai {
  float x = 0, y = 0;
  std::string cde = "PD";
};

// A piece of tool path; with the first piece of a code comes its record in the table of sequences.
inline void AjouteTrajet(const std::string& code, double profondeur, const std::vector<PointEssai>& points,
                         bool fraiser = true) {
  SequenceDecalee trace;
  trace.Seq = Code2(code);
  for (const auto& p : points) trace.Points.push_back({p.x, p.y, Code2(p.cde), Code2("01")});
  TraceDecale.push_back(trace);
  if (Sequences.size() == 1 && Sequences[0].Code == Code2{}) Sequences.clear();
  for (const auto& s : Sequences) {
    if (s.Code == trace.Seq) return;
  }
  SequenceInfo fiche;
  fiche.Code = trace.Seq;
  fiche.Profondeur = profondeur;
  fiche.Fraiser = EnDrapeau(fraiser);
  Sequences.push_back(fiche);
}

inline const std::vector<PointEssai> Carre{{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}};
inline const std::vector<PointEssai> Ouverte{{0, 0}, {10, 0}, {10, 5}};

// Clearance 5, passes of 2, 3 mm/s in the plane and 1 down; axes of 50, 20 and 8 mm/s; 0.01 mm a step at (0, 0, 0).
inline void ReglagesPlan() {
  HautDeg = 5;
  ProfPasse = -2;
  MiniEncoche = 0;
  Vitesse_Mat_H = 3;
  Vitesse_Mat_V = 1;
  VitesseMaxX = 50;
  VitesseMaxY = 20;
  VitesseMaxZ = 8;
  CdeZENIK->FixeResolutions(0.01, 0.01, 0.01);
}

inline const Deplacement& Ligne(std::int32_t i) { return TableDecoupe.at(static_cast<std::size_t>(i)); }
inline const Deplacement& Derniere() { return Ligne(NbDeplacements); }

// "x y z @v" of a row, three decimals at most, trailing zeros left out.
inline std::string Nombre(float v) {
  std::string t = std::to_string(std::round(static_cast<double>(v) * 1000) / 1000);
  t.erase(t.find_last_not_of('0') + 1);
  if (t.back() == '.') t.pop_back();
  return t == "-0" ? "0" : t;
}
inline std::string Texte(const Deplacement& d) {
  return Nombre(d.X) + " " + Nombre(d.Y) + " " + Nombre(d.Z) + " @" + Nombre(d.Vitesse);
}
using Liste = std::vector<std::string>;

// All rows that move, from the second.
inline Liste ListePlan() {
  Liste t;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) t.push_back(Texte(Ligne(i)));
  return t;
}
// The rows of the plan that is made now.
inline Liste Planifie() {
  EXPECT_TRUE(Tableau_Decoupe());
  return ListePlan();
}
// The heights of the plunges: rows that go down in Z alone at `v`.
inline std::vector<float> Plongees(float v) {
  std::vector<float> z;
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    const Deplacement& d = Ligne(i);
    const Deplacement& avant = Ligne(i - 1);
    if (d.X == avant.X && d.Y == avant.Y && d.Z < avant.Z && d.Vitesse == v) z.push_back(d.Z);
  }
  return z;
}

}  // namespace essai
