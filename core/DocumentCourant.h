// The one document in force, and its members under their own names. For shells alone: a kernel takes the arrays
// that it works on as values and never includes this.
#pragma once

#include "core/Document.h"

namespace ovelin {

extern Document Doc;

inline constinit auto& TraceInitial = Doc.TraceInitial;
inline constinit auto& NbPoints = Doc.NbPoints;
inline constinit auto& Sequences = Doc.Sequences;
inline constinit auto& Complements = Doc.Complements;
inline constinit auto& TraceDecale = Doc.TraceDecale;
inline constinit auto& Xmin = Doc.Xmin;
inline constinit auto& Xmax = Doc.Xmax;
inline constinit auto& Ymin = Doc.Ymin;
inline constinit auto& Ymax = Doc.Ymax;
inline constinit auto& FichierCourant = Doc.FichierCourant;
inline constinit auto& ExtensionCourante = Doc.ExtensionCourante;
inline constinit auto& FichierProjet = Doc.FichierProjet;
inline constinit auto& Modifie = Doc.Modifie;
inline constinit auto& Instantane = Doc.Instantane;
inline constinit auto& FichierInstantane = Doc.FichierInstantane;
inline constinit auto& SeqCourante = Doc.SeqCourante;
inline constinit auto& PointCourantX = Doc.PointCourantX;
inline constinit auto& PointCourantY = Doc.PointCourantY;
inline constinit auto& OrigineX = Doc.OrigineX;
inline constinit auto& OrigineY = Doc.OrigineY;
inline constinit auto& Prolongement = Doc.Prolongement;

}  // namespace ovelin
