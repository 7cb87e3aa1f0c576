#include "toolpath/traces/NoyauPasse.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>
#include <utility>

#include "toolpath/chemins/Etendues.h"
#include "toolpath/traces/Ilots.h"

namespace ovelin {

IssueTraces CalculePasse(const TravailTraces& travail, const base::Arret& arret,
                         const std::function<void()>& avance) {
  const base::SousArret sous(&arret);
  IssueTraces issue;
  issue.toutes = travail.toutes;
  const auto calcule = [&](std::span<const Code2> codes) {
    issue.reussie =
        CalculeTraces(travail.document, codes, travail.parametres, issue.traces, avance, OuTracer::SurCeFil);
  };
  const std::vector<Code2> codes = AvecIlots(travail.document, travail.codes);
  const std::vector<Code2> tous = CodesDe(travail.document.TraceInitial);
  calcule(issue.toutes ? tous : codes);
  const bool manque = !arret.Demandee() && TraceManque(travail.document, issue.traces, codes, travail.parametres);
  if (manque && !issue.toutes) {
    issue.toutes = true;
    issue.traces.clear();
    calcule(tous);
  }
  // A path computed once more has the same trace, with what the library has left in its points.
  if (issue.toutes && !arret.Demandee()) {
    NumeroteTraces(issue.traces, manque ? std::span<const Code2>() : std::span(codes));
  }
  issue.entiere = !arret.Demandee();
  return issue;
}

void PoseTraces(std::vector<SequenceDecalee>& traces, IssueTraces&& issue) {
  if (issue.toutes) {
    traces = std::move(issue.traces);
    return;
  }
  TableTraces table(traces);
  for (auto debut = issue.traces.begin(); debut != issue.traces.end();) {
    const Code2 code = debut->Seq;
    const auto fin =
        std::find_if(debut, issue.traces.end(), [code](const SequenceDecalee& d) { return d.Seq != code; });
    table.Remplace(code, {{std::make_move_iterator(debut), std::make_move_iterator(fin)}, true});
    debut = fin;
  }
  traces = table.Rend(traces);
}

void OteTraces(std::vector<SequenceDecalee>& traces, std::span<const Code2> codes) {
  if (codes.empty()) return;
  std::unordered_set<std::uint32_t> partis;
  for (const Code2 code : codes) partis.insert(code.Cle());
  std::erase_if(traces, [&](const SequenceDecalee& d) { return partis.contains(d.Seq.Cle()); });
}

bool TraceManque(const Document& document, std::span<const SequenceDecalee> traces, std::span<const Code2> codes,
                 const ParametresTrace& parametres) {
  const Ilots ilots(document, VidePoches(parametres));
  std::unordered_set<std::uint32_t> demandes;
  for (const Code2 code : codes) {
    if (!ilots.Debout(code)) demandes.insert(code.Cle());
  }
  demandes.erase(CodeAucun.Cle());
  if (demandes.empty()) return false;
  for (const SequenceDecalee& d : traces) {
    if (d.Points.empty() && demandes.contains(d.Seq.Cle())) return true;
  }
  for (const Etendue& e : EtenduesDe(document.TraceInitial)) {
    if (e.nombre >= 2) demandes.erase(e.code.Cle());
  }
  return !demandes.empty();
}

// Bits, since a coordinate that is no number differs from itself.
bool MemeSource(const Document& a, const Document& b) {
  if (a.TraceInitial.size() != b.TraceInitial.size() || a.Prolongement != b.Prolongement) return false;
  const std::size_t octets = a.TraceInitial.size() * sizeof(PointTrace);
  if (octets > 0 && std::memcmp(a.TraceInitial.data(), b.TraceInitial.data(), octets) != 0) return false;
  if (a.Complements != b.Complements) return false;  // islands
  return std::ranges::equal(a.Sequences, b.Sequences, [](const SequenceInfo& x, const SequenceInfo& y) {
    return x.Code == y.Code && x.Poche == y.Poche && x.Decalage == y.Decalage;
  });
}

std::size_t PoidsTraces(const Document& document, std::span<const Code2> codes) {
  constexpr std::size_t PointsParPoche = 20;  // points of an outline that cost as much as one of a pocket
  const IndexCodes index(document);
  const std::span<const PointTrace> points = PointsComptes(document);
  std::size_t poids = 0;
  for (const Code2 code : codes) {
    const auto premier = index.PremierPoint(code);
    if (!premier) continue;
    const std::size_t nombre = EtendueDepuis(points, *premier).nombre;
    const bool poche = ProprietesDe(document.Sequences, index, code).Poche != Faux;
    poids += nombre * (poche ? PointsParPoche : 1);
  }
  return poids;
}

}  // namespace ovelin
