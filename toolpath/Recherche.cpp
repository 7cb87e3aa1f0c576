// Look-ups in the drawing: runs, first matches, boxes, codes.
#include "toolpath/Recherche.h"

#include <algorithm>
#include <optional>
#include <span>

#include "base/Boite.h"
#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

using Cadre = base::Boite<float>;

// Widens the box by a run; the first point of all counts as it is.
void Etend(std::optional<Cadre>& somme, std::span<const PointTrace> points) {
  for (const PointTrace& p : points) {
    if (somme) {
      somme->Etend(p.X, p.Y);
    } else {
      somme = Cadre::De(p.X, p.Y);
    }
  }
}

void Rend(const Cadre& b, float& xmin, float& xmax, float& ymin, float& ymax) {
  xmin = b.x0, xmax = b.x1, ymin = b.y0, ymax = b.y1;
}

}  // namespace

IndexCodes IndexDocument() { return IndexCodes(Doc); }

std::vector<Etendue> EtenduesSequences() { return EtenduesDe(TraceInitial); }

std::vector<Code2> ListeCodes() { return CodesDe(TraceInitial); }

std::int32_t IndexSequence(Code2 code) {
  const std::span<const PointTrace> points = PointsComptes(Doc);
  const auto it = std::find_if(points.begin(), points.end(), [&](const PointTrace& p) { return p.Seq == code; });
  return it == points.end() ? -1 : base::Compte(it - points.begin());
}

std::int32_t NbPointsSequence(std::int32_t premier) {
  if (premier < 0 || base::Indice(premier) >= TraceInitial.size()) return 0;
  return base::Compte(EtendueDepuis(TraceInitial, base::Indice(premier)).nombre);
}

std::int32_t EncombrementSequence(std::int32_t premier, float& xmin, float& xmax, float& ymin, float& ymax) {
  const std::int32_t n = NbPointsSequence(premier);
  if (n == 0) return 0;
  std::optional<Cadre> b;
  Etend(b, PointsDe(TraceInitial, EtendueDepuis(TraceInitial, base::Indice(premier))));
  Rend(*b, xmin, xmax, ymin, ymax);
  return n;
}

void EncombrementSelection(float& xmin, float& xmax, float& ymin, float& ymax, int tout) {
  const IndexCodes index = IndexDocument();
  std::optional<Cadre> b;
  for (const SequenceInfo& s : Sequences) {
    if (tout == 0 && s.Selection == Faux) continue;
    if (const auto premier = index.PremierPoint(s.Code)) {
      Etend(b, PointsDe(TraceInitial, EtendueDepuis(TraceInitial, *premier)));
    }
  }
  if (b) Rend(*b, xmin, xmax, ymin, ymax);
}

void EncombrementGeneral() {
  MesureDocument(Doc);
  Svc.RafraichitEtat();
}

PointTrace CentreSelection() {
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EncombrementSelection(x0, x1, y0, y1, 0);
  PointTrace centre;
  centre.X = (x0 + x1) / 2;
  centre.Y = (y0 + y1) / 2;
  return centre;
}

Code2 PlusPetitCode() {
  if (TraceInitial.empty()) return CodeAucun;
  Code2 plusPetit = TraceInitial.front().Seq;
  for (const PointTrace& p : TraceInitial) plusPetit = std::min(plusPetit, p.Seq);
  return plusPetit;
}

Code2 PlusGrandCode() {
  if (TraceInitial.empty()) return CodeAucun;
  Code2 plusGrand = TraceInitial.front().Seq;
  for (const PointTrace& p : TraceInitial) plusGrand = std::max(plusGrand, p.Seq);
  return plusGrand;
}

std::int32_t NbSequences() { return base::Compte(EtenduesSequences().size()); }

bool EstFermee(const Etendue& e) { return EstFermee(PointsDe(TraceInitial, e)); }

}  // namespace ovelin
