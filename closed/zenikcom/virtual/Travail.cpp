#include "closed/zenikcom/virtual/Travail.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

#include "base/Indices.h"

namespace zenikcom {

Travail::Travail(Machine& machine, int capacite, bool journal)
    : machine_(machine), capacite_(std::max(capacite, 1)), journal_(journal) {}

int Travail::Remplissage() const {
  return base::Compte(attente_.size()) + (mode_ == Mode::Flux && Tourne() ? 1 : 0) + (finRecue_ ? 1 : 0);
}

std::int64_t Travail::Unites(std::int64_t ns) const {
  // 1,000 ns are 12 units for each 10,000 ticks of the full rate.
  const std::int64_t ecoule = std::clamp<std::int64_t>(ns - depart_, 0, std::int64_t{1} << 56U);
  const std::int64_t parUs = cadences_.UnitesParSeconde() / 1'000'000;
  return ecoule / 1000 * parUs + ecoule % 1000 * parUs / 1000;
}

void Travail::Avance(std::int64_t ns) {
  ns_ = std::max(ns_, ns);
  if (EnCours()) AvanceUnites(std::max(u_, Unites(ns_)));
}

std::int64_t Travail::AvanceAuSuivant() {
  if (!Tourne()) return ns_;
  AvanceUnites(FinDuRecord());
  const std::int64_t parSeconde = cadences_.UnitesParSeconde();
  const std::int64_t secondes = u_ / parSeconde, unites = u_ % parSeconde;
  ns_ = std::max(ns_, depart_ + secondes * NsParSeconde + unites * 1000 / (parSeconde / 1'000'000));
  return ns_;
}

std::int64_t Travail::FinDuRecord() const {
  return debut_ + (etat_ == EtatCarte::Freine ? finFrein_ : allure_.Temps(record_.ticks));
}

void Travail::AvanceUnites(std::int64_t u) {
  while (Tourne()) {
    const std::int64_t fin = FinDuRecord();
    if (u < fin) {
      const bool freine = etat_ == EtatCarte::Freine && u - debut_ > debutFrein_;
      const TicksQ32 ticks =
          freine ? frein_.Ticks(u - debut_ - debutFrein_, tickArret_) : allure_.Ticks(u - debut_);
      Execute(static_cast<std::int64_t>(ticks >> 32U));
      break;
    }
    if (etat_ == EtatCarte::Freine) {
      Execute(tickArret_);
      Termine(EtatCarte::Arretee, fin);
      break;
    }
    Execute(record_.ticks);
    if (journal_) {
      joues_.push_back({record_.ticks, record_.depart, allure_.Sommet(), record_.rampe,
                        static_cast<double>(fin - debut_) / static_cast<double>(cadences_.UnitesParSeconde())});
    }
    ticksFinis_ += k_;
    machine_.Jalon();
    Suivant(fin);
  }
  u_ = std::max(u_, u);
}

void Travail::Suivant(std::int64_t u) {
  k_ = 0;
  Record suivant;
  bool la = false;
  if (mode_ == Mode::Liste) {
    la = liste_ && liste_(suivant);
  } else if (!attente_.empty()) {
    suivant = attente_.front();
    attente_.pop_front();
    la = true;
  }
  if (!la) {
    k_ = commences_ > 0 ? record_.ticks : 0;  // the last one stays the one that is told, with all its ticks done
    if (commences_ > 0) ticksFinis_ -= k_;
    if (mode_ == Mode::Liste || finRecue_) {
      Termine(EtatCarte::Fini, u);
    } else {
      etat_ = EtatCarte::Attente;
      attenteDepuis_ = u;
      remplissageMini_ = 0;
    }
    return;
  }
  record_ = suivant;
  allure_ = Allure(cadences_, record_);
  debut_ = u;
  faits_ = {};
  ++commences_;
  etat_ = EtatCarte::EnCours;
  if (!finRecue_) remplissageMini_ = std::min(remplissageMini_, Remplissage());
}

void Travail::Execute(std::int64_t tick) {
  if (tick <= k_) return;
  for (std::size_t axe = 0; axe < 3; ++axe) {
    const std::int64_t pas = std::abs(record_.pas[axe]);
    if (pas != 0) Fronts(axe, PasFaits(pas, tick, record_.ticks));
  }
  k_ = tick;
}

void Travail::Fronts(std::size_t axe, std::int64_t jusque) {
  const int sens = record_.pas[axe] > 0 ? 1 : -1;
  if (!machine_.Limite(axe)) {
    machine_.Avance(axe, sens, jusque - faits_[axe]);
    faits_[axe] = jusque;
    return;
  }
  const auto parSeconde = static_cast<double>(cadences_.UnitesParSeconde());
  const double depart = static_cast<double>(depart_) / NsParSeconde;
  const std::int64_t pas = std::abs(record_.pas[axe]);
  while (faits_[axe] < jusque) {
    const std::int64_t tick = TickDuPas(faits_[axe] + 1, pas, record_.ticks);
    const std::int64_t t = TempsDuTick(tick);
    machine_.Front(axe, sens, depart + static_cast<double>(debut_ + t) / parSeconde,
                   static_cast<double>(allure_.DureeTick(t)) / parSeconde);
    ++faits_[axe];
    if (pas <= record_.ticks) continue;
    // Further edges of the same tick come at the same moment: nothing can follow them.
    const std::int64_t ensemble = std::min(jusque, PasFaits(pas, tick, record_.ticks));
    machine_.Perd(axe, sens, ensemble - faits_[axe]);
    faits_[axe] = ensemble;
  }
}

std::int64_t Travail::TempsDuTick(std::int64_t tick) const {
  if (etat_ == EtatCarte::Freine && tick > tickFrein_) return debutFrein_ + frein_.Temps(tick);
  return allure_.Temps(tick);
}

void Travail::Termine(EtatCarte etat, std::int64_t u) {
  if (etat == EtatCarte::Arretee) machine_.Jalon();
  etat_ = etat;
  fin_ = u;
  attente_.clear();
}

void Travail::Efface() {
  if (EnCours()) Arrete();
  mode_ = Mode::Aucun;
  etat_ = EtatCarte::Repos;
  attente_.clear();
  liste_ = nullptr;
  finRecue_ = false;
  acceptes_ = commences_ = ticksFinis_ = famine_ = 0;
  remplissageMini_ = 0;
  u_ = fin_ = k_ = 0;
  record_ = {};
  joues_.clear();
}

void Travail::OuvreFlux() {
  if (!EnCours() || mode_ == Mode::Aucun) mode_ = Mode::Flux;
}

void Travail::OuvreListe(Source liste) {
  if (EnCours() && mode_ != Mode::Aucun) return;
  mode_ = Mode::Liste;
  liste_ = std::move(liste);
  // The go has come before the list.
  if (etat_ == EtatCarte::Attente) {
    famine_ += u_ - attenteDepuis_;
    Suivant(u_);
  }
}

void Travail::Part(const Cadences& cadences) {
  if (etat_ != EtatCarte::Repos) return;
  cadences_ = cadences;
  depart_ = ns_;
  u_ = 0;
  remplissageMini_ = Remplissage() - (finRecue_ ? 1 : 0);
  Suivant(0);
}

bool Travail::Prend(const Record& record) {
  const bool prend = etat_ == EtatCarte::Repos || etat_ == EtatCarte::EnCours || etat_ == EtatCarte::Attente;
  if (mode_ != Mode::Flux || !prend || finRecue_ || Plein()) return false;
  attente_.push_back(record);
  ++acceptes_;
  if (etat_ == EtatCarte::Attente) {
    famine_ += u_ - attenteDepuis_;
    if (commences_ > 0) ticksFinis_ += k_;
    Suivant(u_);
  }
  return true;
}

bool Travail::PrendFin() {
  const bool prend = etat_ == EtatCarte::Repos || etat_ == EtatCarte::EnCours || etat_ == EtatCarte::Attente;
  if (mode_ != Mode::Flux || !prend || finRecue_ || Plein()) return false;
  finRecue_ = true;
  if (etat_ == EtatCarte::Attente) {
    famine_ += u_ - attenteDepuis_;
    Termine(EtatCarte::Fini, u_);
  }
  return true;
}

void Travail::Arrete() {
  if (etat_ == EtatCarte::Fini || etat_ == EtatCarte::Arretee) return;
  if (etat_ == EtatCarte::Attente) famine_ += u_ - attenteDepuis_;
  if (Tourne()) Execute(TickSansMoitie(record_, k_));
  Termine(EtatCarte::Arretee, u_);
}

void Travail::Freine(int palier) {
  if (etat_ == EtatCarte::Freine) return;  // the first word about the level stands
  if (etat_ != EtatCarte::EnCours) return Arrete();
  const std::int64_t t = u_ - debut_;
  const int niveau = allure_.Niveau(t);
  if (niveau <= palier) return Arrete();
  frein_ = Descente(cadences_, allure_.Ticks(t), niveau - 1, palier);
  debutFrein_ = t;
  tickFrein_ = k_;
  const std::int64_t auFond = frein_.JusquAuFond();
  tickArret_ = TickSansMoitie(record_, static_cast<std::int64_t>(frein_.Ticks(auFond, record_.ticks) >> 32U));
  finFrein_ =
      t + (tickArret_ == record_.ticks ? frein_.Temps(tickArret_) : std::max(auFond, frein_.Temps(tickArret_)));
  etat_ = EtatCarte::Freine;
}

std::int32_t Travail::TicksRestants() const {
  return commences_ == 0 ? 0 : static_cast<std::int32_t>(record_.ticks - 1 - k_);
}

void Travail::Compte(CompteursCarte& compteurs) const {
  compteurs.etat = etat_;
  compteurs.acceptes = acceptes_;
  compteurs.commences = commences_;
  compteurs.ticks = ticksFinis_ + k_;
  const std::int64_t jusque = EnCours() ? u_ : fin_;
  compteurs.secondes = static_cast<double>(jusque) / static_cast<double>(cadences_.UnitesParSeconde());
  const std::int64_t manque = famine_ + (etat_ == EtatCarte::Attente ? u_ - attenteDepuis_ : 0);
  compteurs.ticksFamine = manque / Cadences::TickPlein;
  compteurs.remplissage = Remplissage();
  compteurs.remplissageMini = remplissageMini_;
  compteurs.pas = machine_.Pas();
  compteurs.pasPerdus = machine_.Perdus();
}

}  // namespace zenikcom
