// The planner: the tool path into the table of moves. Lengths mm, speeds mm/s, Z 0 at the surface.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/Document.h"
#include "core/TableDecoupe.h"
#include "core/Traduction.h"

namespace ovelin {

// Begins a table: row 1 is the machine's position in mm, the carries are zero.
void InitDecoupe();
// One row in the plane, or none for a move of no length. `v` in mm/s, limited to the axes; 0 lets the planner
// choose: Vitesse_Mat_H as typed in the material, otherwise a rapid as fast as the slower axis lets it. Steps come
// from the running total, which strays from the path by an eighth of a step at most: the tool is never further off
// than five eighths of one, however many rows there are. Without a table yet, one is begun.
void AjoutDeplacement(const PointTrace& depart, const PointTrace& arrivee, Drapeau matiere, float v);
// The same from the last row's X and Y, by deltas in mm.
void AjoutDeplacementRelatif(float deltaX, float deltaY, Drapeau matiere, float v);
// One row in Z alone, also for 0 mm. `v` 0: VitesseMaxZ, or Vitesse_Mat_V in the material.
void AjoutDeplacementZ(float deltaZ, Drapeau matiere, float v);

// Why a plan is refused; the table is then not touched. Nothing when it is good. PasseSansFin: a depth of pass
// of 0 or more, one so small that the passes never reach the depth of a milled path, or more rows than LimiteLignes
// (NoyauPlan.h). PlanSansMesure: a coordinate, height or depth that is no number within LongueurMax.
std::optional<CleTexte> VerifiePlan();
// Fills the table for the whole drawing. False when refused (the message has been shown) or when there is no trace.
bool Tableau_Decoupe();

// Highest path speed without a ramp on any row, and without clipping on any row, mm/s. 1e10 without a move.
void Vitesse_Decoupe_H(double& vSansRampe, double& vMax, std::int16_t& reserve);
// Adds the plane distance to `longueur`; distance / v, 0 for a zero distance or a zero speed.
double CalculDeplac(double x1, double x2, double y1, double y2, double v, double& longueur);

}  // namespace ovelin
