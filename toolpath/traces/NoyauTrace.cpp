#include "toolpath/traces/NoyauTrace.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "base/Arret.h"
#include "base/Equipe.h"
#include "core/Coeurs.h"
#include "core/Gestes.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "toolpath/traces/Bibliotheque.h"
#include "toolpath/traces/Encoches.h"
#include "toolpath/traces/Prolongement.h"

namespace ovelin {

namespace {

constexpr float ToleranceDecalage = 0.01F;         // mm
constexpr std::int32_t RecouvrementContour = 100;  // asks for the single offset curve

// Points of a pass from which its paths are worth more than one thread.
constexpr std::size_t SeuilEquipe = 8000;

// Points from which a path is worth a thread: below, its trace is there in some milliseconds. A pocket makes many
// rings out of few points.
constexpr std::size_t SeuilFond = 4000;
constexpr std::size_t SeuilFondPoche = 200;

bool EstPercage(std::span<const PointTrace> points) {
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

// The points of a path of two points at least, put into its trace.
TraceCalculee Trace(Code2 code, std::vector<PointTrace>& points, const ProprietesSequence& s,
                    const ParametresTrace& p, const PartIlots& ilots) {
  TraceCalculee trace;
  if (ilots.debout) {
    trace.entrees.push_back({code, {}});
    return trace;
  }
  if (!EstPercage(points)) {
    if (s.Decalage != CoteLigne) {
      const float rayon = EnFloat(p.rayon);
      const float decal = s.Decalage == CoteDirect ? rayon : -rayon;
      const std::int32_t recouvrement = s.Poche != Faux ? p.recouvrement : RecouvrementContour;
      trace.reussie = (ilots.autour.empty() ? Biblio.DecalSequence(points, ToleranceDecalage, decal, recouvrement)
                                            : Biblio.DecalSequenceIlots(points, ToleranceDecalage, decal,
                                                                        recouvrement, ilots.autour)) != 0;
    }
    if (base::ArretDemande()) return trace;
    // Also behind a failure, on whatever came back.
    OuvreEncoches(points, p.encoche);
  }
  if (!trace.reussie) {
    trace.entrees.push_back({code, {}});
    return trace;
  }
  trace.entrees = Morceaux(code, points);
  if (p.prolongement) {
    for (SequenceDecalee& d : trace.entrees) ProlongePoints(d.Points);
  }
  return trace;
}

TraceCalculee TraceDe(std::span<const PointTrace> chemin, Code2 code, const ProprietesSequence& proprietes,
                      const ParametresTrace& parametres, const PartIlots& ilots) {
  std::vector<PointTrace> points(chemin.begin(), chemin.end());
  return Trace(code, points, proprietes, parametres, ilots);
}

std::size_t Poids(std::size_t points, const ProprietesSequence& s) {
  constexpr std::size_t rapport = SeuilFond / SeuilFondPoche;
  return s.Poche != Faux ? points * rapport : points;
}

// The traces of a pass, each computed once, ahead of the table where there are cores for it.
class Atelier {
 public:
  Atelier(const Document& document, const IndexCodes& index, std::span<const Code2> codes,
          const ParametresTrace& parametres, OuTracer ou)
      : parametres_(parametres), ou_(ou) {
    const std::span<const PointTrace> points(document.TraceInitial);
    const Ilots ilots(document, VidePoches(parametres));
    std::size_t poids = 0;
    for (const Code2 code : codes) {
      if (code == CodeAucun || !rangs_.try_emplace(code.Cle(), taches_.size()).second) continue;
      const auto premier = index.PremierPoint(code);
      Tache tache{code, {}, {}, ilots.De(code), {}};
      if (premier) {
        tache.chemin = PointsDe(points, EtendueDepuis(points, *premier));
        tache.proprietes = ProprietesDe(document.Sequences, index, code);
        poids += Poids(tache.chemin.size(), tache.proprietes);
      }
      taches_.push_back(std::move(tache));
    }
    if (NombreCoeurs < 2 || taches_.size() < 2 || poids < SeuilEquipe) return;
    equipe_.emplace(NombreCoeurs, taches_.size(), [this, arret = base::ArretDuFil](std::size_t i) {
      const base::SousArret sous(arret);
      if (base::ArretDemande()) return;
      Tache& t = taches_[i];
      if (t.chemin.size() >= 2) t.trace = TraceDe(t.chemin, t.code, t.proprietes, parametres_, t.ilots);
    });
  }

  // The trace of that path: the first time that it is asked for. Nothing when it is too short to have one.
  std::optional<TraceCalculee> Prend(Code2 code) {
    const std::size_t rang = rangs_.at(code.Cle());
    Tache& t = taches_[rang];
    if (!equipe_ && ou_ == OuTracer::SurCeFil) {
      if (t.chemin.size() < 2) return std::nullopt;
      return TraceDe(t.chemin, code, t.proprietes, parametres_, t.ilots);
    }
    if (!equipe_) return CalculeTrace(t.chemin, code, t.proprietes, parametres_, t.ilots);
    if (ou_ == OuTracer::ALaFenetre && !equipe_->Fait(rang)) TravailleSi(true, [&] { equipe_->Attend(rang); });
    equipe_->Attend(rang);
    return std::exchange(t.trace, std::nullopt);
  }

 private:
  struct Tache {
    Code2 code;
    std::span<const PointTrace> chemin;
    ProprietesSequence proprietes;
    PartIlots ilots;
    std::optional<TraceCalculee> trace;
  };
  const ParametresTrace& parametres_;
  OuTracer ou_;
  std::vector<Tache> taches_;
  std::unordered_map<std::uint32_t, std::size_t> rangs_;  // by code
  std::optional<base::Equipe> equipe_;                    // last: its threads work on the tasks
};

// Two characters hold the number: from 100 on its first two digits.
Code2 NumeroTrace(long n) {
  char texte[24];
  std::snprintf(texte, sizeof texte, "%02ld", n);
  return Code2(std::string_view(texte).substr(0, 2));
}

}  // namespace

double RayonEncocheDe(const Reglages& reglages) { return reglages.LargeurEncoche / 2 + reglages.RayonFraise; }

ParametresTrace ParametresTraceDe(const Reglages& reglages, bool prolongement) {
  return {reglages.RayonFraise, reglages.PCPoche, RayonEncocheDe(reglages), prolongement};
}

bool VidePoches(const ParametresTrace& parametres) {
  return parametres.recouvrement != RecouvrementContour && EnFloat(parametres.rayon) != 0;
}

std::optional<TraceCalculee> CalculeTrace(std::span<const PointTrace> chemin, Code2 code,
                                          const ProprietesSequence& proprietes, const ParametresTrace& parametres,
                                          const PartIlots& ilots) {
  if (chemin.size() < 2) return std::nullopt;
  TraceCalculee trace;
  TravailleSi(chemin.size() >= (proprietes.Poche != Faux ? SeuilFondPoche : SeuilFond),
              [&] { trace = TraceDe(chemin, code, proprietes, parametres, ilots); });
  return trace;
}

void PoseTrace(std::vector<SequenceDecalee>& traces, Code2 code, TraceCalculee&& trace) {
  const auto sien = [&](const SequenceDecalee& d) { return d.Seq == code; };
  const auto debut = std::find_if(traces.begin(), traces.end(), sien);
  const auto fin = trace.reussie ? std::find_if_not(debut, traces.end(), sien) : traces.end();
  const auto place = traces.erase(debut, fin);
  traces.insert(place, std::make_move_iterator(trace.entrees.begin()),
                std::make_move_iterator(trace.entrees.end()));
}

// A code comes more than once where its points stand in several runs. Its trace is that of its first run every
// time, so it is computed once; the table takes the same outcome in again.
bool CalculeTraces(const Document& document, std::span<const Code2> codes, const ParametresTrace& parametres,
                   std::vector<SequenceDecalee>& traces, const std::function<void()>& avance, OuTracer ou) {
  const IndexCodes index(document);
  Atelier atelier(document, index, codes, parametres, ou);
  TableTraces table(traces);
  bool uneReussie = false;
  std::unordered_set<std::uint32_t> calcules;
  for (const Code2 code : codes) {
    if (base::ArretDemande()) return false;
    avance();
    if (code == CodeAucun) continue;
    if (!calcules.insert(code.Cle()).second) {
      table.Repete(code);
      continue;
    }
    std::optional<TraceCalculee> trace = atelier.Prend(code);
    if (!trace) continue;
    uneReussie = uneReussie || trace->reussie;
    table.Remplace(code, std::move(*trace));
  }
  traces = table.Rend(traces);
  return uneReussie;
}

void NumeroteTraces(std::vector<SequenceDecalee>& traces, std::span<const Code2> sauf) {
  std::unordered_set<std::uint32_t> gardes;
  for (const Code2 code : sauf) gardes.insert(code.Cle());
  long numero = 0;
  for (SequenceDecalee& d : traces) {
    if (d.Points.empty()) continue;
    const Code2 seq = NumeroTrace(++numero);
    if (gardes.contains(d.Seq.Cle())) continue;
    for (PointTrace& p : d.Points) p.Seq = seq;
  }
}

void TraceDocument(Document& document, const ParametresTrace& parametres) {
  document.TraceDecale.clear();
  CalculeTraces(document, CodesDe(document.TraceInitial), parametres, document.TraceDecale, [] {});
  NumeroteTraces(document.TraceDecale);
}

}  // namespace ovelin
