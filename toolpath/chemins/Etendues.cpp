#include "toolpath/chemins/Etendues.h"

#include <algorithm>
#include <cmath>

#include "base/Boite.h"
#include "base/Indices.h"

namespace ovelin {

namespace {

using Rangs = std::unordered_map<std::uint32_t, std::size_t>;

std::optional<std::size_t> Cherche(const Rangs& rangs, Code2 code) {
  const auto it = rangs.find(code.Cle());
  if (it == rangs.end()) return std::nullopt;
  return it->second;
}

}  // namespace

std::vector<Etendue> EtenduesDe(std::span<const PointTrace> points) {
  std::vector<Etendue> etendues;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || points[i].Seq != points[i - 1].Seq) etendues.push_back({points[i].Seq, i, 0});
    ++etendues.back().nombre;
  }
  return etendues;
}

std::vector<Code2> CodesDe(std::span<const PointTrace> points) {
  std::vector<Code2> codes;
  for (const Etendue& e : EtenduesDe(points)) codes.push_back(e.code);
  return codes;
}

Etendue EtendueDepuis(std::span<const PointTrace> points, std::size_t premier) {
  const Code2 code = points[premier].Seq;
  std::size_t fin = premier;
  while (fin < points.size() && points[fin].Seq == code) ++fin;
  return {code, premier, fin - premier};
}

bool EstFermee(std::span<const PointTrace> run) {
  return !run.empty() && pathwerk::MemePlace(run.front(), run.back());
}

IndexCodes::IndexCodes(std::span<const PointTrace> points, std::span<const SequenceInfo> fiches) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    // Only the first point of a run can be the first of its code.
    if (i > 0 && points[i].Seq == points[i - 1].Seq) continue;
    points_.try_emplace(points[i].Seq.Cle(), i);
  }
  fiches_.reserve(fiches.size());
  for (std::size_t i = 0; i < fiches.size(); ++i) fiches_.try_emplace(fiches[i].Code.Cle(), i);
}

IndexCodes::IndexCodes(const Document& document) : IndexCodes(PointsComptes(document), document.Sequences) {}

std::optional<std::size_t> IndexCodes::PremierPoint(Code2 code) const { return Cherche(points_, code); }
std::optional<std::size_t> IndexCodes::Fiche(Code2 code) const { return Cherche(fiches_, code); }

std::span<const PointTrace> PointsComptes(const Document& document) {
  if (document.NbPoints <= 0) return {};
  const auto n = std::min(base::Indice(document.NbPoints), document.TraceInitial.size());
  return std::span(document.TraceInitial).first(n);
}

ProprietesSequence ProprietesDe(const SequenceInfo& fiche) {
  return {fiche.Poche, fiche.Fraiser, fiche.Profondeur, fiche.Decalage};
}

ProprietesSequence ProprietesDe(std::span<const SequenceInfo> fiches, const IndexCodes& index, Code2 code) {
  const auto i = index.Fiche(code);
  return i ? ProprietesDe(fiches[*i]) : ProprietesSequence{};
}

void MesureDocument(Document& document) {
  if (document.TraceInitial.empty()) return;
  const PointTrace& premier = document.TraceInitial.front();
  auto boite = base::Boite<float>::De(premier.X, premier.Y);
  for (const PointTrace& p : document.TraceInitial) boite.Etend(p.X, p.Y);
  document.Xmin = boite.x0, document.Xmax = boite.x1, document.Ymin = boite.y0, document.Ymax = boite.y1;
}

double DistancePoints(const PointTrace& a, const PointTrace& b) {
  const float dx = b.X - a.X;
  const float dy = b.Y - a.Y;
  return std::sqrt(double{dx} * dx + double{dy} * dy);
}

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

}  // namespace ovelin
