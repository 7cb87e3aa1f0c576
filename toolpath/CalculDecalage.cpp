// The traces of the document in force: shells around the kernel of the traces.
#include "toolpath/CalculDecalage.h"

#include <span>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Ilots.h"
#include "toolpath/traces/NoyauPasse.h"
#include "toolpath/traces/NoyauTrace.h"

namespace ovelin {

namespace {

ParametresTrace Parametres() { return ParametresTraceDe(Regl, Prolongement != Faux); }

Ilots IlotsEnVigueur() { return {Doc, VidePoches(Parametres())}; }

}  // namespace

void CalculDecalage(Code2 code) {
  const std::int32_t premier = code == CodeAucun ? -1 : IndexSequence(code);
  if (premier < 0) return;
  ProprietesSequence proprietes;
  LitSequence(code, proprietes);
  const Etendue run = EtendueDepuis(TraceInitial, base::Indice(premier));
  auto trace = CalculeTrace(PointsDe(std::as_const(TraceInitial), run), code, proprietes, Parametres(),
                            IlotsEnVigueur().De(code));
  if (!trace) return;
  const bool reussie = trace->reussie;
  PoseTrace(TraceDecale, code, std::move(*trace));
  if (reussie) EffaceStatut();
}

void CalculDecalages(const std::vector<Code2>& codes) {
  if (codes.empty()) return;
  Respiration respiration;
  if (CalculeTraces(Doc, codes, Parametres(), TraceDecale, [&] { respiration.Laisse(); })) EffaceStatut();
}

void RefaitDecalage(Code2 code) {
  const std::vector<Code2> codes = AvecIlots(Doc, {code});
  if (codes.size() > 1) {
    RefaitDecalages(codes);
    return;
  }
  CalculDecalage(code);
  if (TraceManque(Doc, TraceDecale, codes, Parametres())) RecalculDecalages();
}

void RefaitDecalages(const std::vector<Code2>& codes) {
  const std::vector<Code2> tous = AvecIlots(Doc, codes);
  CalculDecalages(tous);
  if (TraceManque(Doc, TraceDecale, tous, Parametres())) RecalculDecalages();
}

bool RecalculDecalages() {
  if (TraceInitial.empty()) return false;
  const std::vector<Code2> codes = ListeCodes();
  TraceDecale.clear();
  {
    Avancement avancement(Traduire(Textes::CalculTrajetOutil), std::ssize(codes));
    if (CalculeTraces(Doc, codes, Parametres(), TraceDecale, [&] { avancement.Plus(); })) EffaceStatut();
  }
  Svc.LaisseEvenements(Evenements::Affichage);
  NumeroteTraces(TraceDecale);
  return true;
}

double RayonEncoche() { return RayonEncocheDe(Regl); }

void PoseEncoches(std::vector<PointTrace>& points) { OuvreEncoches(points, RayonEncoche()); }

}  // namespace ovelin
