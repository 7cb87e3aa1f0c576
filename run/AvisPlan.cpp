#include "run/AvisPlan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "machine/TableCourante.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Fraisage";
constexpr double RayonMax = 50;  // mm, of a tool that such a machine can turn

std::string Mm(double v) { return Formate(v, "0.0##") + " mm"; }

std::string Origine() {
  if (Regl.HautDegSaisie) return Traduire(Section, "HautDeg_champ");
  switch (OrigineDe("HautDeg")) {
    case OrigineCle::Surcharge:
      return "--set";
    case OrigineCle::Projet:
      return Traduire(Section, "HautDeg_projet") + " " + FichierCourant;
    default:
      return Traduire(Section, "HautDeg_reglages") + " " + CheminIni();
  }
}

// Greatest depth of the milled paths, and of those with a notch.
struct Fonds {
  double tous = 0, attaches = 0;  // mm, positive
};

Fonds FondsDuTrajet() {
  const IndexCodes index(Doc);
  Fonds f;
  for (const SequenceDecalee& trace : TraceDecale) {
    const ProprietesSequence p = ProprietesDe(Sequences, index, trace.Seq);
    if (p.Fraiser == Faux || trace.Points.empty()) continue;
    f.tous = std::max(f.tous, -p.Profondeur);
    const bool encoche =
        std::any_of(trace.Points.begin(), trace.Points.end(), [](const PointTrace& q) { return q.Cde == CodePE; });
    if (encoche) f.attaches = std::max(f.attaches, -p.Profondeur);
  }
  return f;
}

// The shortest milled path with an attachment point, mm.
double PlusCourteAttachee() {
  const IndexCodes index(Doc);
  const std::span<const PointTrace> points = PointsComptes(Doc);
  double courte = std::numeric_limits<double>::infinity();
  for (const Etendue& e : EtenduesDe(points)) {
    if (ProprietesDe(Sequences, index, e.code).Fraiser == Faux) continue;
    double longueur = 0;
    bool attache = false;
    for (std::size_t i = e.premier; i < e.Fin(); ++i) {
      attache = attache || points[i].Cde == CodePC;
      if (i > e.premier) longueur += DistancePoints(points[i - 1], points[i]);
    }
    if (attache) courte = std::min(courte, longueur);
  }
  return courte;
}

}  // namespace

RefusPlan VerifieHautDeg() {
  RefusPlan refus;
  if (HautDeg > 0) return refus;
  refus.section = Section;
  refus.cle = "HautDeg_nul";
  refus.texte = Traduire(Section, refus.cle) + "\nHautDeg = " + TexteNombre(HautDeg) + " (" + Origine() + ")";
  return refus;
}

std::vector<AvisPlan> AvisDuPlan() {
  std::vector<AvisPlan> avis;
  const auto dit = [&avis](const char* cle, const std::string& figure) {
    avis.push_back({cle, Traduire(Section, cle) + " " + figure});
  };
  const Fonds fonds = FondsDuTrajet();
  // As the presets have it: a bridge as high as the cut is deep holds whatever the thickness of the sheet.
  if (fonds.attaches > 0 && MiniEncoche <= 0) dit("Avis_attaches", Mm(fonds.attaches));
  const double libre = static_cast<double>(CourseZ) - static_cast<double>(HautDeg);
  if (fonds.tous > libre) dit("Avis_profondeur", Mm(fonds.tous) + " > " + Mm(libre));
  const double courte = PlusCourteAttachee();
  if (LargeurEncoche > courte) dit("Avis_encoche", Mm(LargeurEncoche) + " > " + Mm(courte));
  if (RayonFraise > RayonMax) dit("Avis_rayon", Mm(RayonFraise));
  return avis;
}

}  // namespace ovelin
