// Transforms of the drawing and of single points, mm and radians. Those that give a value are false when refused:
// a coordinate would become no number or lie beyond CoordonneeMax (CoordonneeHorsLimites), or the user has taken
// the change back while its traces were computed (PasseTraces); the document is then unchanged.
#pragma once

#include <cstdint>
#include <vector>

#include "core/Document.h"
#include "core/Gestes.h"

namespace ovelin {

inline constexpr double CoordonneeMax = 1e7;  // mm, as for the readers

// Of the selection. The traces follow the rotation; those of a scaling or a mirror are the caller's.
bool TourneSelection(double angle, const PointTrace& centre);
// Both as commands, in one change: the selected traces follow, the document is marked as modified, lists and
// picture follow.
bool TourneSelectionEtTraces(double angle, const PointTrace& centre);
bool MiroirSelectionEtTraces(AxeMiroir axe);
bool EchelleSelection(float facteurX, float facteurY);
bool MiroirSelection(AxeMiroir axe);  // X: left and right exchanged; Y: top and bottom. The points are reversed
// The common step behind every move: moves (1: X, 3: Y; 0: nothing), recomputes the selected traces, marks the
// document as modified.
bool Deplacement_Selection(Direction direction, float distance);
// Both ways at once, as a drag of the mouse goes, in one such step.
bool Deplacement_Libre(float dx, float dy);
// CB_OK_Dimension: ratios of the selection, refused when one is 0 (RapportNul) or the result lies beyond the travel
// (DimensionHorsCourse). `proportions`: the first ratio serves both axes.
bool Dimensionne_Selection(double rapportX, double rapportY, bool proportions);
// CB_OKRecalage: the whole drawing moves so that the corner of the selection's box comes to (x, y); without a
// selection, that of the drawing's.
bool Recale(double x, double y);
// The whole drawing moves so that drawing and tool path lie in the corner of the travel, with the margin of an
// opening where that is enough. False: a coordinate would lie beyond all bounds, and nothing has moved.
bool PlaceAuCoin();
// Travel of the machine table in force, mm, with the defaults of the dimension fields (600, 400).
float LimiteCourseX();
float LimiteCourseY();

// CB_Origine: the marked position becomes (0, 0) of the drawing. The caller moves the machine's positions by the
// same amounts, -OrigineX and -OrigineY, taken before the call.
bool PlaceOrigine();
// CB_PositionOK: a point of the drawing at a new place.
bool ChangePosition(std::int32_t index, float x, float y);
// CB_Supprimer_Point: these points leave the drawing. False: answered No (SupprimePoints), none of them is there,
// or taken back.
bool SupprimePoints(const std::vector<std::int32_t>& index);

}  // namespace ovelin
