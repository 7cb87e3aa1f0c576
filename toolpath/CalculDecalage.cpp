// One path of the drawing into its trace, and the table of all traces.
#include <algorithm>
#include <cstdio>
#include <optional>
#include <unordered_set>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "toolpath/Bibliotheque.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Encoches.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Vinyl.h"
#include "toolpath/TableTraces.h"

namespace ovelin {

namespace {

constexpr float ToleranceDecalage = 0.01F;         // mm
constexpr std::int32_t RecouvrementContour = 100;  // asks for the single offset curve
constexpr std::int16_t DecalageSurLigne = 2;

bool EstPercage(const std::vector<PointTrace>& points) {
  return points.size() == 2 && pathwerk::MemePlace(points[0], points[1]);
}

// Pieces are runs of equal `Seq`; each becomes an entry of the path.
std::vector<SequenceDecalee> Morceaux(Code2 code, const std::vector<PointTrace>& points) {
  std::vector<SequenceDecalee> entrees;
  for (auto debut = points.begin(); debut != points.end();) {
    const auto fin = std::find_if(debut, points.end(), [&](const PointTrace& p) { return p.Seq != debut->Seq; });
    entrees.push_back({code, {debut, fin}});
    debut = fin;
  }
  return entrees;
}

// What a trace depends on beside its points.
struct Reglage {
  std::int16_t decalage = 1;  // side
  bool poche = false;
  float rayon = 0;                // mm
  std::int32_t recouvrement = 0;  // of pockets, per cent
  double encoche = 0;             // radius of a notch, mm
  bool prolongement = false;
};

// The kernel: the points of a path of two points at least become its trace.
TraceCalculee Trace(Code2 code, std::vector<PointTrace>& points, const Reglage& r) {
  TraceCalculee trace;
  if (!EstPercage(points)) {
    if (r.decalage != DecalageSurLigne) {
      trace.reussie = Biblio.DecalSequence(points, ToleranceDecalage, r.decalage == 1 ? r.rayon : -r.rayon,
                                           r.poche ? r.recouvrement : RecouvrementContour) != 0;
    }
    // Also behind a failure, on whatever came back.
    OuvreEncoches(points, r.encoche);
  }
  if (!trace.reussie) {
    trace.entrees.push_back({code, {}});
    return trace;
  }
  trace.entrees = Morceaux(code, points);
  if (r.prolongement) {
    for (SequenceDecalee& d : trace.entrees) ProlongePoints(d.Points);
  }
  return trace;
}

// Points from which a path is worth a thread: below, its trace is there in some milliseconds. A pocket makes many
// rings out of few points.
constexpr std::int32_t SeuilFond = 4000;
constexpr std::int32_t SeuilFondPoche = 200;

// The trace of the path that begins at `premier`. Nothing when the path is too short to have one.
std::optional<TraceCalculee> Trace(Code2 code, std::int32_t premier, const ProprietesSequence& p) {
  const std::int32_t n = NbPointsSequence(premier);
  if (n < 2) return std::nullopt;
  std::vector<PointTrace> points(TraceInitial.begin() + premier, TraceInitial.begin() + premier + n);
  const Reglage reglage{p.Decalage, p.Poche != Faux, EnFloat(RayonFraise),
                        PCPoche,    RayonEncoche(),  Prolongement != Faux};
  TraceCalculee trace;
  TravailleSi(n >= (reglage.poche ? SeuilFondPoche : SeuilFond), [&] { trace = Trace(code, points, reglage); });
  return trace;
}

// What stands on the table behind `codes`, computed in that order. True when one of them came to its end.
//
// A code comes more than once where its points stand in several runs. Its trace is that of its first run every
// time, so it is computed once; the table takes the same outcome in again.
bool Calcule(const std::vector<Code2>& codes, Avancement* avancement) {
  const IndexCodes index;
  TableTraces table(TraceDecale);
  Respiration respiration;
  bool uneReussie = false;
  std::unordered_set<std::uint32_t> calcules;
  for (const Code2 code : codes) {
    if (avancement != nullptr) {
      avancement->Plus();
    } else {
      respiration.Laisse();
    }
    if (code == CodeAucun) continue;
    if (!calcules.insert(code.Cle()).second) {
      table.Repete(code);
      continue;
    }
    ProprietesSequence p;
    LitSequence(index, code, p);
    std::optional<TraceCalculee> trace = Trace(code, index.PremierPoint(code), p);
    if (!trace) continue;
    uneReussie = uneReussie || trace->reussie;
    table.Remplace(code, std::move(*trace));
  }
  TraceDecale = table.Rend(TraceDecale);
  return uneReussie;
}

// Two characters hold the number: from 100 on its first two digits.
Code2 NumeroTrace(long n) {
  char texte[24];
  std::snprintf(texte, sizeof texte, "%02ld", n);
  return Code2(std::string_view(texte).substr(0, 2));
}

}  // namespace

// The entries of the path are replaced where they stand; without any they come last. A failed path leaves one entry
// without points and drops the entries behind it: the procedure ends there.
void CalculDecalage(Code2 code) {
  if (code == CodeAucun) return;
  ProprietesSequence p;
  LitSequence(code, p);
  std::optional<TraceCalculee> trace = Trace(code, IndexSequence(code), p);
  if (!trace) return;
  const auto sien = [&](const SequenceDecalee& d) { return d.Seq == code; };
  const auto debut = std::find_if(TraceDecale.begin(), TraceDecale.end(), sien);
  const auto fin = trace->reussie ? std::find_if_not(debut, TraceDecale.end(), sien) : TraceDecale.end();
  const auto place = TraceDecale.erase(debut, fin);
  TraceDecale.insert(place, std::make_move_iterator(trace->entrees.begin()),
                     std::make_move_iterator(trace->entrees.end()));
  if (trace->reussie) EffaceStatut();
}

void CalculDecalages(const std::vector<Code2>& codes) {
  if (codes.empty()) return;
  if (Calcule(codes, nullptr)) EffaceStatut();
}

bool RecalculDecalages() {
  if (TraceInitial.empty()) return false;
  const std::vector<Code2> codes = ListeCodes();
  TraceDecale.clear();
  {
    Avancement avancement(Traduire(SectionFenetre, "lib102"), static_cast<long>(codes.size()));
    if (Calcule(codes, &avancement)) EffaceStatut();
  }
  Svc.LaisseEvenements(Evenements::Affichage);
  long numero = 0;
  for (SequenceDecalee& d : TraceDecale) {
    if (d.Points.empty()) continue;
    const Code2 seq = NumeroTrace(++numero);
    for (PointTrace& p : d.Points) p.Seq = seq;
  }
  return true;
}

}  // namespace ovelin
