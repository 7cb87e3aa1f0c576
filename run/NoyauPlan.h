// The kernel of the planner: values in, rows out. It reads no document and no settings, only the clock by which
// painting goes on; the procedures of Module_Planificateur.h are short shells around it. Lengths mm, speeds mm/s,
// Z 0 at the surface and negative downward.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/Document.h"
#include "core/Reglages.h"
#include "core/TableDecoupe.h"
#include "core/Types.h"
#include "machine/TableMachine.h"

namespace ovelin {

// What a plan depends on beside the paths.
struct ParametresPlan {
  float HautDeg = 10;                           // clearance height above the surface, mm
  double ProfPasse = -1;                        // depth of a pass, mm, negative
  double MiniEncoche = 0;                       // height of the bridge of a notch above the bottom, mm
  double AngleRampe = 0;                        // of the way down along a closed path, degrees; 0: straight
  double Vitesse_Mat_H = 2, Vitesse_Mat_V = 2;  // mm/s in the material
  float VitesseMaxX = 5, VitesseMaxY = 5, VitesseMaxZ = 5;  // mm/s
  double PosX = 0, PosY = 0, PosZ = 0;                      // position of the machine, mm
  double MmParPasX = 1, MmParPasY = 1, MmParPasZ = 1;       // mm per step
};

// Of these settings on this machine; its position and its steps are the caller's.
ParametresPlan ParametresPlanDe(const Reglages& reglages, const TableMachine& table);

// What a record of the tool path is milled with, one for each record.
struct UsinageTrace {
  bool Fraiser = true;
  double Profondeur = 0;  // mm
};

// Depth and flag of each record of the tool path. A code without a record in the table is milled, with depth 0.
std::vector<UsinageTrace> UsinagesDe(const Document& document);

// The rows of a plan from row 1, the start, on.
std::span<const Deplacement> LignesDe(const EtatPlan& plan);
// Its moves: the rows behind the start.
std::span<const Deplacement> LignesMues(const EtatPlan& plan);
std::span<Deplacement> LignesMues(EtatPlan& plan);

// A plan never holds more rows than this: 2 GB of table, about a hundred hours of work on such a machine.
inline constexpr std::int64_t LimiteLignes = 50'000'000;
// No length of a job lies beyond this, mm: far outside every machine, far inside what 32 bits add without overflow.
inline constexpr double LongueurMax = 1e9;

void InitialisePlan(EtatPlan& plan, const ParametresPlan& p);
void PlanAjoute(EtatPlan& plan, const ParametresPlan& p, const PointTrace& depart, const PointTrace& arrivee,
                Drapeau matiere, float v);
// A cut that sinks or rises to height `z`, mm, on its way: no faster than the material allows in the plane, nor its
// vertical part than it allows downward. No row for a move of no length.
void PlanAjouteRampe(EtatPlan& plan, const ParametresPlan& p, const PointTrace& depart, const PointTrace& arrivee,
                     float z);
void PlanAjouteZ(EtatPlan& plan, const ParametresPlan& p, float deltaZ, Drapeau matiere, float v);

// Number of passes from the surface to `profondeur`, or 0 when they never get there: a pass of 0 or more, or one
// that 32 bits can't subtract any longer on the way down.
std::int64_t NombrePasses(double profondeur, double profPasse);

enum class JugementPlan {
  Bon,
  Passe,      // the passes don't reach the depth, or make more rows than LimiteLignes
  Coordonnee  // a point, a depth or a parameter that is no number within LongueurMax
};
struct EstimationPlan {
  JugementPlan jugement = JugementPlan::Bon;
  std::int64_t lignes = 0;  // rows at most, the unused one and the first included
};
// Looks at every path before the first row is made. The cost is one look at each point and one count of passes for
// each different depth. `usinages` is as long as `traces`.
EstimationPlan EstimePlan(const ParametresPlan& p, std::span<const SequenceDecalee> traces,
                          std::span<const UsinageTrace> usinages);

// The whole job. The plan must have been judged good.
void PlanifieTrace(EtatPlan& plan, const ParametresPlan& p, std::span<const SequenceDecalee> traces,
                   std::span<const UsinageTrace> usinages);

// What a set of rows allows. `vx`, `vy` are the speeds of the axes, mm/s. The highest speed along the path at which
// no row drives an axis faster than its own; 1e10 without a move in the plane, 0 when a row moves an axis of speed
// 0.
double VitesseLimite(std::span<const Deplacement> lignes, double vx, double vy);
// A speed beyond such a limit, both in mm/s, by more than what arithmetic leaves of equal ones.
bool Depasse(double vitesse, double limite);

}  // namespace ovelin
