// The job: a bounded buffer of records, or a list in the flash memory, run by the clock.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "closed/zenikcom/virtual/Cadences.h"
#include "closed/zenikcom/virtual/Machine.h"

namespace zenikcom {

class Travail {
 public:
  // Next record of a stored list; false at its end.
  using Source = std::function<bool(Record&)>;

  Travail(Machine& machine, int capacite, bool journal);
  Travail(const Travail&) = delete;
  Travail& operator=(const Travail&) = delete;

  // The clock, ns. Going back is standing still.
  void Avance(std::int64_t ns);
  // Lets the record that runs come to its end, or the braking; gives the time at which it does. Otherwise does
  // nothing.
  std::int64_t AvanceAuSuivant();

  void Efface();     // stops, forgets everything that is buffered, and the go
  void OuvreFlux();  // records come one by one
  void OuvreListe(Source liste);
  void Part(const Cadences& cadences);  // the go
  bool Prend(const Record& record);     // false: no room, or no job that takes records
  bool PrendFin();
  void Arrete();            // at once
  void Freine(int palier);  // down to that level, then holds

  [[nodiscard]] EtatCarte Etat() const { return etat_; }
  [[nodiscard]] bool EnCours() const {
    return etat_ == EtatCarte::EnCours || etat_ == EtatCarte::Attente || etat_ == EtatCarte::Freine;
  }
  [[nodiscard]] bool Plein() const { return Remplissage() >= capacite_; }
  [[nodiscard]] std::int64_t Commences() const { return commences_; }
  [[nodiscard]] std::int32_t TicksRestants() const;
  void Compte(CompteursCarte& compteurs) const;
  [[nodiscard]] const std::vector<RecordJoue>& Joues() const { return joues_; }

 private:
  enum class Mode { Aucun, Flux, Liste };

  [[nodiscard]] bool Tourne() const { return etat_ == EtatCarte::EnCours || etat_ == EtatCarte::Freine; }
  [[nodiscard]] int Remplissage() const;
  [[nodiscard]] std::int64_t FinDuRecord() const;  // units since the go
  [[nodiscard]] std::int64_t Unites(std::int64_t ns) const;
  void AvanceUnites(std::int64_t u);
  void Execute(std::int64_t tick);
  void Fronts(std::size_t axe, std::int64_t jusque);
  [[nodiscard]] std::int64_t TempsDuTick(std::int64_t tick) const;  // units since the record began
  void Suivant(std::int64_t u);  // begins the next record at that moment, waits for it, or ends
  void Termine(EtatCarte etat, std::int64_t u);

  Machine& machine_;
  int capacite_;
  bool journal_;
  Mode mode_ = Mode::Aucun;
  EtatCarte etat_ = EtatCarte::Repos;
  std::deque<Record> attente_;  // those behind the one that runs
  Source liste_;
  bool finRecue_ = false;
  std::int64_t acceptes_ = 0, commences_ = 0, ticksFinis_ = 0, famine_ = 0;
  int remplissageMini_ = 0;

  Cadences cadences_{1, 5};
  std::int64_t ns_ = 0, depart_ = 0;  // now, and the moment of the go
  std::int64_t u_ = 0;                // now, units since the go
  std::int64_t fin_ = 0;              // unit at which the job ended or was stopped
  std::int64_t attenteDepuis_ = 0;

  Record record_;
  Allure allure_;
  std::int64_t debut_ = 0;  // unit at which the record began
  std::int64_t k_ = 0;      // ticks of it that are done
  Axes3 faits_{};           // steps of it that are done, unsigned

  std::int64_t debutFrein_ = 0, tickArret_ = 0, finFrein_ = 0;  // units since the record began; ticks
  std::int64_t tickFrein_ = 0;
  Descente frein_;

  std::vector<RecordJoue> joues_;
};

}  // namespace zenikcom
