#include "toolpath/Module_Ordre.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <unordered_map>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NoyauOrdre.h"

namespace ovelin {

namespace {

// The table in the order of the points: first record of each code, then what has no points.
void RangeFiches() {
  const IndexCodes index = IndexDocument();
  std::vector<SequenceInfo> rangees;
  rangees.reserve(Sequences.size());
  std::vector<bool> prise(Sequences.size(), false);
  for (const Code2 code : ListeCodes()) {
    const auto i = index.Fiche(code);
    if (!i || prise[*i]) continue;
    prise[*i] = true;
    rangees.push_back(Sequences[*i]);
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
    const std::span<const PointTrace> run = PointsDe(TraceInitial, e);
    points.insert(points.end(), run.begin(), run.end());
  }
  TraceInitial.swap(points);
}

}  // namespace

bool mnu_Optimisation_Click() {
  if (PorteEncoches(TraceInitial)) {
    if (Message(Textes::OptimisationSansAttaches, Icone::Critique, Boutons::OkAnnuler) != Reponse::Ok) return false;
    OublieEncoches(TraceInitial);
  }
  ChoisitDeparts(TraceInitial, [] { Statut(Textes::ChoixDepart); });
  Statut(Textes::CalculApresOrdre);
  RecalculDecalages();
  Modifie = Vrai;
  Svc.Rafraichit();
  EffaceStatut();
  return true;
}

bool ChangeOrdre(PasOrdre pas) {
  const bool plusTot = pas == PasOrdre::PlusTot;
  std::vector<Etendue> etendues = EtenduesSequences();
  if (etendues.empty()) return false;
  std::unordered_map<std::uint32_t, bool> selection;
  for (const SequenceInfo& s : Sequences) selection.try_emplace(s.Code.Cle(), s.Selection != Faux);
  const auto choisie = [&](const Etendue& e) {
    const auto it = selection.find(e.code.Cle());
    return it != selection.end() && it->second;
  };
  // A path that can't move any further holds back all of them.
  if (choisie(plusTot ? etendues.front() : etendues.back())) {
    Svc.Bip();
    return false;
  }
  // Walked against the direction of the move, so that neighbours that move together keep their order.
  const std::size_t n = etendues.size();
  for (std::size_t k = 1; k < n; ++k) {
    const std::size_t i = plusTot ? k : n - 1 - k;
    if (choisie(etendues[i])) std::swap(etendues[i], etendues[plusTot ? i - 1 : i + 1]);
  }
  EcritOrdre(etendues);
  RangeFiches();
  RecalculDecalages();
  RefaitDecalages(CodesSelectionnes());
  Modifie = Vrai;
  Svc.Rafraichit();
  return true;
}

bool ChangeDepart(std::int32_t index) {
  if (index < 0 || base::Indice(index) >= TraceInitial.size()) {
    Svc.Bip();
    return false;
  }
  Statut(Textes::ChangeDepart);
  // The run that holds the point, from its first point on.
  const auto choisi = base::Indice(index);
  const Code2 code = TraceInitial[choisi].Seq;
  std::size_t premier = choisi;
  while (premier > 0 && TraceInitial[premier - 1].Seq == code) --premier;
  const Etendue sequence = EtendueDepuis(TraceInitial, premier);
  if (choisi == premier) {
    EffaceStatut();
    return true;
  }
  if (!EstFermee(sequence)) {
    EffaceStatut();
    Message(Textes::DepartOuvert, Icone::Critique);
    Svc.Bip();
    return false;
  }
  TourneDepart(TraceInitial, sequence, choisi);
  Statut(Textes::CalculTrajet);
  RefaitDecalage(code);
  Svc.Rafraichit();
  Statut(Textes::EnregistreModifie);
  Modifie = Vrai;
  Statut(Textes::Termine);
  EffaceStatut();
  return true;
}

void InverseSelectionnees() {
  const IndexCodes index = IndexDocument();
  for (const Code2 code : CodesSelectionnes()) InverseEtendue(index.PremierPoint(code));
  RecalculDecalages();
  Modifie = Vrai;
  Svc.Rafraichit();
}

}  // namespace ovelin
