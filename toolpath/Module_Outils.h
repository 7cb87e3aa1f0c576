// The commands that prepare a drawing: transforms, order, clean-up, smoothing, drag knife, text, export.
#pragma once

#include <cstdint>
#include <string>

#include "core/Document.h"

namespace ovelin {

// Transforms of the selection, mm and radians.
void TourneSelection(double angle, const PointTrace& centre);
void EchelleSelection(float facteurX, float facteurY);
void MiroirSelection(int axe);  // 0: left and right exchanged; otherwise top and bottom
// The common step behind every move: moves, recomputes the selected traces, marks the document as modified.
void Deplacement_Selection(int direction, float distance);
// CB_OK_Dimension: ratios of the selection, refused beyond the travel ("lib001", "lib002").
bool Dimensionne_Selection(double rapportX, double rapportY, bool proportions);
// CB_OKRecalage: the corner of the selection's box to (x, y).
void Recale(double x, double y);
// Travel of the machine table in force, mm, with the defaults of the dimension fields (600, 400).
float LimiteCourseX();
float LimiteCourseY();

// Order
bool mnu_Optimisation_Click();      // false when the loss of attachment points was refused
bool ChangeOrdre(int sens);         // CB_Ordre: 0 towards the start, 1 towards the end; false: beep
bool ChangeDepart(std::int32_t index);  // CB_Depart: that point becomes the start; false: open path ("lib370")
void InverseSelectionnees();        // CB_Inversion

// Clean-up and smoothing
void NettoieTout(float resolution);  // mm
bool mnu_Nettoyage_Click(float resolution);  // 0: nothing is done
bool LisseSequence(Code2 code);      // false: fewer points came back; nothing is changed
void LisseSelection();               // CB_Lissage

// Drag knife
void ChoixDepart(int index);         // 0 to 7, the arrow
void RegleProlongement(bool actif);  // Option1 / CB_Prolongement

// Text: adds the outlines as new paths. False: the message has been shown, the drawing is untouched.
bool GenereTexte(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style);

// Export (Btn_Gener_Fichier). `source` 0: the drawing, 1: the tool path. The path has been chosen. False: refused,
// cancelled or failed (the message has been shown).
bool Exporte(const std::string& chemin, int source);

}  // namespace ovelin
