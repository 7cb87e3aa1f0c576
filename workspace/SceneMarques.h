// Single marks and texts behind what a scene holds. Inside of Module_Scene.
#pragma once

#include <string>

#include "workspace/Module_Scene.h"

namespace ovelin {

TailleTexte Mesure(const OptionsScene& options, const std::string& texte);

// Wing, tip, wing: an arrow of this length (twips) whose tip lies at `pointe`, along (dx, dy) of length 1.
void Fleche(const PointEcran& pointe, float dx, float dy, float longueur, PointEcran (&coins)[3]);

void AjouteTexte(Scene& scene, Element element, std::int32_t couleur, const PointEcran& place, Ancre ancre,
                 const std::string& texte);
void AjouteDisque(Scene& scene, Element element, std::int32_t couleur, std::int32_t fond, const PointEcran& centre,
                  float rayon);
void AjouteSegment(Scene& scene, Element element, std::int32_t couleur, const PointEcran& a, const PointEcran& b);

}  // namespace ovelin
