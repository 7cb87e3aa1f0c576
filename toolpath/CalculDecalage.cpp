// The traces of the document in force: shells around the kernel of the traces.
#include "toolpath/CalculDecalage.h"

#include <unordered_set>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NoyauTrace.h"

namespace ovelin {

namespace {

ParametresTrace Parametres() { return ParametresTraceDe(Regl, Prolongement != Faux); }

// One of these paths failed, or is too short to be offset: the table isn't what computing all would make of it.
bool TraceManque(const std::vector<Code2>& codes) {
  std::unordered_set<std::uint32_t> demandes;
  for (const Code2 code : codes) demandes.insert(code.Cle());
  demandes.erase(CodeAucun.Cle());
  if (demandes.empty()) return false;
  for (const SequenceDecalee& d : TraceDecale) {
    if (d.Points.empty() && demandes.contains(d.Seq.Cle())) return true;
  }
  for (const Etendue& e : EtenduesSequences()) {
    if (e.nombre >= 2) demandes.erase(e.code.Cle());
  }
  return !demandes.empty();
}

}  // namespace

void CalculDecalage(Code2 code) {
  const std::int32_t premier = code == CodeAucun ? -1 : IndexSequence(code);
  if (premier < 0) return;
  ProprietesSequence proprietes;
  LitSequence(code, proprietes);
  const Etendue run = EtendueDepuis(TraceInitial, base::Indice(premier));
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

void RefaitDecalage(Code2 code) {
  CalculDecalage(code);
  if (TraceManque({code})) RecalculDecalages();
}

void RefaitDecalages(const std::vector<Code2>& codes) {
  CalculDecalages(codes);
  if (TraceManque(codes)) RecalculDecalages();
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
