#include "toolpath/Module_Ordre.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
#include <string>
#include <unordered_map>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/chemins/NoyauOrdre.h"
#include "toolpath/chemins/NoyauTournee.h"

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

// Behind the traces of a change. False: it was taken back.
bool Acheve(IssuePasse issue) {
  if (issue == IssuePasse::EnVigueur) {
    Modifie = Vrai;
    Svc.Rafraichit();
  }
  return PasseTraces::Faite(issue);
}

}  // namespace

bool mnu_Optimisation_Click() {
  const bool encoches = PorteEncoches(TraceInitial);
  if (encoches && Message(Textes::OptimisationSansAttaches, Icone::Critique, Boutons::OkAnnuler) != Reponse::Ok) {
    return false;
  }
  PasseTraces passe;
  if (encoches) OublieEncoches(TraceInitial);
  ChoisitDeparts(TraceInitial, [] { Statut(Textes::ChoixDepart); });
  Statut(Textes::CalculApresOrdre);
  const bool faite = Acheve(passe.SuitTout());
  EffaceStatut();
  return faite;
}

namespace {

struct BoiteRun {
  float xmin, xmax, ymin, ymax;
  [[nodiscard]] bool Contient(const BoiteRun& b) const {
    return b.xmin > xmin && b.xmax < xmax && b.ymin > ymin && b.ymax < ymax;
  }
};

BoiteRun BoiteDuRun(std::span<const PointTrace> run) {
  BoiteRun b{run[0].X, run[0].X, run[0].Y, run[0].Y};
  for (const PointTrace& p : run) {
    b.xmin = std::min(b.xmin, p.X), b.xmax = std::max(b.xmax, p.X);
    b.ymin = std::min(b.ymin, p.Y), b.ymax = std::max(b.ymax, p.Y);
  }
  return b;
}

// Where the tool goes down and comes up: of the tool path, or of the drawing where a path has none.
std::vector<Etape> EtapesDe(const std::vector<Etendue>& runs) {
  std::unordered_map<std::uint32_t, std::pair<const PointTrace*, const PointTrace*>> traces;
  for (const SequenceDecalee& t : TraceDecale) {
    if (t.Points.empty()) continue;
    traces.try_emplace(t.Seq.Cle(), &t.Points.front(), nullptr).first->second.second = &t.Points.back();
  }
  std::vector<Etape> etapes(runs.size());
  std::vector<BoiteRun> boites;
  const auto lieu = [](const PointTrace& p) { return LieuTournee{p.X, p.Y}; };
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const std::span<const PointTrace> run = PointsDe(TraceInitial, runs[i]);
    const auto t = traces.find(runs[i].code.Cle());
    etapes[i].entree = lieu(t != traces.end() ? *t->second.first : run.front());
    etapes[i].sortie = lieu(t != traces.end() ? *t->second.second : run.back());
    boites.push_back(BoiteDuRun(run));
    for (std::size_t j = 0; j < i; ++j) {
      if (boites[i].Contient(boites[j])) etapes[j].apres.push_back(i);
    }
  }
  return etapes;
}

}  // namespace

bool OrdonneTrajets() {
  std::vector<Etendue> etendues = EtenduesSequences();
  const IndexCodes index = IndexDocument();
  std::vector<std::size_t> places;  // of the milled ones, which change among themselves
  std::vector<Etendue> fraisees;
  for (std::size_t i = 0; i < etendues.size(); ++i) {
    const auto fiche = index.Fiche(etendues[i].code);
    if (fiche && Sequences[*fiche].Fraiser == Faux) continue;
    places.push_back(i);
    fraisees.push_back(etendues[i]);
  }
  if (fraisees.empty()) return false;
  Statut(Textes::CalculApresOrdre);
  const std::vector<Etape> etapes = EtapesDe(fraisees);
  std::vector<std::size_t> avant(etapes.size());
  std::iota(avant.begin(), avant.end(), std::size_t{0});
  const std::vector<std::size_t> apres = OrdreCourt(etapes);
  const auto metres = [&](const std::vector<std::size_t>& ordre) {
    return Formate(LongueurAir(etapes, ordre) / 1000, "0.00") + " m";
  };
  const std::string bilan = Traduire(Textes::MetresEnLAir) + " " + metres(avant) + " -> " + metres(apres);
  const bool change = apres != avant;
  if (change) {
    PasseTraces passe;
    for (std::size_t k = 0; k < places.size(); ++k) etendues[places[k]] = fraisees[apres[k]];
    EcritOrdre(etendues);
    RangeFiches();
    if (!Acheve(passe.SuitTout())) {
      EffaceStatut();
      return false;
    }
  }
  Svc.Panneau(PanneauEtat::Statut, bilan);
  return change;
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
  PasseTraces passe;
  EcritOrdre(etendues);
  RangeFiches();
  return Acheve(passe.SuitTout(CodesSelectionnes()));
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
  PasseTraces passe;
  TourneDepart(TraceInitial, sequence, choisi);
  Statut(Textes::CalculTrajet);
  const IssuePasse issue = passe.SuitUn(code);
  if (issue == IssuePasse::Abandonnee) EffaceStatut();
  if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  Svc.Rafraichit();
  Statut(Textes::EnregistreModifie);
  Modifie = Vrai;
  Statut(Textes::Termine);
  EffaceStatut();
  return true;
}

void InverseSelectionnees() {
  PasseTraces passe;
  const IndexCodes index = IndexDocument();
  for (const Code2 code : CodesSelectionnes()) InverseEtendue(index.PremierPoint(code));
  Acheve(passe.SuitTout());
}

}  // namespace ovelin
