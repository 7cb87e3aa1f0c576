#include "toolpath/traces/Ilots.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "toolpath/chemins/Etendues.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

// A closed path that is marked, or a pocket.
struct Ilots::Chemin {
  Code2 code;
  std::span<const PointTrace> points;
  bool ilot = false;
  bool poche = false;
  double aire = 0;  // mm2
};

namespace {

double AireDe(std::span<const PointTrace> points) {
  double somme = 0;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const PointTrace& a = points[i];
    const PointTrace& b = points[i + 1];
    somme += Ecart(points[0].X, a.X) * Ecart(points[0].Y, b.Y) - Ecart(points[0].X, b.X) * Ecart(points[0].Y, a.Y);
  }
  return std::abs(somme) / 2;
}

}  // namespace

bool AIlots(const TableComplements& complements) {
  return std::any_of(complements.begin(), complements.end(), [](const auto& entree) { return entree.second.Ilot; });
}

std::vector<Code2> CodesDesIlots(const Document& document) {
  std::vector<Code2> codes;
  for (const SequenceInfo& s : document.Sequences) {
    if (s.Poche != Faux || document.Complements.De(s.Code).Ilot) codes.push_back(s.Code);
  }
  return codes;
}

std::vector<Code2> AvecIlots(const Document& document, std::vector<Code2> codes) {
  if (!AIlots(document.Complements)) return codes;
  const std::vector<Code2> autres = CodesDesIlots(document);
  std::unordered_set<std::uint32_t> lies;
  for (const Code2 code : autres) lies.insert(code.Cle());
  if (std::none_of(codes.begin(), codes.end(), [&](Code2 c) { return lies.contains(c.Cle()); })) return codes;
  for (const Code2 code : codes) lies.erase(code.Cle());
  for (const Code2 code : autres) {
    if (lies.erase(code.Cle()) != 0) codes.push_back(code);
  }
  return codes;
}

Ilots::Ilots(const Document& document, bool vides) {
  if (!vides || !AIlots(document.Complements)) return;
  const IndexCodes index(document);
  const std::span<const PointTrace> points = PointsComptes(document);
  std::vector<Chemin> poches;  // marked or not
  std::vector<Chemin> ilots;   // pockets or not
  std::unordered_set<std::uint32_t> vus;
  for (const SequenceInfo& s : document.Sequences) {
    const auto premier = index.PremierPoint(s.Code);
    if (!premier || !vus.insert(s.Code.Cle()).second) continue;
    Chemin c{s.Code, PointsDe(points, EtendueDepuis(points, *premier))};
    c.ilot = document.Complements.De(s.Code).Ilot;
    c.poche = s.Poche != Faux && s.Decalage != CoteLigne;
    if ((!c.ilot && !c.poche) || !EstFermee(c.points)) continue;
    c.aire = AireDe(c.points);
    if (c.poche) poches.push_back(c);
    if (c.ilot) ilots.push_back(c);
  }
  // Those that are pockets and nothing else, then the marked ones from the largest on.
  std::stable_sort(poches.begin(), poches.end(), [](const Chemin& a, const Chemin& b) {
    return a.ilot != b.ilot ? b.ilot : a.ilot && a.aire > b.aire;
  });
  for (const Chemin& poche : poches) {
    if (Debout(poche.code)) continue;
    std::erase_if(ilots, [&](const Chemin& c) { return c.code == poche.code; });
    Entoure(poche, ilots);
  }
}

void Ilots::Entoure(const Chemin& poche, std::span<const Chemin> ilots) {
  std::vector<std::span<const PointTrace>> chemins;
  for (const Chemin& c : ilots) chemins.push_back(c.points);
  for (const std::size_t k : Biblio.IlotsDans(poche.points, chemins)) {
    autour_[poche.code.Cle()].push_back(ilots[k].points);
    debout_.insert(ilots[k].code.Cle());
  }
}

PartIlots Ilots::De(Code2 code) const {
  PartIlots part;
  part.debout = Debout(code);
  if (const auto it = autour_.find(code.Cle()); it != autour_.end()) {
    for (const std::span<const PointTrace> ilot : it->second) {
      part.autour.insert(part.autour.end(), ilot.begin(), ilot.end());
    }
  }
  return part;
}

}  // namespace ovelin
