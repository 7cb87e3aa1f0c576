// Look-ups in the drawing: runs, first matches, boxes, codes.
#include <algorithm>
#include <cmath>

#include "core/DocumentCourant.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

// Points that a walk may look at: NbPoints, but never past the array (a refused project leaves it larger).
std::size_t Borne() {
  if (NbPoints <= 0) return 0;
  return std::min(static_cast<std::size_t>(NbPoints), TraceInitial.size());
}

// Box that grows point by point.
struct Boite2 {
  float xmin = 0, xmax = 0, ymin = 0, ymax = 0;
  bool vide = true;
  void Ajoute(float x0, float x1, float y0, float y1) {
    if (vide) {
      xmin = x0, xmax = x1, ymin = y0, ymax = y1;
      vide = false;
      return;
    }
    xmin = std::min(xmin, x0);
    xmax = std::max(xmax, x1);
    ymin = std::min(ymin, y0);
    ymax = std::max(ymax, y1);
  }
};

}  // namespace

IndexCodes::IndexCodes() {
  const std::size_t n = Borne();
  for (std::size_t i = 0; i < n; ++i) {
    // Only the first point of a run can be the first of its code.
    if (i > 0 && TraceInitial[i].Seq == TraceInitial[i - 1].Seq) continue;
    points_.try_emplace(TraceInitial[i].Seq.Cle(), static_cast<std::int32_t>(i));
  }
  fiches_.reserve(Sequences.size());
  for (std::size_t i = 0; i < Sequences.size(); ++i) {
    fiches_.try_emplace(Sequences[i].Code.Cle(), static_cast<std::int32_t>(i));
  }
}

std::int32_t IndexCodes::PremierPoint(Code2 code) const {
  const auto it = points_.find(code.Cle());
  return it == points_.end() ? -1 : it->second;
}

std::int32_t IndexCodes::Fiche(Code2 code) const {
  const auto it = fiches_.find(code.Cle());
  return it == fiches_.end() ? -1 : it->second;
}

std::vector<Etendue> EtenduesSequences() {
  std::vector<Etendue> etendues;
  for (std::size_t i = 0; i < TraceInitial.size(); ++i) {
    if (i == 0 || TraceInitial[i].Seq != TraceInitial[i - 1].Seq) {
      etendues.push_back({TraceInitial[i].Seq, static_cast<std::int32_t>(i), 0});
    }
    ++etendues.back().nombre;
  }
  return etendues;
}

std::vector<Code2> ListeCodes() {
  std::vector<Code2> codes;
  for (const Etendue& e : EtenduesSequences()) codes.push_back(e.code);
  return codes;
}

std::int32_t IndexSequence(Code2 code) {
  const std::size_t n = Borne();
  for (std::size_t i = 0; i < n; ++i) {
    if (TraceInitial[i].Seq == code) return static_cast<std::int32_t>(i);
  }
  return -1;
}

std::int32_t NbPointsSequence(std::int32_t premier) {
  if (premier < 0 || static_cast<std::size_t>(premier) >= TraceInitial.size()) return 0;
  const auto debut = static_cast<std::size_t>(premier);
  std::size_t i = debut;
  while (i < TraceInitial.size() && TraceInitial[i].Seq == TraceInitial[debut].Seq) ++i;
  return static_cast<std::int32_t>(i - debut);
}

std::int32_t EncombrementSequence(std::int32_t premier, float& xmin, float& xmax, float& ymin, float& ymax) {
  const std::int32_t n = NbPointsSequence(premier);
  if (n == 0) return 0;
  Boite2 b;
  for (std::int32_t i = premier; i < premier + n; ++i) {
    const PointTrace& p = TraceInitial[static_cast<std::size_t>(i)];
    b.Ajoute(p.X, p.X, p.Y, p.Y);
  }
  xmin = b.xmin, xmax = b.xmax, ymin = b.ymin, ymax = b.ymax;
  return n;
}

void EncombrementSelection(float& xmin, float& xmax, float& ymin, float& ymax, int tout) {
  const IndexCodes index;
  Boite2 b;
  for (const SequenceInfo& s : Sequences) {
    if (tout == 0 && s.Selection == Faux) continue;
    float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
    if (EncombrementSequence(index.PremierPoint(s.Code), x0, x1, y0, y1) > 0) b.Ajoute(x0, x1, y0, y1);
  }
  if (b.vide) return;
  xmin = b.xmin, xmax = b.xmax, ymin = b.ymin, ymax = b.ymax;
}

void EncombrementGeneral() {
  if (TraceInitial.empty()) return;
  Boite2 b;
  for (const PointTrace& p : TraceInitial) b.Ajoute(p.X, p.X, p.Y, p.Y);
  Xmin = b.xmin, Xmax = b.xmax, Ymin = b.ymin, Ymax = b.ymax;
}

PointTrace CentreSelection() {
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EncombrementSelection(x0, x1, y0, y1, 0);
  PointTrace centre;
  centre.X = (x0 + x1) / 2;
  centre.Y = (y0 + y1) / 2;
  return centre;
}

Code2 PlusGrandCode() {
  if (TraceInitial.empty()) return CodeAucun;
  Code2 plusGrand = TraceInitial.front().Seq;
  for (const PointTrace& p : TraceInitial) plusGrand = std::max(plusGrand, p.Seq);
  return plusGrand;
}

std::int32_t NbSequences() { return static_cast<std::int32_t>(EtenduesSequences().size()); }

// The right character counts fastest: A to Z, a to z; then the left one, which starts blank. Nothing stops at the
// end of the alphabet: a left "z" steps on to the character behind it.
Code2 CodeSuivant(Code2 code) {
  if (code == Code2{} || code == CodeAucun) return {u' ', u'A'};
  char16_t gauche = code.c[0];
  char16_t droite = code.c[1];
  bool retenue = false;
  if (droite == u'Z') {
    droite = u'a';
  } else if (droite == u'z') {
    droite = u'A';
    retenue = true;
  } else {
    ++droite;
  }
  if (retenue) {
    if (gauche == u' ') {
      gauche = u'A';
    } else if (gauche == u'Z') {
      gauche = u'a';
    } else {
      ++gauche;
    }
  }
  return {gauche, droite};
}

double DistancePoints(const PointTrace& a, const PointTrace& b) {
  const float dx = b.X - a.X;
  const float dy = b.Y - a.Y;
  return std::sqrt(static_cast<double>(dx) * dx + static_cast<double>(dy) * dy);
}

bool EstFermee(const Etendue& e) {
  if (e.nombre <= 0) return false;
  return pathwerk::MemePlace(TraceInitial[static_cast<std::size_t>(e.premier)],
                             TraceInitial[static_cast<std::size_t>(e.premier + e.nombre - 1)]);
}

}  // namespace ovelin
