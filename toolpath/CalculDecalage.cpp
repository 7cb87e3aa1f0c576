// The traces of the document in force: shells around the kernel of the traces.
#include <utility>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NoyauTrace.h"

namespace ovelin {

namespace {

ParametresTrace Parametres() { return ParametresTraceDe(Regl, Prolongement != Faux); }

}  // namespace

void CalculDecalage(Code2 code) {
  const std::int32_t premier = code == CodeAucun ? -1 : IndexSequence(code);
  if (premier < 0) return;
  ProprietesSequence proprietes;
  LitSequence(code, proprietes);
  const Etendue run = EtendueDepuis(TraceInitial, static_cast<std::size_t>(premier));
  auto trace = CalculeTrace(PointsDe(std::as_const(TraceInitial), run), code, proprietes, Parametres());
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

bool RecalculDecalages() {
  if (TraceInitial.empty()) return false;
  const std::vector<Code2> codes = ListeCodes();
  TraceDecale.clear();
  {
    Avancement avancement(Traduire(SectionFenetre, "lib102"), static_cast<long>(codes.size()));
    if (CalculeTraces(Doc, codes, Parametres(), TraceDecale, [&] { avancement.Plus(); })) EffaceStatut();
  }
  Svc.LaisseEvenements(Evenements::Affichage);
  NumeroteTraces(TraceDecale);
  return true;
}

double RayonEncoche() { return RayonEncocheDe(Regl); }

void PoseEncoches(std::vector<PointTrace>& points) { OuvreEncoches(points, RayonEncoche()); }

}  // namespace ovelin
