#include "toolpath/Module_Ordre.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/PointsProches.h"

namespace ovelin {

namespace {

bool EstEncoche(const PointTrace& p) { return p.Cde == CodePE || p.Cde == CodePC; }

// Runs of each code, in the order of the array: a code may stand in more than one.
using ParCode = std::unordered_map<std::uint32_t, std::vector<Etendue>>;

ParCode Repertoire(const std::vector<Etendue>& etendues) {
  ParCode repertoire;
  for (const Etendue& e : etendues) repertoire[e.code.Cle()].push_back(e);
  return repertoire;
}

// Index of the point of the run that is nearest to `position`; of equals the first. -1 when none can be reached.
std::int32_t PointProche(const Etendue& e, const PointTrace& position) {
  double meilleur = 1e15;
  std::int32_t choisi = -1;
  for (std::int32_t i = e.premier; i < e.premier + e.nombre; ++i) {
    const double d = DistancePoints(position, TraceInitial[static_cast<std::size_t>(i)]);
    if (d < meilleur) {
      meilleur = d;
      choisi = i;
    }
  }
  return choisi;
}

// From the machine's origin on, each path starts where it is nearest to the start of the one before. The position
// goes on from the chosen point, on open paths as well, which keep their start. A code that stands in several runs
// has its turn at each of them.
void ChoisitDeparts() {
  const std::vector<Etendue> etendues = EtenduesSequences();
  const ParCode repertoire = Repertoire(etendues);
  std::unordered_map<std::uint32_t, PointsProches> partagees;
  PointTrace position;
  Respiration respiration;
  for (const Etendue& e : etendues) {
    respiration.Laisse();
    const std::vector<Etendue>& siennes = repertoire.at(e.code.Cle());
    bool tournee = false;
    if (siennes.size() == 1) {
      const std::int32_t choisi = PointProche(e, position);
      if (choisi < 0) continue;
      position = TraceInitial[static_cast<std::size_t>(choisi)];
      tournee = TourneDepart(e, choisi);
    } else {
      PointsProches& points = partagees.try_emplace(e.code.Cle(), siennes).first->second;
      const PointsProches::Choix choix = points.Cherche(position);
      if (choix.index < 0) continue;
      position = choix.place;
      tournee = points.Tourne(choix.index);
    }
    if (tournee) Statut(SectionFenetre, "lib300");
  }
  for (const auto& [cle, points] : partagees) points.Applique();
}

// The table in the order of the points: first record of each code, then what has no points.
void RangeFiches() {
  const IndexCodes index;
  std::vector<SequenceInfo> rangees;
  rangees.reserve(Sequences.size());
  std::vector<bool> prise(Sequences.size(), false);
  for (const Code2 code : ListeCodes()) {
    const std::int32_t i = index.Fiche(code);
    if (i < 0 || prise[static_cast<std::size_t>(i)]) continue;
    prise[static_cast<std::size_t>(i)] = true;
    rangees.push_back(Sequences[static_cast<std::size_t>(i)]);
  }
  for (std::size_t i = 0; i < Sequences.size(); ++i) {
    if (!prise[i]) rangees.push_back(Sequences[i]);
  }
  Sequences.swap(rangees);
}

void EcritOrdre(const std::vector<Etendue>& etendues) {
  std::vector<PointTrace> points;
  points.reserve(TraceInitial.size());
  for (const Etendue& e : etendues) {
    points.insert(points.end(), TraceInitial.begin() + e.premier, TraceInitial.begin() + e.premier + e.nombre);
  }
  TraceInitial.swap(points);
}

}  // namespace

//     run      A B C D A        start at C:   C D A B C
//              |_______| without the closing copy; it is made anew
bool TourneDepart(const Etendue& sequence, std::int32_t choisi) {
  const std::int32_t decalage = choisi - sequence.premier;
  if (decalage <= 0 || decalage >= sequence.nombre || !EstFermee(sequence)) return false;
  const auto debut = TraceInitial.begin() + sequence.premier;
  const auto dernier = debut + sequence.nombre - 1;
  std::rotate(debut, debut + decalage, dernier);
  *dernier = *debut;
  return true;
}

bool mnu_Optimisation_Click() {
  if (std::any_of(TraceInitial.begin(), TraceInitial.end(), EstEncoche)) {
    if (Message(SectionFenetre, "lib320", Icone::Critique, Boutons::OkAnnuler) != Reponse::Ok) return false;
    for (PointTrace& p : TraceInitial) {
      if (EstEncoche(p)) p.Cde = CodePD;
    }
  }
  ChoisitDeparts();
  Statut(SectionFenetre, "lib301");
  RecalculDecalages();
  Modifie = Vrai;
  Svc.Rafraichit();
  EffaceStatut();
  return true;
}

bool ChangeOrdre(int sens) {
  std::vector<Etendue> etendues = EtenduesSequences();
  if (etendues.empty()) return false;
  std::unordered_map<std::uint32_t, bool> selection;
  for (const SequenceInfo& s : Sequences) selection.try_emplace(s.Code.Cle(), s.Selection != Faux);
  const auto choisie = [&](const Etendue& e) {
    const auto it = selection.find(e.code.Cle());
    return it != selection.end() && it->second;
  };
  // A path that can't move any further holds back all of them.
  if (choisie(sens == 0 ? etendues.front() : etendues.back())) {
    Svc.Bip();
    return false;
  }
  // Walked against the direction of the move, so that neighbours that move together keep their order.
  const std::size_t n = etendues.size();
  for (std::size_t pas = 1; pas < n; ++pas) {
    const std::size_t i = sens == 0 ? pas : n - 1 - pas;
    if (choisie(etendues[i])) std::swap(etendues[i], etendues[sens == 0 ? i - 1 : i + 1]);
  }
  EcritOrdre(etendues);
  RangeFiches();
  RecalculDecalages();
  CalculDecalages(CodesSelectionnes());
  Modifie = Vrai;
  Svc.Rafraichit();
  return true;
}

bool ChangeDepart(std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= TraceInitial.size()) {
    Svc.Bip();
    return false;
  }
  Statut(SectionFenetre, "lib003");
  // The run that holds the point, from its first point on.
  const Code2 code = TraceInitial[static_cast<std::size_t>(index)].Seq;
  std::int32_t premier = index;
  while (premier > 0 && TraceInitial[static_cast<std::size_t>(premier - 1)].Seq == code) --premier;
  const Etendue sequence{code, premier, NbPointsSequence(premier)};
  if (index == premier) {
    EffaceStatut();
    return true;
  }
  if (!EstFermee(sequence)) {
    EffaceStatut();
    Message(SectionFenetre, "lib370", Icone::Critique);
    Svc.Bip();
    return false;
  }
  TourneDepart(sequence, index);
  Statut(SectionFenetre, "lib001");
  CalculDecalage(code);
  Svc.Rafraichit();
  Statut(SectionFenetre, "lib004");
  Modifie = Vrai;
  Statut(SectionFenetre, "lib002");
  EffaceStatut();
  return true;
}

void InverseSelectionnees() {
  const IndexCodes index;
  for (const Code2 code : CodesSelectionnes()) InverseEtendue(index.PremierPoint(code));
  RecalculDecalages();
  Modifie = Vrai;
  Svc.Rafraichit();
}

}  // namespace ovelin
