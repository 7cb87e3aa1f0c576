#include "run/AvisPlan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "machine/TableCourante.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

constexpr double RayonMax = 50;  // mm, of a tool that such a machine can turn

std::string Mm(double v) { return Formate(v, "0.0##") + " mm"; }

std::string Origine() {
  if (Regl.HautDegSaisie) return Traduire(Textes::HautDegDuChamp);
  switch (OrigineDe(cles::HautDeg)) {
    case OrigineCle::Surcharge:
      return "--set";
    case OrigineCle::Projet:
      return Traduire(Textes::HautDegDuProjet) + " " + FichierCourant;
    default:
      return Traduire(Textes::HautDegDesReglages) + " " + CheminIni();
  }
}

// Greatest depth of the milled paths, and of those with a notch; whether there is a pocket among them.
struct Fonds {
  double tous = 0, attaches = 0;  // mm, positive
  bool poche = false;
};

// What the overlap in force makes of a pocket, where it is none.
std::optional<CleTexte> AvisPoche() {
  if (PCPoche < 0) return Textes::PocheNegative;
  if (PCPoche == 100) return Textes::PocheEntiere;
  if (PCPoche > 100) return Textes::PocheExcessive;
  return std::nullopt;
}

Fonds FondsDuTrajet() {
  const IndexCodes index(Doc);
  Fonds f;
  for (const SequenceDecalee& trace : TraceDecale) {
    const ProprietesSequence p = ProprietesDe(Sequences, index, trace.Seq);
    if (p.Fraiser == Faux || trace.Points.empty()) continue;
    f.tous = std::max(f.tous, -p.Profondeur);
    f.poche = f.poche || p.Poche != Faux;
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

std::optional<RefusPlan> VerifieHautDeg() {
  if (HautDeg > 0) return std::nullopt;
  return RefusPlan{Textes::HautDegNul, "\nHautDeg = " + TexteNombre(HautDeg) + " (" + Origine() + ")"};
}

std::vector<AvisPlan> AvisDuPlan() {
  std::vector<AvisPlan> avis;
  const auto dit = [&avis](CleTexte texte, const std::string& figure, Remede remede = {}) {
    avis.push_back({std::string(texte.Cle()), Traduire(texte) + " " + figure, std::move(remede)});
  };
  const Fonds fonds = FondsDuTrajet();
  // As the presets have it: a bridge as high as the cut is deep holds whatever the thickness of the sheet.
  if (fonds.attaches > 0 && MiniEncoche <= 0) {
    dit(Textes::AvisAttaches, Mm(fonds.attaches), {SorteRemede::Pont, TexteNombre(fonds.attaches)});
  }
  const double libre = double{CourseZ} - HautDeg;
  if (fonds.tous > libre) {
    // In hundredths, and never deeper than the travel. Where the clearance alone takes it up the depth is not to
    // blame.
    const double fond = std::floor(libre * 100) / 100;
    const Remede remede = fond > 0 ? Remede{SorteRemede::Profondeur, TexteNombre(-fond)} : Remede{};
    dit(Textes::AvisProfondeur, Mm(fonds.tous) + " > " + Mm(libre), remede);
  }
  const double courte = PlusCourteAttachee();
  if (LargeurEncoche > courte) {
    // Most of the shortest path is to be cut: a quarter of it, in tenths.
    const double quart = std::floor(courte / 4 * 10) / 10;
    const Remede remede = quart > 0 ? Remede{SorteRemede::Encoche, TexteNombre(quart)} : Remede{};
    dit(Textes::AvisEncoche, Mm(LargeurEncoche) + " > " + Mm(courte), remede);
  }
  if (const auto poche = AvisPoche(); poche && fonds.poche) {
    dit(*poche, "PCPoche = " + std::to_string(PCPoche),
        {SorteRemede::Recouvrement, TexteNombre(long{Reglages{}.PCPoche})});
  }
  if (RayonFraise > RayonMax) dit(Textes::AvisRayon, Mm(RayonFraise), {SorteRemede::Rayon, ""});
  return avis;
}

}  // namespace ovelin
