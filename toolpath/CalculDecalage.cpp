// The traces of the document in force: shells around the kernel of the traces.
#include "toolpath/CalculDecalage.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Ilots.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NoyauTrace.h"

namespace ovelin {

namespace {

ParametresTrace Parametres() { return ParametresTraceDe(Regl, Prolongement != Faux); }

Ilots IlotsEnVigueur() { return {Doc, VidePoches(Parametres())}; }

// One of these paths failed, or is too short to be offset: the table isn't what computing all would make of it. An
// island has no trace and wants none.
bool TraceManque(const std::vector<Code2>& codes) {
  const Ilots ilots = IlotsEnVigueur();
  std::unordered_set<std::uint32_t> demandes;
  for (const Code2 code : codes) {
    if (!ilots.Debout(code)) demandes.insert(code.Cle());
  }
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

// With these paths, those whose trace their change may reach: where one is an island or a pocket, all that are.
std::vector<Code2> AvecIlots(std::vector<Code2> codes) {
  if (!AIlots(Complements)) return codes;
  const std::vector<Code2> autres = CodesDesIlots(Doc);
  std::unordered_set<std::uint32_t> lies;
  for (const Code2 code : autres) lies.insert(code.Cle());
  if (std::none_of(codes.begin(), codes.end(), [&](Code2 c) { return lies.contains(c.Cle()); })) return codes;
  for (const Code2 code : codes) lies.erase(code.Cle());
  for (const Code2 code : autres) {
    if (lies.erase(code.Cle()) != 0) codes.push_back(code);
  }
  return codes;
}

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
  const std::vector<Code2> codes = AvecIlots({code});
  if (codes.size() > 1) {
    RefaitDecalages(codes);
    return;
  }
  CalculDecalage(code);
  if (TraceManque(codes)) RecalculDecalages();
}

void RefaitDecalages(const std::vector<Code2>& codes) {
  const std::vector<Code2> tous = AvecIlots(codes);
  CalculDecalages(tous);
  if (TraceManque(tous)) RecalculDecalages();
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
