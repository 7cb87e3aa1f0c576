// The planner: the tool path into the table of moves. Lengths mm, speeds mm/s, Z 0 at the surface.
#pragma once

#include <cstdint>
#include <string>

#include "core/Document.h"
#include "core/TableDecoupe.h"

namespace ovelin {

void InitDecoupe();
void AjoutDeplacement(const PointTrace& depart, const PointTrace& arrivee, Drapeau matiere, float v);
void AjoutDeplacementRelatif(float deltaX, float deltaY, Drapeau matiere, float v);
void AjoutDeplacementZ(float deltaZ, Drapeau matiere, float v);

// Why a plan is refused; the table is then not touched. "" when it is good. "95" of "erreurs": a depth of pass of
// 0 or more, or one so small that the passes never reach the depth.
struct RefusPlan {
  std::string section, cle, texte;
  explicit operator bool() const { return !cle.empty(); }
};
RefusPlan VerifiePlan();
// Fills the table for the whole drawing. False when refused (the message has been shown) or when there is no trace.
bool Tableau_Decoupe();

// Highest path speed without a ramp on any row, and without clipping on any row, mm/s. 1e10 without a move.
void Vitesse_Decoupe_H(double& vSansRampe, double& vMax, std::int16_t& reserve);
// Adds the plane distance to `longueur`; distance / v, 0 for a zero distance or a zero speed.
double CalculDeplac(double x1, double x2, double y1, double y2, double v, double& longueur);

}  // namespace ovelin
